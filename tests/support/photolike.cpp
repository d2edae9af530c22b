#include "support/photolike.h"

#include <QEvent>
#include <QPainter>
#include <QRandomGenerator>
#include <algorithm>

QImage photoLike(QSize size, quint32 seed) {
    QRandomGenerator random(seed);
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        QRgb* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < size.width(); ++x) {
            const int noise = random.bounded(96);
            line[x] = qRgb((x * 200 / size.width() + noise) & 255,
                           (y * 200 / size.height() + noise) & 255,
                           ((x + y) * 120 / (size.width() + size.height()) + 2 * noise) & 255);
        }
    }
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    for (int i = 0; i < 300; ++i) {
        painter.setBrush(QColor::fromRgb(random.generate()));
        painter.setPen(QPen(QColor::fromRgb(random.generate()), random.bounded(1, 12)));
        const QRect shape(random.bounded(size.width()), random.bounded(size.height()),
                          random.bounded(std::max(1, size.width() / 6)),
                          random.bounded(std::max(1, size.height() / 6)));
        if (i % 2)
            painter.drawEllipse(shape);
        else
            painter.drawRect(shape);
    }
    return image;
}

double median(QList<double> values) {
    std::sort(values.begin(), values.end());
    return values.isEmpty() ? 0.0 : values[values.size() / 2];
}

bool PaintCounter::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::Paint) ++paints;
    return false;
}
