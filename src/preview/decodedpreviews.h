#pragma once

#include <QDateTime>
#include <QImage>
#include <QList>
#include <QSize>
#include <QString>

#include "platform/picture.h"

// The last few decoded previews, so that a repaint, or a return to a row seen a moment ago,
// decodes nothing. An entry is known by its file's path, size and modification time and by
// the size it was decoded at: a file changed on disk is decoded again.
class DecodedPreviews {
public:
    // The picture's pixels at `size`, from memory when they are there; a null image when the
    // file can no longer be decoded.
    QImage at(const Picture& picture, QSize size);

private:
    struct Key {
        QString path;
        qint64 fileSize = 0;
        QDateTime modified;
        QSize size;
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
