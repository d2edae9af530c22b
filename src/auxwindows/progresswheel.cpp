#include "auxwindows/progresswheel.h"

#include <QPainter>
#include <QtMath>

namespace {
constexpr int kSpokes = 12;
constexpr int kMillisecondsPerSpoke = 80;
}  // namespace

ProgressWheel::ProgressWheel(QWidget* parent) : QWidget(parent) {
    running_.start();
}

void ProgressWheel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal radius = qMin(width(), height()) / 2.0;
    painter.translate(width() / 2.0, height() / 2.0);
    const int bright = int(running_.elapsed() / kMillisecondsPerSpoke % kSpokes);
    QColor colour = palette().color(QPalette::WindowText);
    for (int spoke = 0; spoke < kSpokes; ++spoke) {
        // The spokes behind the bright one fade, as a trail.
        const int behind = (bright - spoke + kSpokes) % kSpokes;
        colour.setAlphaF(1.0 - 0.8 * behind / (kSpokes - 1));
        painter.setPen(QPen(colour, radius / 4, Qt::SolidLine, Qt::RoundCap));
        const qreal angle = qDegreesToRadians(spoke * 360.0 / kSpokes - 90);
        const QPointF direction(qCos(angle), qSin(angle));
        painter.drawLine(direction * radius * 0.45, direction * radius * 0.85);
    }
}
