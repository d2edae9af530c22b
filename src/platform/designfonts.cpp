#include "platform/designfonts.h"

#include <QWidget>

void useDesignFontSizes(QWidget* window) {
    for (QWidget* widget : window->findChildren<QWidget*>()) {
        QFont font = widget->font();
        // A child that inherits a converted size reads -1 here and is left alone.
        if (!(font.resolveMask() & QFont::SizeResolved) || font.pointSize() <= 0) continue;
        font.setPixelSize(font.pointSize());
        widget->setFont(font);
    }
}
