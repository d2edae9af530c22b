#include "auxwindows/imagewell.h"

#include <QLabel>
#include <QPixmap>

void showInImageWell(QLabel* well, const PicturePtr& picture) {
    if (!picture) return;
    QSize size = picture->size();
    if (size.width() > well->width() || size.height() > well->height())
        size.scale(well->size(), Qt::KeepAspectRatio);
    // Decoded at the size shown, so that a vector logo stays sharp.
    QPixmap pixmap = QPixmap::fromImage(picture->decode(size * well->devicePixelRatioF()));
    pixmap.setDevicePixelRatio(well->devicePixelRatioF());
    well->setPixmap(pixmap);
}
