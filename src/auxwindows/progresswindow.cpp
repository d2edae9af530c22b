#include "auxwindows/progresswindow.h"

#include <QCloseEvent>
#include <QCoreApplication>

#include "auxwindows/imagewell.h"
#include "auxwindows/ui_progresswindow.h"
#include "platform/designfonts.h"
#include "resources/namedpictures.h"

namespace {
constexpr int kFrameMilliseconds = 16;
// How long Show waits at most for the window system to put the window on screen.
constexpr int kMapWaitMilliseconds = 250;
}  // namespace

ProgressWindow::ProgressWindow(QWidget* parent) : QWidget(parent), ui_(new Ui::ProgressWindow) {
    ui_->setupUi(this);
    useDesignFontSizes(this);
    showInImageWell(ui_->logo, pictures::pebble128());
    setAttribute(Qt::WA_DeleteOnClose);
    // The main window keeps the keyboard while the count runs.
    setAttribute(Qt::WA_ShowWithoutActivating);
}

ProgressWindow::~ProgressWindow() = default;

void ProgressWindow::showForWalk() {
    showingDrop_ = true;
    show();
    // A window is painted only once the window system has mapped it, which it reports through
    // the event loop; the walk that follows holds that loop, so wait here for the mapping,
    // serving no user input meanwhile.
    QElapsedTimer waited;
    waited.start();
    while (!testAttribute(Qt::WA_Mapped) && waited.elapsed() < kMapWaitMilliseconds)
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    refresh(Repaint::Now);
}

void ProgressWindow::hideAfterWalk() {
    showingDrop_ = false;
    hide();
}

void ProgressWindow::setCountText(const QString& text) {
    ui_->countLabel->setText(text);
}

QString ProgressWindow::countText() const {
    return ui_->countLabel->text();
}

void ProgressWindow::refresh(Repaint when) {
    if (when == Repaint::AtMostOncePerFrame && sinceRepaint_.isValid() &&
        sinceRepaint_.elapsed() < kFrameMilliseconds)
        return;
    repaint();
    sinceRepaint_.start();
}

void ProgressWindow::closeEvent(QCloseEvent* event) {
    // Closing cannot stop the walk, and it would hide the only sign of it.
    if (showingDrop_) {
        event->ignore();
        return;
    }
    QWidget::closeEvent(event);
}
