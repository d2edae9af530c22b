#include "preview/decodedpreviews.h"

#include <QFileInfo>
#include <algorithm>

namespace {
// Enough for a handful of previews at window size, and still bounded when a wanted size
// runs into the thousands.
constexpr qsizetype kMaxEntries = 8;
constexpr qsizetype kMaxBytes = 64 * 1024 * 1024;
}  // namespace

DecodedPreviews::Key DecodedPreviews::keyOf(const Picture& picture, QSize size, QRect part) {
    const QFileInfo file(picture.path());
    return {picture.path(), file.size(), file.lastModified(), size, part};
}

QImage DecodedPreviews::find(const Key& key) {
    for (qsizetype i = 0; i < entries_.size(); ++i) {
        if (entries_[i].key == key) {
            entries_.move(i, 0);
            return entries_.first().image;
        }
    }
    return {};
}

bool DecodedPreviews::has(const Key& key) const {
    return std::any_of(entries_.begin(), entries_.end(),
                       [&key](const Entry& entry) { return entry.key == key; });
}

bool DecodedPreviews::roomBesideNewest(const QList<Key>& keys) const {
    qsizetype bytes = entries_.isEmpty() ? 0 : entries_.first().image.sizeInBytes();
    for (const Key& key : keys) {
        const QSize pixels = key.part.isEmpty() ? key.size : key.part.size();
        bytes += qsizetype{pixels.width()} * pixels.height() * 4;
    }
    return bytes <= kMaxBytes;
}

void DecodedPreviews::keep(const Key& key, const QImage& image, Place place) {
    entries_.insert(place == Place::BehindNewest && !entries_.isEmpty() ? 1 : 0, {key, image});
    qsizetype bytes = 0;
    // The newest entry always stays, whatever its size; an older one that no longer fits goes.
    for (qsizetype kept = 0; kept < entries_.size();) {
        const qsizetype size = entries_[kept].image.sizeInBytes();
        if (kept == 0 || (kept < kMaxEntries && bytes + size <= kMaxBytes)) {
            bytes += size;
            ++kept;
        } else {
            entries_.removeAt(kept);
        }
    }
}

QImage DecodedPreviews::at(const Picture& picture, QSize size) {
    const Key key = keyOf(picture, size);
    if (QImage image = find(key); !image.isNull()) return image;
    QImage image = picture.decode(size);
    // A failed decode is not kept: the file may be mended, and the next paint tries again.
    if (!image.isNull()) keep(key, image);
    return image;
}
