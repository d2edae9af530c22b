#include "platform/avifhandler.h"

#include <avif/avif.h>

#include <QIODevice>
#include <QImage>
#include <QSize>
#include <QVariant>
#include <algorithm>

// libavif reads the ranges it needs through this, so that learning the size of a picture reads
// its header boxes and not the whole file.
struct AvifHandler::DeviceSource {
    avifIO io{};  // first, so that libavif's pointer to it is a pointer to the whole
    QIODevice* device = nullptr;
    qint64 start = 0;
    QByteArray buffer;

    explicit DeviceSource(QIODevice* from) : device(from), start(from->pos()) {
        io.read = &DeviceSource::read;
        io.sizeHint = quint64(std::max<qint64>(0, device->size() - start));
    }

    static avifResult read(avifIO* io, uint32_t flags, uint64_t offset, size_t size,
                           avifROData* out) {
        auto* self = reinterpret_cast<DeviceSource*>(io);
        if (flags != 0 || offset > io->sizeHint) return AVIF_RESULT_IO_ERROR;
        size = size_t(std::min<uint64_t>(size, io->sizeHint - offset));
        if (!self->device->seek(self->start + qint64(offset))) return AVIF_RESULT_IO_ERROR;
        self->buffer = self->device->read(qint64(size));
        out->data = reinterpret_cast<const uint8_t*>(self->buffer.constData());
        out->size = size_t(self->buffer.size());
        return AVIF_RESULT_OK;
    }
};

AvifHandler::AvifHandler() = default;

AvifHandler::~AvifHandler() {
    if (decoder_) avifDecoderDestroy(decoder_);
}

bool AvifHandler::canRead(QIODevice* device) {
    if (!device) return false;
    // The file type box comes first; its length is its first four bytes.
    const QByteArray start = device->peek(4);
    if (start.size() < 4) return false;
    const quint32 length = quint32(uchar(start[0])) << 24 | quint32(uchar(start[1])) << 16 |
                           quint32(uchar(start[2])) << 8 | quint32(uchar(start[3]));
    const QByteArray box = device->peek(std::clamp<qint64>(length, 4, 4096));
    const avifROData data{reinterpret_cast<const uint8_t*>(box.constData()), size_t(box.size())};
    return avifPeekCompatibleFileType(&data);
}

bool AvifHandler::canRead() const {
    if (!canRead(device())) return false;
    setFormat("avif");
    return true;
}

bool AvifHandler::parse() const {
    if (parsed_) return valid_;
    parsed_ = true;
    if (!device()) return false;
    source_ = std::make_unique<DeviceSource>(device());
    decoder_ = avifDecoderCreate();
    if (!decoder_) return false;
    // Metadata is of no use here, and not reading it spares memory.
    decoder_->ignoreExif = AVIF_TRUE;
    decoder_->ignoreXMP = AVIF_TRUE;
    avifDecoderSetIO(decoder_, &source_->io);
    valid_ = avifDecoderParse(decoder_) == AVIF_RESULT_OK;
    return valid_;
}

bool AvifHandler::read(QImage* image) {
    if (!parse() || avifDecoderNextImage(decoder_) != AVIF_RESULT_OK) return false;
    const avifImage* picture = decoder_->image;
    const bool alpha = picture->alphaPlane != nullptr;
    QImage decoded;
    if (!allocateImage(QSize(int(picture->width), int(picture->height)),
                       alpha ? QImage::Format_RGBA8888_Premultiplied : QImage::Format_RGBX8888,
                       &decoded))
        return false;
    avifRGBImage rgb;
    avifRGBImageSetDefaults(&rgb, picture);
    rgb.format = AVIF_RGB_FORMAT_RGBA;
    rgb.depth = 8;
    rgb.alphaPremultiplied = alpha ? AVIF_TRUE : AVIF_FALSE;
    rgb.pixels = decoded.bits();
    rgb.rowBytes = uint32_t(decoded.bytesPerLine());
    if (avifImageYUVToRGB(picture, &rgb) != AVIF_RESULT_OK) return false;
    *image = decoded;
    return true;
}

QVariant AvifHandler::option(ImageOption option) const {
    if (!parse()) return {};
    const avifImage* picture = decoder_->image;
    if (option == Size) return QSize(int(picture->width), int(picture->height));
    if (option != ImageTransformation) return {};
    // The rotation box turns counter-clockwise in quarter turns, and the mirror box applies after
    // it; Qt mirrors first and turns clockwise last, so a mirror before an odd turn changes axis,
    // and a half turn is both mirrors.
    const int quarters = picture->transformFlags & AVIF_TRANSFORM_IROT ? picture->irot.angle : 0;
    const int clockwise = (4 - quarters % 4) % 4;
    Transformations turn = TransformationNone;
    if (picture->transformFlags & AVIF_TRANSFORM_IMIR) {
        const bool leftRight = picture->imir.mode == 1;
        turn = leftRight != (clockwise % 2 == 1) ? TransformationMirror : TransformationFlip;
    }
    if (clockwise >= 2) turn ^= TransformationRotate180;
    if (clockwise % 2 == 1) turn |= TransformationRotate90;
    return int(turn);
}

bool AvifHandler::supportsOption(ImageOption option) const {
    return option == Size || option == ImageTransformation;
}
