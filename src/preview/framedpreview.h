#pragma once

#include <QColor>
#include <QImage>
#include <QRectF>
#include <QSize>

#include "platform/picture.h"
#include "preview/previewgeometry.h"

class QPainter;

// The composed preview: the frame colour over the preview size, with the whole picture scaled
// into the inner rectangle. It is kept as what to draw rather than as pixels, so that a preview
// far larger than the window costs no memory until its pixels are asked for.
class FramedPreview {
public:
    FramedPreview() = default;
    FramedPreview(PicturePtr picture, const PreviewGeometry& geometry, QColor colour)
        : picture_(std::move(picture)), geometry_(geometry), colour_(colour) {}

    const PreviewGeometry& geometry() const { return geometry_; }
    QColor colour() const { return colour_; }
    QSize size() const { return {geometry_.previewWidth, geometry_.previewHeight}; }

    // The composed pixels, decoded anew at `ratio` device pixels a point; a null image before the
    // first preview or when the picture can no longer be decoded.
    QImage image(qreal ratio = 1.0) const;

    // Fills the preview with the frame colour and draws `picture` into `at` (in points); with
    // `outline` also the one-pixel outline that the canvas shows.
    void draw(QPainter& painter, const QImage& picture, const QRectF& at, bool outline) const;

    bool operator==(const FramedPreview&) const = default;

private:
    PicturePtr picture_;
    PreviewGeometry geometry_;
    QColor colour_;
};
