#include "preview/sizecontrols.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QRadioButton>

#include "platform/slider.h"
#include "platform/text.h"
#include "preferences/preferences.h"
#include "preview/imagecanvas.h"

SizeControls::SizeControls(const Controls& controls, Preferences& preferences, QObject* parent)
    : QObject(parent), controls_(controls), preferences_(preferences) {
    controls_.previewSizeField->installEventFilter(this);
    connect(controls_.previewSizeField, &QLineEdit::textChanged, this,
            &SizeControls::followSizeField);
    connect(controls_.previewSizeSlider, &Slider::ValueChanged, this, &SizeControls::followSlider);
    connect(controls_.byWidthButton, &QRadioButton::toggled, this, [this](bool selected) {
        if (selected) sizeByWidth();
    });
    connect(controls_.byHeightButton, &QRadioButton::toggled, this, [this](bool selected) {
        if (selected) sizeByHeight();
    });
}

bool SizeControls::eventFilter(QObject* watched, QEvent* event) {
    if (watched == controls_.previewSizeField) {
        if (event->type() == QEvent::KeyPress)
            return commitOnReturn(static_cast<QKeyEvent*>(event)->key());
        if (event->type() == QEvent::FocusOut) commitOnLeaving();
    }
    return false;
}

bool SizeControls::commitOnReturn(int key) {
    if (key != Qt::Key_Return && key != Qt::Key_Enter) return false;
    applyClampRule();
    controls_.canvas->Invalidate();
    controls_.previewSizeSlider->setValue(fieldNumber());
    return false;  // every key goes on into the field
}

void SizeControls::followSizeField() {
    controls_.canvas->Invalidate();
    controls_.previewSizeSlider->setValue(fieldNumber());
}

void SizeControls::commitOnLeaving() {
    applyClampRule();
    preferences_.previewSize = fieldNumber();
    // Text changes have already asked the canvas for a new preview.
    controls_.previewSizeSlider->setValue(preferences_.previewSize);
}

void SizeControls::followSlider() {
    controls_.previewSizeField->setText(QString::number(controls_.previewSizeSlider->value()));
    preferences_.previewSize = controls_.previewSizeSlider->value();
}

void SizeControls::sizeByWidth() {
    controls_.canvas->Invalidate();
}

void SizeControls::sizeByHeight() {
    controls_.canvas->Invalidate();
}

void SizeControls::applyClampRule() {
    const double wanted = text::leadingNumber(controls_.previewSizeField->text());
    if (1.0 > wanted)
        controls_.previewSizeField->setText(QStringLiteral("1"));
    else if (wanted > 9999.0)
        controls_.previewSizeField->setText(QStringLiteral("9999"));
}

int SizeControls::fieldNumber() const {
    return text::truncateToInt(text::leadingNumber(controls_.previewSizeField->text()));
}
