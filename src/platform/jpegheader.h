#pragma once

#include <QImageIOHandler>
#include <QSize>
#include <optional>

class QIODevice;

// What a JPEG file says before its first scan: its size as stored and the turn its EXIF
// orientation asks for.
struct JpegHeader {
    QSize stored;
    QImageIOHandler::Transformations orientation = QImageIOHandler::TransformationNone;
};

// Reads the markers of the JPEG file that `device` reads, from its start up to the first scan,
// stepping over every segment but the frame and the EXIF block. Nothing when the markers break
// off, or the scan comes before any frame, as a JPEG decoder would also refuse them.
std::optional<JpegHeader> readJpegHeader(QIODevice& device);
