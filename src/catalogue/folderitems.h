#pragma once

#include <QStringList>

// The names of the items directly in `folder`, in the order a file manager lists them by name:
// by the user's locale, without regard to case, and with runs of digits compared by value, so
// that "IMG_2" comes before "IMG_10". Hidden items are included, "." and ".." are not; a name that
// is not UTF-8 keeps its bytes (see nativeName). Empty when `folder` is no folder.
QStringList folderItemsByName(const QString& folder);

// `folder` spelt one way, with "/" between names and no closing "/", so that the spellings of one
// folder compare equal.
QString cleanFolder(const QString& folder);
