#include "auxwindows/windowprogess.h"

#include <QCloseEvent>
#include <QCoreApplication>

#include "auxwindows/imagewell.h"
#include "auxwindows/ui_windowprogess.h"
#include "platform/designfonts.h"
#include "resources/namedpictures.h"

namespace {
constexpr int kFrameMilliseconds = 16;
// How long Show waits at most for the window system to put the window on screen.
constexpr int kMapWaitMilliseconds = 250;
}  // namespace

WindowProgess::WindowProgess(QWidget* parent) : QWidget(parent), ui_(new Ui::WindowProgess) {
    ui_->setupUi(this);
    useDesignFontSizes(this);
    showInImageWell(ui_->ImageWell1, pictures::pebble128());
    setAttribute(Qt::WA_DeleteOnClose);
    // The main window keeps the keyboard while the count runs.
    setAttribute(Qt::WA_ShowWithoutActivating);
}

WindowProgess::~WindowProgess() = default;

void WindowProgess::Show() {
    showingDrop_ = true;
    show();
    // A window is painted only once the window system has mapped it, which it reports through
    // the event loop; the walk that follows holds that loop, so wait here for the mapping,
    // serving no user input meanwhile.
    QElapsedTimer waited;
    waited.start();
    while (!testAttribute(Qt::WA_Mapped) && waited.elapsed() < kMapWaitMilliseconds)
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    Refresh(Repaint::Now);
}

void WindowProgess::Hide() {
    showingDrop_ = false;
    hide();
}

void WindowProgess::setProgressInfoText(const QString& text) {
    ui_->progressInfoText->setText(text);
}

QString WindowProgess::progressInfoText() const {
    return ui_->progressInfoText->text();
}

void WindowProgess::Refresh(Repaint when) {
    if (when == Repaint::AtMostOncePerFrame && sinceRepaint_.isValid() &&
        sinceRepaint_.elapsed() < kFrameMilliseconds)
        return;
    repaint();
    sinceRepaint_.start();
}

void WindowProgess::closeEvent(QCloseEvent* event) {
    // Closing cannot stop the walk, and it would hide the only sign of it.
    if (showingDrop_) {
        event->ignore();
        return;
    }
    QWidget::closeEvent(event);
}
