// Writes a folder of 30 photo-like JPEGs of a web-ready size and both kinds of gallery page for
// them, for bench/lighthouse.mjs to measure as visitors meet them. Prints the self-contained
// page's size with and without its captions. Checks nothing.
//
//   lighthouse_pages FOLDER
#include <QCoreApplication>
#include <QDir>
#include <QImage>
#include <QPainter>
#include <QRadialGradient>
#include <QRandomGenerator>
#include <cstdio>

#include "page/gallerywriter.h"

namespace {

constexpr int kPhotos = 30;

// A landscape of sorts: sky and ground in two gradients, soft blobs for things in view, and a
// fine grain, so that a JPEG of it weighs what a photo of its size does. Every third one is dark
// and every fourth one bright, so that captions meet both; every seventh one is upright.
QImage photo(int index) {
    QRandomGenerator random(index + 1);
    const QSize size = index % 7 == 6 ? QSize(1067, 1600) : QSize(1600, 1067);
    const double light = index % 3 == 0 ? 0.35 : index % 4 == 0 ? 1.5 : 1.0;
    const auto colour = [&](int r, int g, int b) {
        return QColor(std::min(255, int(r * light)), std::min(255, int(g * light)),
                      std::min(255, int(b * light)));
    };
    QImage image(size, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const int horizon = size.height() * random.bounded(35, 65) / 100;
    QLinearGradient sky(0, 0, 0, horizon);
    sky.setColorAt(0, colour(40 + random.bounded(60), 90 + random.bounded(60), 170));
    sky.setColorAt(1, colour(200, 190 + random.bounded(40), 170));
    painter.fillRect(0, 0, size.width(), horizon, sky);
    QLinearGradient ground(0, horizon, 0, size.height());
    ground.setColorAt(0, colour(70 + random.bounded(60), 110, 50));
    ground.setColorAt(1, colour(40, 50 + random.bounded(40), 30));
    painter.fillRect(0, horizon, size.width(), size.height() - horizon, ground);
    painter.setPen(Qt::NoPen);
    for (int i = 0; i < 40; ++i) {
        const QPointF centre(random.bounded(size.width()), random.bounded(size.height()));
        const double radius = random.bounded(20, size.width() / 6);
        QRadialGradient blob(centre, radius);
        const QColor tint = colour(random.bounded(256), random.bounded(256), random.bounded(256));
        blob.setColorAt(0, tint);
        blob.setColorAt(1, QColor(tint.red(), tint.green(), tint.blue(), 0));
        painter.setBrush(blob);
        painter.drawEllipse(centre, radius, radius * random.bounded(40, 100) / 100.0);
    }
    painter.end();
    for (int y = 0; y < size.height(); ++y) {
        QRgb* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < size.width(); ++x) {
            const int grain = random.bounded(13) - 6;
            const auto add = [grain](int c) { return std::clamp(c + grain, 0, 255); };
            line[x] = qRgb(add(qRed(line[x])), add(qGreen(line[x])), add(qBlue(line[x])));
        }
    }
    return image;
}

QString caption(int index) {
    static const QStringList places = {"the harbour", "the old town", "the ridge",
                                       "the lake",    "the market",   "the dunes"};
    static const QStringList moments = {"Morning light over", "A quiet afternoon at",
                                        "Rain moving across", "Last sun on", "Fog lifting from"};
    // Some photos go without a caption, as in any real gallery.
    if (index % 10 == 9) return {};
    return moments[index % moments.size()] + " " + places[index % places.size()];
}

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const QDir folder(app.arguments().value(1));
    if (argc != 2 || !folder.mkpath(".")) qFatal("usage: lighthouse_pages FOLDER");

    QList<CatalogueRow> rows;
    for (int i = 0; i < kPhotos; ++i) {
        const QString name = QStringLiteral("photo %1.jpg").arg(i + 1, 2, 10, QLatin1Char('0'));
        const QImage image = photo(i);
        if (!image.save(folder.filePath(name), "JPEG", 80))
            qFatal("cannot write %s", qPrintable(name));
        rows.append({QFileInfo(name).completeBaseName(), name, folder.filePath(name), "JPEG",
                     QString::number(image.width()), QString::number(image.height()), caption(i),
                     "jpeg"});
    }
    GallerySettings settings{folder.absolutePath() + "/",
                             "gallery.html",
                             "Summer walks",
                             "Summer walks",
                             "Thirty photos from the coast",
                             "Black",
                             "White",
                             "White",
                             false};
    if (!saveGalleryPage(settings, QString::number(rows.size()), rows).ok)
        qFatal("cannot write the gallery page");
    settings.pageFileName = "self-contained.html";
    settings.selfContained = true;
    const QString count = QString::number(rows.size());
    if (!saveGalleryPage(settings, count, rows).ok) qFatal("cannot write the self-contained page");
    QList<CatalogueRow> uncaptioned = rows;
    for (CatalogueRow& row : uncaptioned) row.caption.clear();
    std::printf("self-contained page: %lld bytes, %lld without captions\n",
                static_cast<long long>(galleryPage(settings, count, rows).size()),
                static_cast<long long>(galleryPage(settings, count, uncaptioned).size()));
    return 0;
}
