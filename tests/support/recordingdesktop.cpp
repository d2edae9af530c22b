#include "support/recordingdesktop.h"

void RecordingDesktop::launch(const QString& path) {
    launched.append(path);
    if (onLaunch) onLaunch(path);
}

void RecordingDesktop::showURL(const QString& url) {
    urls.append(url);
    if (onShowURL) onShowURL(url);
}

void RecordingDesktop::clear() {
    launched.clear();
    urls.clear();
    onLaunch = nullptr;
    onShowURL = nullptr;
}
