#pragma once

#include <QStringList>
#include <functional>

#include "platform/desktop.h"

// Records what would have been opened on the desktop; opens nothing.
class RecordingDesktop final : public Desktop {
public:
    bool launch(const QString& path) override {
        launched.append(path);
        if (onLaunch) onLaunch(path);
        return launches;
    }
    void showURL(const QString& url) override {
        urls.append(url);
        if (onShowURL) onShowURL(url);
    }
    void clear() { *this = RecordingDesktop(); }

    QStringList launched;
    bool launches = true;  // whether an application starts for a launched file
    QStringList urls;
    // Run at each launch and showURL, to look at the program's state at that moment or to fail.
    std::function<void(const QString&)> onLaunch;
    std::function<void(const QString&)> onShowURL;
};
