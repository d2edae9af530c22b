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
// stepping over every segment but the frame and the EXIF block. Nothing for what the JPEG decoder
// would refuse there: markers that break off or that it does not know, a frame it cannot decode
// or a second one, or a scan before any frame.
std::optional<JpegHeader> readJpegHeader(QIODevice& device);
