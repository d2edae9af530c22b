#pragma once

#include <memory>

#include "auxwindows/dialogwindow.h"

namespace Ui {
class AboutWindow;
}

// What the program is, its version, the maker's web site and the donation button. A click on
// the logo shows it large in LogoWindow.
class AboutWindow : public DialogWindow {
    Q_OBJECT
public:
    explicit AboutWindow(QWidget* parent = nullptr);
    ~AboutWindow() override;

    // Application-modal, over `over` (the main window) when given.
    void showOver(QWidget* over = nullptr);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void closeWindow();
    void pointAtLogo();
    void leaveLogo();
    void clickLogo();
    void pointAtDonateButton();
    void leaveDonateButton();
    void donate();
    void pointAtSiteLink();
    void leaveSiteLink();
    void openSite();

    std::unique_ptr<Ui::AboutWindow> ui;
};
