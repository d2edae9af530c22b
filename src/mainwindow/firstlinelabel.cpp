#include "mainwindow/firstlinelabel.h"

#include <QPainter>
#include <QStyle>

void FirstLineLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    drawFrame(&painter);
    const QString firstLine = text().section(QLatin1Char('\n'), 0, 0);
    style()->drawItemText(&painter, contentsRect(),
                          QStyle::visualAlignment(layoutDirection(), alignment()), palette(),
                          isEnabled(), firstLine, foregroundRole());
}
