#pragma once

#include <QImage>
#include <QImageIOHandler>
#include <QRect>
#include <QSize>
#include <QString>
#include <memory>

// A picture known by its file and its size, read from the header alone. Pixels are decoded only
// when asked for, at the size they are needed, so that opening thousands of pictures to learn
// their sizes stays as cheap as reading their headers.
//
// A picture never changes once opened, so that several threads may decode it at the same time.
//
// Sizes and pixels are those of the picture as it is shown upright: a photo stored sideways with
// an orientation tag (as phones store portrait shots) is as wide and as high as a browser shows it.
class Picture {
public:
    // The picture in the file at `path`, or nullptr when the item is no regular file, its
    // content is not an image format the reader knows, or its header gives no size.
    static std::shared_ptr<Picture> open(const QString& path);

    const QString& path() const { return path_; }
    // The format that the content is in, as Qt's readers name it: "jpeg", "png", "tiff".
    const QByteArray& format() const { return format_; }
    int width() const { return size().width(); }
    int height() const { return size().height(); }
    QSize size() const { return turned() ? stored_.transposed() : stored_; }

    // The pixels of `part` of the picture scaled to `target` (the whole picture at its own size
    // when both are empty), decoded at that size where the format allows (JPEG at 1/8 to 8/8).
    // A null image when the file can no longer be decoded, or when the decode would produce more
    // than 100 megapixels: such a picture is refused from its header, before any pixel is read.
    QImage decode(QSize target = {}, QRect part = {}) const;
    // Whether decode() refuses `target` for the number of pixels it would take.
    bool tooLargeToDecode(QSize target) const;

    // How many decodes have run in this process, so that callers can tell that a repaint
    // decoded nothing.
    static int decodeCount();

private:
    Picture(QString path, QByteArray format, QSize stored,
            QImageIOHandler::Transformations orientation)
        : path_(std::move(path)),
          format_(std::move(format)),
          stored_(stored),
          orientation_(orientation) {}

    bool turned() const { return orientation_ & QImageIOHandler::TransformationRotate90; }

    QString path_;
    QByteArray format_;
    // As the pixels lie in the file, before the orientation is applied.
    QSize stored_;
    QImageIOHandler::Transformations orientation_;
};

using PicturePtr = std::shared_ptr<Picture>;
