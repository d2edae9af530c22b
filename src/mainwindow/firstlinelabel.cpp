#include "mainwindow/firstlinelabel.h"

#include <QPainter>
#include <QStyle>

void FirstLineLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    drawFrame(&painter);
    style()->drawItemText(&painter, contentsRect(),
                          QStyle::visualAlignment(layoutDirection(), alignment()), palette(),
                          isEnabled(), firstLine(), foregroundRole());
}

QSize FirstLineLabel::sizeHint() const {
    const QMargins frame = contentsMargins();
    return fontMetrics().boundingRect(QRect(), int(alignment()), firstLine()).size() +
           QSize(frame.left() + frame.right(), frame.top() + frame.bottom());
}

QString FirstLineLabel::firstLine() const {
    return text().section(QLatin1Char('\n'), 0, 0);
}
