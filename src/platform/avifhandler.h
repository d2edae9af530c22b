#pragma once

#include <QImageIOHandler>
#include <memory>

struct avifDecoder;

// Reads AVIF pictures through libavif: the size and the orientation (its rotation and mirror
// boxes, which browsers honour) from the container alone, and the first frame's pixels on read.
// The reader scales and turns the picture; this handler gives it as stored.
class AvifHandler : public QImageIOHandler {
public:
    AvifHandler();
    ~AvifHandler() override;

    // Whether `device` starts with the file type box of an AVIF picture; the device is only
    // peeked at.
    static bool canRead(QIODevice* device);

    bool canRead() const override;
    bool read(QImage* image) override;
    QVariant option(ImageOption option) const override;
    bool supportsOption(ImageOption option) const override;

private:
    struct DeviceSource;

    // Reads the container once; false when it is no AVIF picture that libavif can decode.
    bool parse() const;

    mutable std::unique_ptr<DeviceSource> source_;
    mutable avifDecoder* decoder_ = nullptr;
    mutable bool parsed_ = false;
    mutable bool valid_ = false;
};
