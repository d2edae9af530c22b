#include "samplefolders.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QRandomGenerator>
#include <stdexcept>

#include "support/testpictures.h"

namespace {

// A landscape: a sky gradient, a sun, ridges of hills and scattered trees, with grain over all,
// so that the preview has real detail to scale, as with a photo.
QImage landscape(QSize size, quint32 seed, QColor sky, QColor ground) {
    QRandomGenerator random(seed);
    QImage image(size, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal w = size.width();
    const qreal h = size.height();

    QLinearGradient air(0, 0, 0, h * 0.6);
    air.setColorAt(0, sky.darker(140));
    air.setColorAt(1, sky.lighter(150));
    painter.fillRect(image.rect(), air);

    const QPointF sun(w * (0.2 + 0.6 * random.generateDouble()), h * 0.25);
    QRadialGradient glow(sun, h * 0.2);
    glow.setColorAt(0, QColor(255, 250, 220));
    glow.setColorAt(0.25, QColor(255, 230, 160, 220));
    glow.setColorAt(1, QColor(255, 230, 160, 0));
    painter.fillRect(image.rect(), glow);

    for (int ridge = 0; ridge < 4; ++ridge) {
        const qreal base = h * (0.45 + 0.12 * ridge);
        QPainterPath hills(QPointF(0, h));
        for (int step = 0; step <= 24; ++step)
            hills.lineTo(w * step / 24, base - h * 0.08 * random.generateDouble());
        hills.lineTo(w, h);
        hills.closeSubpath();
        painter.fillPath(hills, ground.darker(100 + 30 * ridge));
    }

    for (int tree = 0; tree < 60; ++tree) {
        const QPointF at(w * random.generateDouble(), h * (0.6 + 0.4 * random.generateDouble()));
        const qreal radius = h * (0.01 + 0.03 * random.generateDouble());
        painter.setPen(Qt::NoPen);
        painter.setBrush(ground.darker(150 + random.bounded(100)));
        painter.drawEllipse(at, radius, radius * 1.6);
    }
    painter.end();

    for (int y = 0; y < image.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const int grain = random.bounded(-12, 13);
            line[x] =
                qRgb(qBound(0, qRed(line[x]) + grain, 255), qBound(0, qGreen(line[x]) + grain, 255),
                     qBound(0, qBlue(line[x]) + grain, 255));
        }
    }
    return image;
}

void save(const QImage& image, const QString& path, const char* format) {
    if (!image.save(path, format, 88))
        throw std::runtime_error("cannot write " + path.toStdString());
}

// Stored sideways with an EXIF orientation tag, as a phone stores a portrait shot.
void saveSideways(const QImage& upright, const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) ||
        file.write(jpegWithOrientation(upright.transformed(QTransform().rotate(-90)), 6)) <= 0)
        throw std::runtime_error("cannot write " + path.toStdString());
}

QString makeFolder(const QString& parent, const QString& name) {
    QDir dir(parent);
    if (!dir.mkpath(name)) throw std::runtime_error("cannot make " + name.toStdString());
    return dir.filePath(name);
}

}  // namespace

namespace samplefolders {

QString writeGallery(const QString& parent) {
    const QString folder = makeFolder(parent, QStringLiteral("Côte d'Azur 2020"));
    const QDir dir(folder);
    const QColor blue(70, 130, 200), dusk(150, 90, 140), grey(120, 130, 140);
    const QColor green(60, 120, 50), olive(110, 110, 50), brown(100, 80, 60);
    save(landscape({1600, 1067}, 1, blue, green), dir.filePath("Plage à Nice.jpg"), "JPEG");
    saveSideways(landscape({1200, 1600}, 2, dusk, brown), dir.filePath("Château d'Èze.jpg"));
    save(landscape({1600, 900}, 3, grey, olive), dir.filePath("Straße im Regen.jpg"), "JPEG");
    save(landscape({1400, 1050}, 4, blue, olive), dir.filePath("Ölbäume am Hang.jpg"), "JPEG");
    save(landscape({800, 600}, 5, dusk, green), dir.filePath("Étang de Berre.png"), "PNG");
    save(landscape({640, 640}, 6, grey, brown), dir.filePath("Ñandú en el zoo.png"), "PNG");
    return folder;
}

QString writeMany(const QString& parent, int count) {
    const QString folder = makeFolder(parent, QStringLiteral("Many"));
    const QDir dir(folder);
    QImage tile(96, 64, QImage::Format_RGB32);
    for (int index = 1; index <= count; ++index) {
        tile.fill(QColor::fromHsv(index * 37 % 360, 120, 200));
        save(tile, dir.filePath(QStringLiteral("Tile %1.png").arg(index, 3, 10, QChar('0'))),
             "PNG");
    }
    return folder;
}

}  // namespace samplefolders
