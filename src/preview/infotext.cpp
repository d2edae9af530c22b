#include "preview/infotext.h"

#include <QFontMetrics>
#include <QLabel>
#include <algorithm>

#include "platform/text.h"

namespace infotext {

QString start() {
    return QStringLiteral(
               "To start, simply Drag and Drag  a folder of chosen images onto this window.") +
           text::Chr(13) +
           QStringLiteral("Please take note: the images have to be already resized.");
}

QString ready() {
    return QStringLiteral("Ready to create the gallery!");
}

void show(QLabel* label, const QString& text) {
    const QString lines = QString(text).replace(text::Chr(13), QStringLiteral("\n"));
    // The label has room for two lines of the Mac's system font. A wider font, such as DejaVu
    // Sans, would wrap the first line and push the second out of sight: the letters narrow
    // instead until every line fits across.
    QFont font = label->font();
    font.setStretch(QFont::Unstretched);
    const auto widest = [&] {
        int width = 0;
        for (const QString& line : lines.split(QLatin1Char('\n')))
            width = std::max(width, QFontMetrics(font).horizontalAdvance(line));
        return width;
    };
    while (font.stretch() > QFont::UltraCondensed && widest() > label->contentsRect().width())
        font.setStretch(font.stretch() - 2);
    label->setFont(font);
    label->setText(lines);
}

}  // namespace infotext
