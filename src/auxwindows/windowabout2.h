#pragma once

#include "auxwindows/dialogwindow.h"
#include "auxwindows/ui_windowabout2.h"

// The logo alone at window size, over the about window; a click on it closes the window.
class WindowAbout2 : public DialogWindow, private Ui::WindowAbout2 {
    Q_OBJECT
public:
    explicit WindowAbout2(QWidget* parent = nullptr);

    // Application-modal, standing over the about window when that is open.
    void Show();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ImageWell1_MouseEnter();
    void ImageWell1_MouseDown();
};
