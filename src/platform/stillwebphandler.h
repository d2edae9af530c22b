#pragma once

#include <QImageIOHandler>
#include <QSize>

// Reads a WebP picture that is no animation through libwebp, decoding straight to the size it is
// wanted at: Qt's own reader decodes every pixel at full size, and for a lossless picture the
// library then holds it a second time. Only used when asked for by its format name.
class StillWebpHandler : public QImageIOHandler {
public:
    static constexpr char kFormat[] = "webp-still";

    bool canRead() const override;
    bool read(QImage* image) override;
    QVariant option(ImageOption option) const override;
    void setOption(ImageOption option, const QVariant& value) override;
    bool supportsOption(ImageOption option) const override;

private:
    QSize scaledSize_;
};
