#include "auxwindows/windowabout2.h"

#include <QEvent>

#include "auxwindows/imagewell.h"
#include "auxwindows/windowabout.h"
#include "platform/sharedwindow.h"
#include "resources/namedpictures.h"

WindowAbout2::WindowAbout2(QWidget* parent) : DialogWindow(parent) {
    setupUi(this);
    setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint |
                   Qt::WindowMinMaxButtonsHint);
    showInImageWell(ImageWell1, pictures::pebble730());
    ImageWell1->installEventFilter(this);
}

void WindowAbout2::Show() {
    WindowAbout* about = existingInstance<WindowAbout>();
    if (about && about->isVisible() && parentWidget() != about) setParent(about, windowFlags());
    setWindowModality(Qt::ApplicationModal);
    show();
    raise();
    activateWindow();
}

bool WindowAbout2::eventFilter(QObject* watched, QEvent* event) {
    if (watched == ImageWell1) {
        if (event->type() == QEvent::Enter)
            ImageWell1_MouseEnter();
        else if (event->type() == QEvent::MouseButtonPress)
            ImageWell1_MouseDown();
    }
    return DialogWindow::eventFilter(watched, event);
}

void WindowAbout2::ImageWell1_MouseEnter() {
    ImageWell1->setCursor(Qt::PointingHandCursor);
}

void WindowAbout2::ImageWell1_MouseDown() {
    close();
}
