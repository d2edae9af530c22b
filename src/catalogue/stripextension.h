#pragma once

#include <QString>

// The default list name of an image: the file name without its last extension, but only when
// that extension is one of the known image extensions (compared without case).
QString stripExtension(const QString& name);
