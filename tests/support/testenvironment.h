#pragma once

#include <QString>
#include <QTest>

#include "app/app.h"
#include "support/recordingdesktop.h"
#include "support/recordingdialogs.h"

// Every test runs headless, in a home folder of its own (so the Desktop and the preferences
// folder are temporary), with the dialogs and the desktop replaced by recording doubles.
class TestEnvironment {
public:
    TestEnvironment();
    ~TestEnvironment();

    static RecordingDialogs& dialogs();
    static RecordingDesktop& desktop();
    // The temporary home folder.
    static QString home();
};

#define VELMORA_TEST_MAIN(TestObject)           \
    int main(int argc, char** argv) {           \
        TestEnvironment environment;            \
        App app(argc, argv);                    \
        TestObject test;                        \
        return QTest::qExec(&test, argc, argv); \
    }
