#include "platform/picture.h"

#include <QFileInfo>
#include <QImageReader>

std::shared_ptr<Picture> Picture::open(const QString& path) {
    // Folders, pipes, sockets, devices and dangling links are never opened, so that nothing
    // can block or fail on them.
    const QFileInfo info(path);
    if (!info.isFile()) return nullptr;

    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    if (!reader.canRead()) return nullptr;
    const QSize size = reader.size();
    if (!size.isValid() || size.isEmpty()) return nullptr;
    return std::shared_ptr<Picture>(new Picture(path, size));
}

namespace {
int decodesSoFar = 0;
}

int Picture::decodeCount() {
    return decodesSoFar;
}

QImage Picture::decode(QSize target) const {
    // JPEG is decoded at down to an eighth of its size and PNG a scanline at a time into the
    // target size; any larger buffer is refused by the reader above its allocation limit, so a
    // header that claims 100000 x 100000 pixels costs no memory, only a null image.
    ++decodesSoFar;
    QImageReader reader(path_);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(false);
    if (target.isValid() && !target.isEmpty() && target != size_) reader.setScaledSize(target);
    QImage image = reader.read();
    if (!image.isNull() && target.isValid() && !target.isEmpty() && image.size() != target)
        image = image.scaled(target, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    return image;
}
