#pragma once

#include <memory>

#include "auxwindows/dialogwindow.h"

namespace Ui {
class WindowAbout2;
}

// The logo alone at window size, over the about window; a click on it closes the window.
class WindowAbout2 : public DialogWindow {
    Q_OBJECT
public:
    explicit WindowAbout2(QWidget* parent = nullptr);
    ~WindowAbout2() override;

    // Application-modal, standing over the about window when that is open.
    void Show();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ImageWell1_MouseEnter();
    void ImageWell1_MouseDown();

    std::unique_ptr<Ui::WindowAbout2> ui;
};
