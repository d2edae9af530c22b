#include "preview/previewgeometry.h"

#include "platform/text.h"

PreviewGeometry previewGeometry(QSize source, bool widthMode, double wanted, int frameWidth) {
    PreviewGeometry geometry;
    geometry.widthMode = widthMode;
    if (widthMode) {
        geometry.target = 16.0 > wanted ? 16 : text::truncateToInt(wanted);
        geometry.ratio = static_cast<double>(qint64{geometry.target} * 100) / source.width();
        geometry.previewWidth = geometry.target;
        geometry.previewHeight = text::truncateToInt(source.height() * geometry.ratio / 100.0);
    } else {
        // The height test is against 1.0 and then gives 2, not 1.
        geometry.target = 1.0 > wanted ? 2 : text::truncateToInt(wanted);
        geometry.ratio = static_cast<double>(qint64{geometry.target} * 100) / source.height();
        geometry.previewHeight = geometry.target;
        geometry.previewWidth = text::truncateToInt(source.width() * geometry.ratio / 100.0);
    }
    geometry.inner = QRect(frameWidth, frameWidth, geometry.previewWidth - 2 * frameWidth,
                           geometry.previewHeight - 2 * frameWidth);
    return geometry;
}
