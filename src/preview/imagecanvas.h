#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;
class QRadioButton;

// The preview of the selected image. (Being built: this is the seam the main window binds.)
class ImageCanvas : public QWidget {
    Q_OBJECT
public:
    // The main window's controls that the paint reads and writes.
    struct Controls {
        QLineEdit* resizedWidth = nullptr;
        QRadioButton* RadioButtonWidth = nullptr;
        QWidget* wRect = nullptr;
        QWidget* hRect = nullptr;
        QLabel* info = nullptr;
    };

    explicit ImageCanvas(QWidget* parent = nullptr);
    void bind(const Controls& controls);
    // Asks for a repaint at the next paint cycle.
    void Invalidate();

private:
    Controls controls_;
};
