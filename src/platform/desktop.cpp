#include "platform/desktop.h"

#include <QDesktopServices>
#include <QUrl>

namespace {
Desktop* installed = nullptr;
}

void QtDesktop::launch(const QString& path) {
    QDesktopServices::openUrl(QUrl::fromLocalFile(path));
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

}  // namespace platform

void Launch(const QString& path) {
    platform::desktop().launch(path);
}

void ShowURL(const QString& url) {
    platform::desktop().showURL(url);
}
