#include "auxwindows/windowabout2.h"

#include <QEvent>

#include "auxwindows/imagewell.h"
#include "auxwindows/ui_windowabout2.h"
#include "auxwindows/windowabout.h"
#include "platform/sharedwindow.h"
#include "resources/namedpictures.h"

WindowAbout2::WindowAbout2(QWidget* parent) : DialogWindow(parent), ui(new Ui::WindowAbout2) {
    ui->setupUi(this);
    setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint |
                   Qt::WindowMinMaxButtonsHint);
    showInImageWell(ui->ImageWell1, pictures::pebble730());
    ui->ImageWell1->installEventFilter(this);
}

WindowAbout2::~WindowAbout2() = default;

void WindowAbout2::Show() {
    WindowAbout* about = existingInstance<WindowAbout>();
    if (about && about->isVisible() && parentWidget() != about) setParent(about, windowFlags());
    setWindowModality(Qt::ApplicationModal);
    show();
    raise();
    activateWindow();
}

bool WindowAbout2::eventFilter(QObject* watched, QEvent* event) {
    if (watched == ui->ImageWell1) {
        if (event->type() == QEvent::Enter)
            ImageWell1_MouseEnter();
        else if (event->type() == QEvent::MouseButtonPress)
            ImageWell1_MouseDown();
    }
    return DialogWindow::eventFilter(watched, event);
}

void WindowAbout2::ImageWell1_MouseEnter() {
    ui->ImageWell1->setCursor(Qt::PointingHandCursor);
}

void WindowAbout2::ImageWell1_MouseDown() {
    close();
}
