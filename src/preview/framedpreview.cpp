#include "preview/framedpreview.h"

#include <QPainter>

QImage FramedPreview::image(qreal ratio) const {
    if (!picture_) return {};
    const QRect inner = geometry_.inner;
    QImage picture;
    if (!inner.isEmpty()) {
        picture = picture_->decode((QSizeF(inner.size()) * ratio).toSize());
        if (picture.isNull()) return picture;
    }
    QImage composed((QSizeF(size()) * ratio).toSize(), QImage::Format_RGB32);
    if (composed.isNull()) return composed;
    composed.setDevicePixelRatio(ratio);
    QPainter painter(&composed);
    draw(painter, picture, inner, false);
    return composed;
}

void FramedPreview::draw(QPainter& painter, const QImage& picture, const QRectF& at,
                         bool outline) const {
    const QRect whole(QPoint(0, 0), size());
    painter.fillRect(whole, colour_);
    if (outline) {
        painter.setPen(colour_);  // one point wide, inside the preview
        painter.drawRect(whole.adjusted(0, 0, -1, -1));
    }
    if (picture.isNull() || at.isEmpty()) return;
    // The picture was decoded at the device size of `at`, so it lands pixel for pixel; the
    // smoothing only matters at a ratio that is no whole number.
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(at, picture);
}
