#pragma once

#include <QImage>
#include <QSize>
#include <QString>
#include <memory>

// A picture known by its file and its full pixel size, read from the header alone. Pixels are
// decoded only when asked for, at the size they are needed, so that opening thousands of
// pictures to learn their sizes stays as cheap as reading their headers.
class Picture {
public:
    // The picture in the file at `path`, or nullptr when the item is no regular file, its
    // content is not an image format the reader knows, or its header gives no size.
    static std::shared_ptr<Picture> open(const QString& path);

    const QString& path() const { return path_; }
    int width() const { return size_.width(); }
    int height() const { return size_.height(); }
    QSize size() const { return size_; }

    // The pixels scaled to `target` (the full size when `target` is empty), decoded at that
    // size where the format allows (JPEG at 1/2, 1/4 or 1/8). A null image when the file can
    // no longer be decoded.
    QImage decode(QSize target = {}) const;

    // How many decodes have run in this process, so that callers can tell that a repaint
    // decoded nothing.
    static int decodeCount();

private:
    Picture(QString path, QSize size) : path_(std::move(path)), size_(size) {}

    QString path_;
    QSize size_;
};

using PicturePtr = std::shared_ptr<Picture>;
