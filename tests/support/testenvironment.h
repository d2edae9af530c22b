#pragma once

#include <QDir>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include "app/app.h"
#include "support/recordingdesktop.h"
#include "support/recordingdialogs.h"

// Every test runs headless, in a home folder of its own (so the Desktop and the preferences
// folder are temporary), with the dialogs and the desktop replaced by recording doubles.
class TestEnvironment {
public:
    TestEnvironment() {
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
        QDir(doubles().home.path()).mkpath(QStringLiteral("Desktop"));
        qputenv("HOME", doubles().home.path().toLocal8Bit());
        for (const char* variable : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME",
                                     "XDG_DESKTOP_DIR", "XDG_DOCUMENTS_DIR", "XDG_PICTURES_DIR"})
            qunsetenv(variable);
        QStandardPaths::setTestModeEnabled(true);
        platform::installDialogs(&doubles().dialogs);
        platform::installDesktop(&doubles().desktop);
    }
    ~TestEnvironment() {
        platform::installDialogs(nullptr);
        platform::installDesktop(nullptr);
    }

    static RecordingDialogs& dialogs() { return doubles().dialogs; }
    static RecordingDesktop& desktop() { return doubles().desktop; }
    // The temporary home folder.
    static QString home() { return doubles().home.path(); }

private:
    // Made at the first use, in main(), rather than before it.
    struct Doubles {
        QTemporaryDir home;
        RecordingDialogs dialogs;
        RecordingDesktop desktop;
    };
    static Doubles& doubles() {
        static Doubles made;
        return made;
    }
};

#define VELMORA_TEST_MAIN(TestObject)           \
    int main(int argc, char** argv) {           \
        TestEnvironment environment;            \
        App app(argc, argv);                    \
        TestObject test;                        \
        return QTest::qExec(&test, argc, argv); \
    }
