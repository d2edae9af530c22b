#include "platform/picture.h"

#include <QFile>
#include <QImageReader>
#include <QPainter>
#include <QtPlugin>
#include <algorithm>
#include <atomic>
#include <cmath>
#include <mutex>
#include <optional>

#include "platform/exiforientation.h"
#include "platform/jpegheader.h"
#include "platform/nativename.h"
#include "platform/stillwebphandler.h"

// AVIF, which no Qt image plugin of the platform reads, and still WebP decoded at a smaller size
// come from the program's own readers.
Q_IMPORT_PLUGIN(ReadersPlugin)

namespace {

// A larger decode would hold the window for many seconds and take gigabytes.
constexpr qint64 kMaxDecodedPixels = 100'000'000;
// Room for the largest picture allowed above at 32 bits a pixel; Qt's default of 128 MB would
// refuse a 40-megapixel photo in any format that cannot be decoded at a smaller scale.
constexpr int kAllocationLimitMB = 400;

const QByteArray kJpegSignature = QByteArrayLiteral("\xFF\xD8\xFF");
const QByteArray kPngSignature = QByteArrayLiteral("\x89PNG\r\n\x1A\n");

// Pictures are decoded on several threads at once.
std::atomic<int> decodesSoFar = 0;

void prepare(QImageReader& reader) {
    // A setting of the whole process, made once, before a second thread can read it.
    static std::once_flag limited;
    std::call_once(limited, [] { QImageReader::setAllocationLimit(kAllocationLimitMB); });
    reader.setDecideFormatFromContent(true);
}

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

// A still WebP picture is read by the program's own reader, which decodes at the wanted size.
void preferScaledDecoding(QImageReader& reader) {
    // A name kept as bytes is read from an open file, which Qt's own reader takes as it is.
    if (reader.fileName().isEmpty() || reader.format() != "webp") return;
    reader.setFileName(reader.fileName());
    reader.setDecideFormatFromContent(false);
    reader.setFormat(StillWebpHandler::kFormat);
    if (reader.canRead()) return;
    reader.setFileName(reader.fileName());  // an animation: Qt's reader takes it
    reader.setFormat({});
    reader.setDecideFormatFromContent(true);
}

// How many pixels the reader decodes to give a picture stored at `stored` at `scaled`: the JPEG
// library decodes at the smallest of 1/8, 2/8 ... 8/8 that is not below the wanted size, every
// other format decodes in full.
qint64 decodedPixels(const QByteArray& format, QSize stored, QSize scaled) {
    QSize decoded = stored;
    if (format == "jpeg" && !scaled.isEmpty()) {
        const double factor = std::min(double(stored.width()) / scaled.width(),
                                       double(stored.height()) / scaled.height());
        const int eighths = std::clamp(int(std::ceil(8 / factor)), 1, 8);
        decoded = QSize((stored.width() * eighths + 7) / 8, (stored.height() * eighths + 7) / 8);
    }
    return qint64{decoded.width()} * decoded.height();
}

// The scaling functions work on these two formats; converting in place beforehand spares a copy
// of a large decode.
QImage scaleReady(QImage image) {
    return std::move(image).convertToFormat(
        image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
}

}  // namespace

std::shared_ptr<Picture> Picture::open(const QString& path) {
    // Folders, pipes, sockets, devices and dangling links are never opened, so that nothing
    // can block or fail on them.
    if (!nativeName::isFile(path)) return nullptr;

    QFile file;
    QImageReader reader;
    if (!aim(reader, file, path)) return nullptr;
    QIODevice& device = *reader.device();
    if (!device.isOpen() && !device.open(QIODevice::ReadOnly)) return nullptr;
    // Before it reads a header, Qt's reader asks each of its image plugins in turn whether it
    // knows the content, which costs more than the header itself: a JPEG's header is read here,
    // and a PNG is named to the reader.
    const QByteArray start = device.peek(kPngSignature.size());
    if (start.startsWith(kJpegSignature)) {
        const std::optional<JpegHeader> header = readJpegHeader(device);
        if (!header) return nullptr;
        return std::shared_ptr<Picture>(
            new Picture(path, "jpeg", header->stored, header->orientation));
    }
    prepare(reader);
    if (start == kPngSignature) {
        reader.setDecideFormatFromContent(false);
        reader.setFormat("png");
    }
    if (!reader.canRead()) return nullptr;
    const QSize size = reader.size();
    if (!size.isValid() || size.isEmpty()) return nullptr;
    // The orientation comes from the header that was just read for the size; a PNG's, which
    // Qt's reader leaves alone, from its eXIf chunk.
    QImageIOHandler::Transformations orientation = reader.transformation();
    if (reader.format() == "png" && reader.device())
        orientation = exifOrientation::ofPng(*reader.device());
    return std::shared_ptr<Picture>(new Picture(path, reader.format(), size, orientation));
}

bool Picture::tooLargeToDecode(QSize target) const {
    return decodedPixels(format_, stored_, turned() ? target.transposed() : target) >
           kMaxDecodedPixels;
}

int Picture::decodeCount() {
    return decodesSoFar;
}

QImage Picture::decode(QSize target, QRect part) const {
    ++decodesSoFar;
    if (target.isEmpty()) target = size();
    const QRect whole(QPoint(0, 0), target);
    part = part.isEmpty() ? whole : part & whole;
    // A part is cut from a decode no larger than the picture itself, so that a preview much
    // larger than the window never needs its whole size in memory.
    const QSize wanted = part == whole ? target : target.boundedTo(size());

    QFile file;
    QImageReader reader;
    if (!aim(reader, file, path_)) return {};
    prepare(reader);
    preferScaledDecoding(reader);
    reader.setAutoTransform(true);
    // The reader scales the picture as stored and turns it upright afterwards.
    if (tooLargeToDecode(wanted)) return {};
    const QSize storedWanted = turned() ? wanted.transposed() : wanted;
    if (storedWanted != stored_) reader.setScaledSize(storedWanted);
    QImage image = reader.read();
    if (image.isNull()) return image;
    if (reader.transformation() == QImageIOHandler::TransformationNone)
        image = exifOrientation::applied(std::move(image), orientation_);
    if (image.size() != wanted)
        image = scaleReady(std::move(image))
                    .scaled(wanted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    if (part == whole) return image;

    QImage piece(part.size(), image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied
                                                      : QImage::Format_RGB32);
    if (piece.isNull()) return piece;
    piece.fill(Qt::transparent);
    QPainter painter(&piece);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(QRectF(QPointF(-part.topLeft()), QSizeF(target)), image);
    return piece;
}
