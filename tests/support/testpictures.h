#pragma once

#include <QEvent>
#include <QImage>
#include <QList>
#include <QObject>
#include <QStringList>
#include <utility>

// A picture with noise over gradients and shapes, so that an encoder and a decoder have real
// detail to deal with, as in a photo. The same seed gives the same picture.
QImage photoLike(QSize size, quint32 seed);

// `image` in `format` (as Qt names it), at `quality` where the format has one.
QByteArray encoded(const QImage& image, const char* format, int quality = -1);

// Writes `bytes` to a new file at `path`, made by the name's bytes: not every name is UTF-8.
void writeBytes(const QString& path, const QByteArray& bytes);

// `image` as a JPEG whose EXIF orientation tag (1 to 8) tells a viewer how to turn it upright, as
// a phone stores a portrait shot; with `secondDirectory`, the tag follows an empty first directory.
QByteArray jpegWithOrientation(const QImage& image, int orientation, bool secondDirectory = false);
// Writes `fields` into the picture's file at `path`, each an Exiv2 key ("Xmp.dc.description") and
// its value as Exiv2 reads it ("lang=x-default Dunes"); Exiv2 throws when it cannot.
void describe(const QString& path, const QList<std::pair<const char*, QString>>& fields);
// The same as a PNG with an eXIf chunk, which browsers honour as well.
QByteArray pngWithOrientation(const QImage& image, int orientation);

// Writes `image` to `path` as AVIF with libavif's own encoder, given `options`.
bool writeAvif(const QImage& image, const QString& path, const QStringList& options = {});

// A PNG of `size` black grey pixels, one byte each. With `declared` set, its header says that
// size instead, and the rows end long before it.
QByteArray blackPng(QSize size, QSize declared = {});

// The growth of this process's resident memory at its highest since the object was made, in MB.
struct PeakMemory {
    PeakMemory();
    double megabytes() const;
    qint64 start = 0;  // resident kilobytes
};

// Counts the paints of the widgets it is installed on.
struct PaintCounter : QObject {
    int paints = 0;
    bool eventFilter(QObject*, QEvent* event) override {
        paints += event->type() == QEvent::Paint;
        return false;
    }
};
