#pragma once

#include <memory>

#include "auxwindows/dialogwindow.h"

namespace Ui {
class WindowAbout;
}

// What the program is, its version, the maker's web site and the donation button. A click on
// the logo shows it large in WindowAbout2.
class WindowAbout : public DialogWindow {
    Q_OBJECT
public:
    explicit WindowAbout(QWidget* parent = nullptr);
    ~WindowAbout() override;

    // Application-modal, over `over` (the main window) when given.
    void Show(QWidget* over = nullptr);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void PushButtonClose_Action();
    void ImageWell1_MouseEnter();
    void ImageWell1_MouseExit();
    void ImageWell1_MouseDown();
    void BevelButton1_MouseEnter();
    void BevelButton1_MouseExit();
    void BevelButton1_Action();
    void Label4_MouseEnter();
    void Label4_MouseExit();
    void Label4_MouseDown();

    std::unique_ptr<Ui::WindowAbout> ui;
};
