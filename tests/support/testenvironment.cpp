#include "support/testenvironment.h"

#include <QDir>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <memory>

namespace {
std::unique_ptr<QTemporaryDir> homeDir;
RecordingDialogs* recordingDialogs = nullptr;
RecordingDesktop* recordingDesktop = nullptr;
}  // namespace

TestEnvironment::TestEnvironment() {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    homeDir = std::make_unique<QTemporaryDir>();
    QDir(homeDir->path()).mkpath(QStringLiteral("Desktop"));
    qputenv("HOME", homeDir->path().toLocal8Bit());
    for (const char* variable : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME",
                                 "XDG_DESKTOP_DIR", "XDG_DOCUMENTS_DIR", "XDG_PICTURES_DIR"})
        qunsetenv(variable);
    QStandardPaths::setTestModeEnabled(true);
    recordingDialogs = new RecordingDialogs;
    recordingDesktop = new RecordingDesktop;
    platform::installDialogs(recordingDialogs);
    platform::installDesktop(recordingDesktop);
}

TestEnvironment::~TestEnvironment() {
    platform::installDialogs(nullptr);
    platform::installDesktop(nullptr);
    delete recordingDialogs;
    delete recordingDesktop;
    homeDir.reset();
}

RecordingDialogs& TestEnvironment::dialogs() {
    return *recordingDialogs;
}
RecordingDesktop& TestEnvironment::desktop() {
    return *recordingDesktop;
}
QString TestEnvironment::home() {
    return homeDir->path();
}
