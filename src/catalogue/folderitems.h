#pragma once

#include <QStringList>

// The names of the items directly in `folder`, in the order a file manager lists them by name:
// by the user's locale, without regard to case, and with runs of digits compared by value, so
// that "IMG_2" comes before "IMG_10". Hidden items are included, "." and ".." are not; a name that
// is not UTF-8 keeps its bytes (see nativeName). Empty when `folder` is no folder.
QStringList folderItemsByName(const QString& folder);
