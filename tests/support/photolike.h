#pragma once

#include <QImage>
#include <QObject>

// A picture with noise over gradients and shapes, so that an encoder and a decoder have real
// detail to deal with, as in a photo. The same seed gives the same picture.
QImage photoLike(QSize size, quint32 seed);

// Counts the paints of the widgets it is installed on.
struct PaintCounter : QObject {
    int paints = 0;
    bool eventFilter(QObject*, QEvent* event) override {
        paints += event->type() == QEvent::Paint;
        return false;
    }
};
