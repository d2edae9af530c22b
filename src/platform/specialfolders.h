#pragma once

#include <QString>

// The user's special folders, as native paths without a trailing separator.
namespace SpecialFolder {
QString Desktop();
QString Documents();
QString Pictures();
// Where preference files live: ~/.config on Linux, ~/Library/Preferences on macOS.
QString Preferences();
QString UserHome();
}  // namespace SpecialFolder
