#pragma once

#include <QHash>
#include <QIconEngine>
#include <QPixmap>

#include "platform/picture.h"

// An icon drawn from one of the program's vector pictures at whatever size is asked for, so that
// a button's icon is sharp at every device pixel ratio instead of a 1x pixmap scaled up.
class PictureIconEngine : public QIconEngine {
public:
    explicit PictureIconEngine(PicturePtr picture) : picture_(std::move(picture)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override;
    // `size` is in device pixels: Qt asks for the logical size times the device pixel ratio.
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
    QIconEngine* clone() const override;

private:
    PicturePtr picture_;
    // Rendered pixmaps by size and mode, since a button repaints its icon often.
    QHash<QString, QPixmap> rendered_;
};
