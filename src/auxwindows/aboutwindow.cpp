#include "auxwindows/aboutwindow.h"

#include <QEvent>

#include "auxwindows/imagewell.h"
#include "auxwindows/logowindow.h"
#include "auxwindows/owner.h"
#include "auxwindows/ui_aboutwindow.h"
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

AboutWindow::AboutWindow(QWidget* parent) : DialogWindow(parent), ui(new Ui::AboutWindow) {
    ui->setupUi(this);
    useDesignFontSizes(this);
    setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    showInImageWell(ui->logo, pictures::pebble512());
    ui->donateButton->setIcon(pictures::iconOf(pictures::paypal()));
    ui->versionLabel->setText(QStringLiteral("v.") + QCoreApplication::applicationVersion() +
                              QStringLiteral(" - ") + owner::maker +
                              QStringLiteral(" - December 2020"));
    ui->siteLink->setText(owner::webAddress);
    ui->dedicationLabel->setText(owner::dedication + QStringLiteral("\n"));
    for (QLabel* label : findChildren<QLabel*>())
        setTextColor(label, label->palette().color(QPalette::WindowText));

    connect(ui->closeButton, &QPushButton::clicked, this, &AboutWindow::closeWindow);
    connect(ui->donateButton, &QPushButton::clicked, this, &AboutWindow::donate);
    ui->logo->installEventFilter(this);
    ui->donateButton->installEventFilter(this);
    ui->siteLink->installEventFilter(this);
}

AboutWindow::~AboutWindow() = default;

void AboutWindow::showOver(QWidget* over) {
    if (!parentWidget() && over) setParent(over, windowFlags());
    setWindowModality(Qt::ApplicationModal);
    show();
    raise();
    activateWindow();
}

bool AboutWindow::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::Enter:
            if (watched == ui->logo) pointAtLogo();
            if (watched == ui->donateButton) pointAtDonateButton();
            if (watched == ui->siteLink) pointAtSiteLink();
            break;
        case QEvent::Leave:
            if (watched == ui->logo) leaveLogo();
            if (watched == ui->donateButton) leaveDonateButton();
            if (watched == ui->siteLink) leaveSiteLink();
            break;
        case QEvent::MouseButtonPress:
            if (watched == ui->logo) clickLogo();
            if (watched == ui->siteLink) openSite();
            break;
        default:
            break;
    }
    // The control still gets the event, so that a press on the button makes its click.
    return DialogWindow::eventFilter(watched, event);
}

void AboutWindow::closeWindow() {
    close();
}

void AboutWindow::pointAtLogo() {
    ui->logo->setCursor(pictures::magnifyLarger(ui->logo->devicePixelRatioF()));
}

void AboutWindow::leaveLogo() {
    ui->logo->setCursor(Qt::ArrowCursor);
}

void AboutWindow::clickLogo() {
    sharedInstance<LogoWindow>()->showOverAbout();
}

void AboutWindow::pointAtDonateButton() {
    ui->donateButton->setCursor(Qt::DragCopyCursor);
}

void AboutWindow::leaveDonateButton() {
    ui->donateButton->setCursor(Qt::ArrowCursor);
}

void AboutWindow::donate() {
    // Out of the way of the browser, and back as it was at the next opening.
    hide();
    platform::openAddress(QStringLiteral("http://") + owner::donationHost +
                          QStringLiteral("/paypal.php?app=Velmora"));
}

void AboutWindow::pointAtSiteLink() {
    ui->siteLink->setCursor(Qt::PointingHandCursor);
    setTextColor(ui->siteLink, QColor(255, 0, 0));
}

void AboutWindow::leaveSiteLink() {
    setTextColor(ui->siteLink, QColor(0, 0, 255));
    ui->siteLink->setCursor(Qt::ArrowCursor);
}

void AboutWindow::openSite() {
    // The address opened is the one shown.
    platform::openAddress(ui->siteLink->text());
}
