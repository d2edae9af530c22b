#include "preview/infotext.h"

#include <QLabel>

#include "platform/narrowtofit.h"
#include "platform/text.h"

namespace infotext {

QString start() {
    return QStringLiteral(
        "To start, simply Drag and Drag  a folder of chosen images onto this window.\r"
        "Please take note: the images have to be already resized.");
}

QString ready() {
    return QStringLiteral("Ready to create the gallery!");
}

QString tooLarge(QSize size) {
    return QStringLiteral("This image is too large to preview (%1 × %2 pixels).")
        .arg(size.width())
        .arg(size.height());
}

void show(QLabel* label, const QString& text) {
    label->setText(QString(text).replace(u'\r', u'\n'));
    // The label has room for two rows: the first line must not wrap and push the second out.
    narrowToFit(label);
}

}  // namespace infotext
