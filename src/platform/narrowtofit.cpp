#include "platform/narrowtofit.h"

#include <QFontMetrics>
#include <QLabel>
#include <algorithm>

void narrowToFit(QLabel* label) {
    const QStringList lines = label->text().split(QLatin1Char('\n'));
    QFont font = label->font();
    font.setStretch(QFont::Unstretched);
    const auto widest = [&] {
        int width = 0;
        // Measured as the label lays the line out, slant and overhang included.
        for (const QString& line : lines)
            width = std::max(width, QFontMetrics(font).size(0, line).width());
        return width;
    };
    const int room = label->contentsRect().width();
    while (font.stretch() > QFont::UltraCondensed && widest() > room)
        font.setStretch(font.stretch() - 2);
    label->setFont(font);
}
