#include "resources/namedpictures.h"

#include <QHash>
#include <QPainter>
#include <QSvgRenderer>

#include "resources/pictureiconengine.h"

static void loadPictureResources() {
    Q_INIT_RESOURCE(resources);
}

namespace pictures {
namespace {

PicturePtr named(const QString& name) {
    static QHash<QString, PicturePtr> kept;
    auto found = kept.constFind(name);
    if (found != kept.cend()) return *found;
    loadPictureResources();
    PicturePtr picture = Picture::open(QStringLiteral(":/pictures/") + name);
    kept.insert(name, picture);
    return picture;
}

}  // namespace

PicturePtr paypal() {
    return named(QStringLiteral("paypal"));
}
PicturePtr pebble730() {
    return named(QStringLiteral("pebble730"));
}
PicturePtr pebble512() {
    return named(QStringLiteral("pebble512"));
}
PicturePtr pebble128() {
    return named(QStringLiteral("pebble128"));
}
PicturePtr placeholder() {
    return named(QStringLiteral("hubble"));
}
PicturePtr help() {
    return named(QStringLiteral("help"));
}
PicturePtr blue() {
    return named(QStringLiteral("blue"));
}

QIcon iconOf(const PicturePtr& picture) {
    return QIcon(new PictureIconEngine(picture));
}

QCursor magnifyLarger(qreal devicePixelRatio) {
    constexpr int kSize = 32;  // the usual cursor size, in device-independent pixels
    loadPictureResources();
    QSvgRenderer drawing(QStringLiteral(":/pictures/magnify"));
    QPixmap pixmap(QSize(kSize, kSize) * devicePixelRatio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    drawing.render(&painter);
    painter.end();
    pixmap.setDevicePixelRatio(devicePixelRatio);
    const QPointF lens = drawing.boundsOnElement(QStringLiteral("lens")).center() * kSize /
                         drawing.viewBoxF().width();
    return QCursor(pixmap, qRound(lens.x()), qRound(lens.y()));
}

}  // namespace pictures
