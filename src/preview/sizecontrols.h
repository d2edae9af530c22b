#pragma once

#include <QObject>

class ImageCanvas;
class Preferences;
class QLineEdit;
class QRadioButton;
class Slider;

// The handlers of the main window's size controls. The field, the slider and the preferences'
// last size are three copies of the wanted preview size; the radio buttons say whether it is a
// width or a height. Every change asks the canvas for a new preview.
class SizeControls : public QObject {
    Q_OBJECT
public:
    struct Controls {
        QLineEdit* previewSizeField = nullptr;
        Slider* previewSizeSlider = nullptr;
        QRadioButton* byWidthButton = nullptr;
        QRadioButton* byHeightButton = nullptr;
        ::ImageCanvas* canvas = nullptr;
    };

    SizeControls(const Controls& controls, Preferences& preferences, QObject* parent = nullptr);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    bool commitOnReturn(int key);
    void followSizeField();
    void commitOnLeaving();
    void followSlider();
    void sizeByWidth();
    void sizeByHeight();

private:
    // Mends the field on commit: below 1 becomes "1", above 9999 becomes "9999".
    void applyClampRule();
    int fieldNumber() const;

    Controls controls_;
    Preferences& preferences_;
};
