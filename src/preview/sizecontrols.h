#pragma once

#include <QObject>

class ImageCanvas;
class QLineEdit;
class QRadioButton;
class Slider;

// The handlers of the five size controls of the main window. (Being built: this is the seam
// the main window creates after its controls exist.)
class SizeControls : public QObject {
    Q_OBJECT
public:
    struct Controls {
        QLineEdit* resizedWidth = nullptr;
        Slider* SliderSize = nullptr;
        QRadioButton* RadioButtonWidth = nullptr;
        QRadioButton* RadioButtonHeight = nullptr;
        ::ImageCanvas* canvas = nullptr;
    };

    SizeControls(const Controls& controls, QObject* parent = nullptr);

private:
    Controls controls_;
};
