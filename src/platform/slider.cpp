#include "platform/slider.h"

Slider::Slider(QWidget* parent) : QSlider(Qt::Horizontal, parent) {
    connect(this, &QSlider::valueChanged, this, [this] {
        if (!assigning_) emit ValueChanged();
    });
}

void Slider::setValue(int value) {
    const int before = this->value();
    assigning_ = true;
    QSlider::setValue(value);  // QSlider pins the value into its range
    assigning_ = false;
    if (value != before) emit ValueChanged();
}
