#include "platform/picture.h"

#include <QFile>
#include <QImageReader>

#include "platform/nativename.h"

namespace {
// Points `reader` at the picture's file. A name that keeps bytes no text can hold is opened by its
// bytes, in `file`; any other goes by name, so that the reader may also go by its extension.
bool aim(QImageReader& reader, QFile& file, const QString& path) {
    if (!nativeName::keepsBytes(path)) {
        reader.setFileName(path);
        return true;
    }
    if (!nativeName::openForReading(file, path)) return false;
    reader.setDevice(&file);
    return true;
}
}  // namespace

std::shared_ptr<Picture> Picture::open(const QString& path) {
    // Folders, pipes, sockets, devices and dangling links are never opened, so that nothing
    // can block or fail on them.
    if (!nativeName::isFile(path)) return nullptr;

    QFile file;
    QImageReader reader;
    if (!aim(reader, file, path)) return nullptr;
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
    QFile file;
    QImageReader reader;
    aim(reader, file, path_);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(false);
    if (target.isValid() && !target.isEmpty() && target != size_) reader.setScaledSize(target);
    QImage image = reader.read();
    if (!image.isNull() && target.isValid() && !target.isEmpty() && image.size() != target)
        image = image.scaled(target, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    return image;
}
