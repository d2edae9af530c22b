#pragma once

#include <QByteArray>
#include <QImage>
#include <QImageIOHandler>

class QIODevice;

// The EXIF orientation that a PNG file may carry in its eXIf chunk. Qt's reader does not apply it
// while browsers do (as they do for JPEG, but not for WebP), and the preview must show what the
// page shows.
namespace exifOrientation {

// The turn an EXIF block (a TIFF header and its first directory) asks for; none when it asks for
// none or cannot be read.
QImageIOHandler::Transformations ofTiff(const QByteArray& tiff);

// The turn asked for by the eXIf chunk of the PNG file that `device` reads from its start; the
// device is left where it was. Only chunk headers and the eXIf chunk itself are read.
QImageIOHandler::Transformations ofPng(QIODevice& device);

// `image` turned by `turn`, in the order Qt's own readers apply an orientation.
QImage applied(QImage image, QImageIOHandler::Transformations turn);

}  // namespace exifOrientation
