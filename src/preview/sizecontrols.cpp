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
    controls_.resizedWidth->installEventFilter(this);
    connect(controls_.resizedWidth, &QLineEdit::textChanged, this,
            &SizeControls::resizedWidth_TextChange);
    connect(controls_.SliderSize, &Slider::ValueChanged, this,
            &SizeControls::SliderSize_ValueChanged);
    connect(controls_.RadioButtonWidth, &QRadioButton::toggled, this, [this](bool selected) {
        if (selected) RadioButtonWidth_Action();
    });
    connect(controls_.RadioButtonHeight, &QRadioButton::toggled, this, [this](bool selected) {
        if (selected) RadioButtonHeight_Action();
    });
}

bool SizeControls::eventFilter(QObject* watched, QEvent* event) {
    if (watched == controls_.resizedWidth) {
        if (event->type() == QEvent::KeyPress)
            return resizedWidth_KeyDown(static_cast<QKeyEvent*>(event)->key());
        if (event->type() == QEvent::FocusOut) resizedWidth_LostFocus();
    }
    return false;
}

bool SizeControls::resizedWidth_KeyDown(int key) {
    if (key != Qt::Key_Return && key != Qt::Key_Enter) return false;
    applyClampRule();
    controls_.canvas->Invalidate();
    controls_.SliderSize->setValue(fieldNumber());
    return false;  // every key goes on into the field
}

void SizeControls::resizedWidth_TextChange() {
    controls_.canvas->Invalidate();
    controls_.SliderSize->setValue(fieldNumber());
}

void SizeControls::resizedWidth_LostFocus() {
    applyClampRule();
    preferences_.lastSize = fieldNumber();
    // Text changes have already asked the canvas for a new preview.
    controls_.SliderSize->setValue(preferences_.lastSize);
}

void SizeControls::SliderSize_ValueChanged() {
    controls_.resizedWidth->setText(text::Str(controls_.SliderSize->value()));
    preferences_.lastSize = controls_.SliderSize->value();
}

void SizeControls::RadioButtonWidth_Action() {
    controls_.canvas->Invalidate();
}

void SizeControls::RadioButtonHeight_Action() {
    controls_.canvas->Invalidate();
}

void SizeControls::applyClampRule() {
    const double wanted = text::Val(controls_.resizedWidth->text());
    if (1.0 > wanted)
        controls_.resizedWidth->setText(QStringLiteral("1"));
    else if (wanted > 9999.0)
        controls_.resizedWidth->setText(QStringLiteral("9999"));
}

int SizeControls::fieldNumber() const {
    return text::truncateToInt(text::Val(controls_.resizedWidth->text()));
}
