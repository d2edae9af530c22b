#include "preview/decodedpreviews.h"

#include <QFileInfo>

namespace {
// Enough for a handful of previews at window size, and still bounded when a wanted size
// runs into the thousands.
constexpr qsizetype kMaxEntries = 8;
constexpr qsizetype kMaxBytes = 64 * 1024 * 1024;
}  // namespace

QImage DecodedPreviews::at(const Picture& picture, QSize size, QRect part) {
    const QFileInfo file(picture.path());
    const Key key{picture.path(), file.size(), file.lastModified(), size, part};
    for (qsizetype i = 0; i < entries_.size(); ++i) {
        if (entries_[i].key == key) {
            entries_.move(i, 0);
            return entries_.first().image;
        }
    }
    QImage image = picture.decode(size, part);
    // A failed decode is not kept: the file may be mended, and the next paint tries again.
    if (!image.isNull()) keep({key, image});
    return image;
}

void DecodedPreviews::keep(Entry entry) {
    entries_.prepend(std::move(entry));
    qsizetype bytes = 0;
    qsizetype kept = 0;
    // The newest entry always stays, whatever its size.
    while (kept < entries_.size() && kept < kMaxEntries &&
           (kept == 0 || bytes + entries_[kept].image.sizeInBytes() <= kMaxBytes)) {
        bytes += entries_[kept].image.sizeInBytes();
        ++kept;
    }
    entries_.erase(entries_.begin() + kept, entries_.end());
}
