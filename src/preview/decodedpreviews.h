#pragma once

#include <QDateTime>
#include <QImage>
#include <QList>
#include <QRect>
#include <QSize>
#include <QString>

#include "platform/picture.h"

// The last few decoded previews, so that a repaint, or a return to a row seen a moment ago,
// decodes nothing. An entry is known by its file's path, size and modification time and by the
// size and part it was decoded at, in device pixels: a file changed on disk is decoded again, and
// so is a picture shown on a screen of another pixel density.
class DecodedPreviews {
public:
    // The pixels of `part` of the picture scaled to `size` (see Picture::decode), from memory
    // when they are there; a null image when the file cannot be decoded.
    QImage at(const Picture& picture, QSize size, QRect part = {});

private:
    struct Key {
        QString path;
        qint64 fileSize = 0;
        QDateTime modified;
        QSize size;
        QRect part;
        bool operator==(const Key&) const = default;
    };
    struct Entry {
        Key key;
        QImage image;
    };

    void keep(Entry entry);

    // Most recently used first.
    QList<Entry> entries_;
};
