#include "platform/specialfolders.h"

#include <QDir>
#include <QStandardPaths>

namespace {
QString location(QStandardPaths::StandardLocation which) {
    return QDir::toNativeSeparators(QStandardPaths::writableLocation(which));
}
}  // namespace

namespace SpecialFolder {
QString Desktop() {
    return location(QStandardPaths::DesktopLocation);
}
QString Documents() {
    return location(QStandardPaths::DocumentsLocation);
}
QString Pictures() {
    return location(QStandardPaths::PicturesLocation);
}
QString Preferences() {
    return location(QStandardPaths::GenericConfigLocation);
}
QString UserHome() {
    return QDir::toNativeSeparators(QDir::homePath());
}
}  // namespace SpecialFolder
