#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QStringList>

// `image` as a JPEG whose EXIF orientation tag (1 to 8) tells a viewer how to turn it upright, as
// a phone stores a portrait shot.
QByteArray jpegWithOrientation(const QImage& image, int orientation);

// Writes `image` to `path` as AVIF with libavif's own encoder, given `options`.
bool writeAvif(const QImage& image, const QString& path, const QStringList& options = {});

// A PNG chunk of `type` with its length and checksum.
QByteArray pngChunk(const char* type, const QByteArray& data);

// A complete, valid PNG of `size` black grey pixels, written without an encoder: the rows of
// 60000 x 60000 pixels take 3.6 gigabytes, the file 23 megabytes.
QByteArray blackPng(QSize size);

// The growth of this process's resident memory at its highest since the object was made, in MB.
class PeakMemory {
public:
    PeakMemory();
    double megabytes() const;

private:
    qint64 start_;
};
