#pragma once

#include <memory>

#include "auxwindows/dialogwindow.h"

namespace Ui {
class LogoWindow;
}

// The logo alone at window size, over the about window; a click on it closes the window.
class LogoWindow : public DialogWindow {
    Q_OBJECT
public:
    explicit LogoWindow(QWidget* parent = nullptr);
    ~LogoWindow() override;

    // Application-modal, standing over the about window when that is open.
    void showOverAbout();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void pointAtLogo();
    void clickLogo();

    std::unique_ptr<Ui::LogoWindow> ui;
};
