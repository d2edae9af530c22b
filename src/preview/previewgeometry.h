#pragma once

#include <QRect>
#include <QSize>

// The numbers of one preview: how big the canvas becomes for a wanted size, and where the
// picture goes inside its frame.
struct PreviewGeometry {
    bool widthMode = true;
    // The wanted size after the lower limit of the mode: a width or a height in pixels.
    int target = 0;
    // The scale in percent.
    double ratio = 0.0;
    int previewWidth = 0;
    int previewHeight = 0;
    // Where the whole source is drawn. The frame is taken out of the preview size, so this is
    // empty (or of negative size) when the frame is as wide as the preview.
    QRect inner;

    bool operator==(const PreviewGeometry&) const = default;
};

// `wanted` is the number in the size field, read as a width when `widthMode` holds and as a
// height otherwise. Widths below 16 and heights below 1 are raised to 16 and 2, and every
// fraction is truncated toward zero.
PreviewGeometry previewGeometry(QSize source, bool widthMode, double wanted, int frameWidth);
