#pragma once

#include <QString>

// The description a photo manager or a camera stored in the picture's file, to serve as its
// caption: XMP dc:description (the default language), else IPTC Caption-Abstract, else EXIF
// ImageDescription. Blank values and what cameras write there on their own ("OLYMPUS DIGITAL
// CAMERA", the model's name, ...) count as none. Empty when the file has none or cannot be read.
// The file is only read.
QString photoDescription(const QString& path);
