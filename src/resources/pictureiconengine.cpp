#include "resources/pictureiconengine.h"

#include <QApplication>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>

void PictureIconEngine::paint(QPainter* painter, const QRect& rect, QIcon::Mode mode,
                              QIcon::State state) {
    const qreal ratio = painter->device()->devicePixelRatioF();
    painter->drawPixmap(rect, pixmap((QSizeF(rect.size()) * ratio).toSize(), mode, state));
}

QPixmap PictureIconEngine::pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) {
    const QString key = QStringLiteral("%1x%2/%3").arg(size.width()).arg(size.height()).arg(mode);
    if (const auto found = rendered_.constFind(key); found != rendered_.cend()) return *found;

    // Centred in the square asked for, at the picture's own proportions.
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    if (picture_ && !size.isEmpty()) {
        const QSize fitted = picture_->size().scaled(size, Qt::KeepAspectRatio);
        QPainter(&pixmap).drawImage(QRect(QPoint((size.width() - fitted.width()) / 2,
                                                 (size.height() - fitted.height()) / 2),
                                          fitted),
                                    picture_->decode(fitted));
    }
    if (mode != QIcon::Normal) {
        QStyleOption option;
        pixmap = QApplication::style()->generatedIconPixmap(mode, pixmap, &option);
    }
    rendered_.insert(key, pixmap);
    return pixmap;
}

QIconEngine* PictureIconEngine::clone() const {
    return new PictureIconEngine(picture_);
}
