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
    struct Key {
        QString path;
        qint64 fileSize = 0;
        QDateTime modified;
        QSize size;
        QRect part;
        bool operator==(const Key&) const = default;
    };
    // Where a new entry goes: first, or behind the first, so that pixels decoded ahead never
    // push out those of the preview on show.
    enum class Place { Newest, BehindNewest };

    // The key of `part` of the picture scaled to `size` (see Picture::decode), as its file is now.
    static Key keyOf(const Picture& picture, QSize size, QRect part = {});

    // The pixels kept for `key`, which become the newest; a null image when there are none.
    QImage find(const Key& key);
    bool has(const Key& key) const;
    // Whether the pixels for all of `keys` fit in memory together beside the newest entry.
    bool roomBesideNewest(const QList<Key>& keys) const;
    void keep(const Key& key, const QImage& image, Place place = Place::Newest);
    // The pixels of the picture at `size`, from memory or decoded now; a null image when the file
    // cannot be decoded.
    QImage at(const Picture& picture, QSize size);

private:
    struct Entry {
        Key key;
        QImage image;
    };

    // Most recently used first.
    QList<Entry> entries_;
};
