#include "auxwindows/logowindow.h"

#include <QEvent>

#include "auxwindows/aboutwindow.h"
#include "auxwindows/imagewell.h"
#include "auxwindows/ui_logowindow.h"
#include "platform/sharedwindow.h"
#include "resources/namedpictures.h"

LogoWindow::LogoWindow(QWidget* parent) : DialogWindow(parent), ui(new Ui::LogoWindow) {
    ui->setupUi(this);
    setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint |
                   Qt::WindowMinMaxButtonsHint);
    showInImageWell(ui->logo, pictures::pebble730());
    ui->logo->installEventFilter(this);
}

LogoWindow::~LogoWindow() = default;

void LogoWindow::showOverAbout() {
    AboutWindow* about = existingInstance<AboutWindow>();
    if (about && about->isVisible() && parentWidget() != about) setParent(about, windowFlags());
    setWindowModality(Qt::ApplicationModal);
    show();
    raise();
    activateWindow();
}

bool LogoWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == ui->logo) {
        if (event->type() == QEvent::Enter)
            pointAtLogo();
        else if (event->type() == QEvent::MouseButtonPress)
            clickLogo();
    }
    return DialogWindow::eventFilter(watched, event);
}

void LogoWindow::pointAtLogo() {
    ui->logo->setCursor(Qt::PointingHandCursor);
}

void LogoWindow::clickLogo() {
    close();
}
