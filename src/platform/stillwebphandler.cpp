#include "platform/stillwebphandler.h"

#include <webp/decode.h>

#include <QIODevice>
#include <QImage>
#include <QVariant>

namespace {
// The size and kind of the picture, from the chunk headers at the start of the file.
bool readFeatures(QIODevice* device, WebPBitstreamFeatures* features) {
    if (!device) return false;
    const QByteArray start = device->peek(256);
    return WebPGetFeatures(reinterpret_cast<const uint8_t*>(start.constData()),
                           size_t(start.size()), features) == VP8_STATUS_OK &&
           !features->has_animation;
}
}  // namespace

bool StillWebpHandler::canRead() const {
    WebPBitstreamFeatures features;
    return readFeatures(device(), &features);
}

bool StillWebpHandler::read(QImage* image) {
    WebPDecoderConfig config;
    if (!WebPInitDecoderConfig(&config) || !readFeatures(device(), &config.input)) return false;
    QSize size(config.input.width, config.input.height);
    if (!scaledSize_.isEmpty() && scaledSize_ != size) {
        config.options.use_scaling = 1;
        config.options.scaled_width = scaledSize_.width();
        config.options.scaled_height = scaledSize_.height();
        size = scaledSize_;
    }
    const bool alpha = config.input.has_alpha;
    QImage decoded;
    if (!allocateImage(size,
                       alpha ? QImage::Format_RGBA8888_Premultiplied : QImage::Format_RGBX8888,
                       &decoded))
        return false;
    config.output.colorspace = alpha ? MODE_rgbA : MODE_RGBA;
    config.output.is_external_memory = 1;
    config.output.u.RGBA.rgba = decoded.bits();
    config.output.u.RGBA.stride = int(decoded.bytesPerLine());
    config.output.u.RGBA.size = size_t(decoded.sizeInBytes());
    const QByteArray data = device()->readAll();
    if (WebPDecode(reinterpret_cast<const uint8_t*>(data.constData()), size_t(data.size()),
                   &config) != VP8_STATUS_OK)
        return false;
    *image = decoded;
    return true;
}

QVariant StillWebpHandler::option(ImageOption option) const {
    WebPBitstreamFeatures features;
    if (option != Size || !readFeatures(device(), &features)) return {};
    return QSize(features.width, features.height);
}

void StillWebpHandler::setOption(ImageOption option, const QVariant& value) {
    if (option == ScaledSize) scaledSize_ = value.toSize();
}

bool StillWebpHandler::supportsOption(ImageOption option) const {
    return option == Size || option == ScaledSize;
}
