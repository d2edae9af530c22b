#include "auxwindows/windowabout.h"

#include <QEvent>

#include "auxwindows/imagewell.h"
#include "auxwindows/owner.h"
#include "auxwindows/ui_windowabout.h"
#include "auxwindows/windowabout2.h"
#include "platform/designfonts.h"
#include "platform/desktop.h"
#include "platform/readablecolour.h"
#include "platform/sharedwindow.h"
#include "resources/namedpictures.h"

namespace {
// The design's colours hold on a light window; on a dark one they are lightened to stay readable.
void setTextColor(QLabel* label, const QColor& colour) {
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, readableOn(colour, palette.color(QPalette::Window)));
    label->setPalette(palette);
}
}  // namespace

WindowAbout::WindowAbout(QWidget* parent) : DialogWindow(parent), ui(new Ui::WindowAbout) {
    ui->setupUi(this);
    useDesignFontSizes(this);
    setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    showInImageWell(ui->ImageWell1, pictures::pebble512());
    ui->BevelButton1->setIcon(pictures::iconOf(pictures::paypal()));
    ui->Label3->setText(QStringLiteral("v.") + QCoreApplication::applicationVersion() +
                        QStringLiteral(" - ") + owner::maker + QStringLiteral(" - December 2020"));
    ui->Label4->setText(owner::webAddress);
    ui->AboutDescription3->setText(owner::dedication + QStringLiteral("\n"));
    for (QLabel* label : findChildren<QLabel*>())
        setTextColor(label, label->palette().color(QPalette::WindowText));

    connect(ui->PushButtonClose, &QPushButton::clicked, this, &WindowAbout::PushButtonClose_Action);
    connect(ui->BevelButton1, &QPushButton::clicked, this, &WindowAbout::BevelButton1_Action);
    ui->ImageWell1->installEventFilter(this);
    ui->BevelButton1->installEventFilter(this);
    ui->Label4->installEventFilter(this);
}

WindowAbout::~WindowAbout() = default;

void WindowAbout::Show(QWidget* over) {
    if (!parentWidget() && over) setParent(over, windowFlags());
    setWindowModality(Qt::ApplicationModal);
    show();
    raise();
    activateWindow();
}

bool WindowAbout::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::Enter:
            if (watched == ui->ImageWell1) ImageWell1_MouseEnter();
            if (watched == ui->BevelButton1) BevelButton1_MouseEnter();
            if (watched == ui->Label4) Label4_MouseEnter();
            break;
        case QEvent::Leave:
            if (watched == ui->ImageWell1) ImageWell1_MouseExit();
            if (watched == ui->BevelButton1) BevelButton1_MouseExit();
            if (watched == ui->Label4) Label4_MouseExit();
            break;
        case QEvent::MouseButtonPress:
            if (watched == ui->ImageWell1) ImageWell1_MouseDown();
            if (watched == ui->Label4) Label4_MouseDown();
            break;
        default:
            break;
    }
    // The control still gets the event, so that a press on the button makes its click.
    return DialogWindow::eventFilter(watched, event);
}

void WindowAbout::PushButtonClose_Action() {
    close();
}

void WindowAbout::ImageWell1_MouseEnter() {
    ui->ImageWell1->setCursor(pictures::magnifyLarger(ui->ImageWell1->devicePixelRatioF()));
}

void WindowAbout::ImageWell1_MouseExit() {
    ui->ImageWell1->setCursor(Qt::ArrowCursor);
}

void WindowAbout::ImageWell1_MouseDown() {
    sharedInstance<WindowAbout2>()->Show();
}

void WindowAbout::BevelButton1_MouseEnter() {
    ui->BevelButton1->setCursor(Qt::DragCopyCursor);
}

void WindowAbout::BevelButton1_MouseExit() {
    ui->BevelButton1->setCursor(Qt::ArrowCursor);
}

void WindowAbout::BevelButton1_Action() {
    // Out of the way of the browser, and back as it was at the next opening.
    hide();
    ShowURL(QStringLiteral("http://") + owner::donationHost +
            QStringLiteral("/paypal.php?app=Velmora"));
}

void WindowAbout::Label4_MouseEnter() {
    ui->Label4->setCursor(Qt::PointingHandCursor);
    setTextColor(ui->Label4, QColor(255, 0, 0));
}

void WindowAbout::Label4_MouseExit() {
    setTextColor(ui->Label4, QColor(0, 0, 255));
    ui->Label4->setCursor(Qt::ArrowCursor);
}

void WindowAbout::Label4_MouseDown() {
    // The address opened is the one shown.
    ShowURL(ui->Label4->text());
}
