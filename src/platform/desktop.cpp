#include "platform/desktop.h"

#include <QDesktopServices>
#include <QUrl>

namespace {
Desktop* installed = nullptr;
}

bool QtDesktop::launch(const QString& path) {
    return QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

void QtDesktop::showURL(const QString& url) {
    QDesktopServices::openUrl(QUrl(url));
}

namespace platform {

Desktop& desktop() {
    static QtDesktop real;
    return installed ? *installed : real;
}

void installDesktop(Desktop* replacement) {
    installed = replacement;
}

bool openFile(const QString& path) {
    return desktop().launch(path);
}

void openAddress(const QString& url) {
    desktop().showURL(url);
}

}  // namespace platform
