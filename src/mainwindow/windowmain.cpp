#include "mainwindow/windowmain.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>
#include <QLayout>
#include <QMenuBar>
#include <QMimeData>
#include <QScopedValueRollback>
#include <QScreen>
#include <QUrl>
#include <algorithm>
#include <optional>

#include "auxwindows/velmorahelp.h"
#include "auxwindows/windowprogess.h"
#include "gallery/gallery.h"
#include "mainwindow/mainmenubar.h"
#include "mainwindow/ui_windowmain.h"
#include "page/colournames.h"
#include "platform/designfonts.h"
#include "platform/desktop.h"
#include "platform/dialogs.h"
#include "platform/sharedwindow.h"
#include "platform/specialfolders.h"
#include "platform/text.h"
#include "preferences/preferences.h"
#include "preferences/windowpreferences.h"
#include "preview/imagecanvas.h"
#include "preview/infotext.h"
#include "preview/sizecontrols.h"
#include "resources/namedpictures.h"

using text::Chr;
using text::Str;

namespace {

const QString kYes = QStringLiteral("yes");
const QString kNo = QStringLiteral("no");

// The local file or folder that the first dragged item names; empty when it names none.
QString firstDraggedItem(const QMimeData* dragged) {
    const QList<QUrl> urls = dragged->urls();
    if (urls.isEmpty() || !urls.first().isLocalFile()) return {};
    const QString path = QDir::cleanPath(urls.first().toLocalFile());
    return QFileInfo::exists(path) ? path : QString();
}

// The dropped folder is only read, so the drop is taken as a copy wherever the source allows
// one: no file manager then moves anything away.
void acceptAsCopy(QDropEvent* event) {
    if (event->possibleActions() & Qt::CopyAction) {
        event->setDropAction(Qt::CopyAction);
        event->accept();
    } else {
        event->acceptProposedAction();
    }
}

}  // namespace

WindowMain::WindowMain(Gallery& gallery, Preferences& preferences, MainMenuBar& menus,
                       QWidget* parent)
    : QMainWindow(parent),
      gallery_(gallery),
      preferences_(preferences),
      menus_(menus),
      ui_(new Ui::WindowMain) {
    ui_->setupUi(this);
    ui_->ImageCanvas->bind(
        {ui_->resizedWidth, ui_->RadioButtonWidth, ui_->wRect, ui_->hRect, ui_->info},
        preferences_);
    new SizeControls({ui_->resizedWidth, ui_->SliderSize, ui_->RadioButtonWidth,
                      ui_->RadioButtonHeight, ui_->ImageCanvas},
                     preferences_, this);
    ui_->BevelButton1->setIcon(pictures::iconOf(pictures::blue()));
    ui_->BevelButton2->setIcon(pictures::iconOf(pictures::help()));
    applyDesignFonts();
    fillColourPopups();
    setUpList();
    connectHandlers();
    connectSettingFields();
    gallery_.setQuestions(this);
    installMenus();
    for (QLineEdit* field : ui_->centralwidget->findChildren<QLineEdit*>())
        field->installEventFilter(this);

    // The menu bar sits above the control area, so the window is fixed at the size of both,
    // with no full-screen button to undo that.
    layout()->setSizeConstraint(QLayout::SetFixedSize);
    setWindowFlag(Qt::WindowFullscreenButtonHint, false);
    layout()->activate();
    move(screen()->availableGeometry().center() - rect().center());
}

WindowMain::~WindowMain() {
    gallery_.setQuestions(nullptr);
}

void WindowMain::applyDesignFonts() {
    useDesignFontSizes(this);
    // The group box's larger font is for its caption only.
    for (QWidget* child : ui_->GroupBox1->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        QFont usual = child->font();
        usual.setPointSizeF(QApplication::font(child).pointSizeF());
        child->setFont(usual);
    }
}

void WindowMain::connectHandlers() {
    ImageCatalogue& images = gallery_.images();
    connect(&images, &ImageCatalogue::Change, this, &WindowMain::showSelectedImage);
    connect(&images, &ImageCatalogue::countTextChanged, ui_->imgCount, &QLabel::setText);
    connect(&images, &ImageCatalogue::renameFlagChanged, ui_->TextFieldRenamed,
            &QLineEdit::setText);
    connect(ui_->imgCaption, &QLineEdit::textChanged, this, &WindowMain::storeCaption);
    connect(ui_->clearBtn, &QPushButton::clicked, this, &WindowMain::clearList);
    connect(ui_->clearBtn1, &QPushButton::clicked, this, &WindowMain::removeSelectedImages);
    connect(ui_->BevelButton1, &QPushButton::clicked, this, &WindowMain::writePageIfListed);
    connect(ui_->BevelButton2, &QToolButton::clicked, this, &WindowMain::showHelp);
    connect(&gallery_, &Gallery::settingsChanged, this, &WindowMain::showSettings);
    connect(&gallery_, &Gallery::listUpdated, this, &WindowMain::showListProgress);
    connect(&gallery_, &Gallery::intakeStarted, this,
            [] { sharedInstance<WindowProgess>()->Show(); });
    connect(&gallery_, &Gallery::intakeFinished, this, [] {
        WindowProgess* progress = sharedInstance<WindowProgess>();
        progress->Refresh(WindowProgess::Repaint::Now);
        progress->Hide();
    });
}

void WindowMain::connectSettingFields() {
    for (QLineEdit* field : {ui_->galleryPath, ui_->galleryFileName, ui_->galleryHTMLtitle,
                             ui_->galleryTitle, ui_->gallerySubTitle})
        connect(field, &QLineEdit::textChanged, this, &WindowMain::storeSettings);
    for (QComboBox* popup : {ui_->bgColot, ui_->txtColor, ui_->capColor})
        connect(popup, &QComboBox::currentTextChanged, this, &WindowMain::storeSettings);
    connect(ui_->CheckBoxFullScreen, &QCheckBox::toggled, this, &WindowMain::storeSettings);
    storeSettings();
}

void WindowMain::storeSettings() {
    if (showingSettings_) return;
    GallerySettings settings;
    settings.galleryPath = ui_->galleryPath->text();
    settings.galleryFileName = ui_->galleryFileName->text();
    settings.galleryHTMLtitle = ui_->galleryHTMLtitle->text();
    settings.galleryTitle = ui_->galleryTitle->text();
    settings.gallerySubTitle = ui_->gallerySubTitle->text();
    settings.bgColor = ui_->bgColot->currentText();
    settings.textColor = ui_->txtColor->currentText();
    settings.captionColor = ui_->capColor->currentText();
    settings.fullPageWidth = ui_->CheckBoxFullScreen->isChecked();
    gallery_.setSettings(settings);
}

void WindowMain::showSettings() {
    const GallerySettings& settings = gallery_.settings();
    const QScopedValueRollback showing(showingSettings_, true);
    ui_->galleryPath->setText(settings.galleryPath);
    ui_->galleryFileName->setText(settings.galleryFileName);
    ui_->galleryHTMLtitle->setText(settings.galleryHTMLtitle);
    ui_->galleryTitle->setText(settings.galleryTitle);
    ui_->gallerySubTitle->setText(settings.gallerySubTitle);
    ui_->bgColot->setCurrentText(settings.bgColor);
    ui_->txtColor->setCurrentText(settings.textColor);
    ui_->capColor->setCurrentText(settings.captionColor);
    ui_->CheckBoxFullScreen->setChecked(settings.fullPageWidth);
}

void WindowMain::Event_Open() {
    // The window takes any file and any folder; whether an item is a picture is settled only
    // when it is opened.
    setAcceptDrops(true);
    ui_->resizedWidth->setText(Str(preferences_.lastSize));
    // The sheet does not hold up the rest of the opening.
    if (preferences_.openPrefs == kYes)
        sharedInstance<WindowPreferences>(preferences_)->ShowWithin(this);
    const QString userName = QFileInfo(SpecialFolder::UserHome()).fileName();
    ui_->galleryHTMLtitle->setText(userName + QStringLiteral("'s photo gallery"));
}

ImageCanvas* WindowMain::imageCanvas() const {
    return ui_->ImageCanvas;
}

void WindowMain::fillColourPopups() {
    for (QComboBox* popup : {ui_->bgColot, ui_->txtColor, ui_->capColor})
        popup->addItems(galleryColourNames());
    ui_->bgColot->setCurrentIndex(0);
    ui_->txtColor->setCurrentIndex(1);
    ui_->capColor->setCurrentIndex(1);
}

void WindowMain::installMenus() {
    MainMenuBar& menus = menus_;
    menuBar()->addMenu(menus.FileMenu);
    menuBar()->addMenu(menus.EditMenu);
    // The items kept out of the File menu still answer their shortcuts while this window is
    // active.
    addActions(menus.hiddenItems());
    connect(menus.FileMenu, &QMenu::aboutToShow, this, &WindowMain::enableMenuItems);
    // Shortcuts fire without the menu being opened, so the enabling follows every change.
    ImageCatalogue& images = gallery_.images();
    connect(&images, &QAbstractItemModel::rowsInserted, this, &WindowMain::enableMenuItems);
    connect(&images, &QAbstractItemModel::rowsRemoved, this, &WindowMain::enableMenuItems);
    connect(&images, &QAbstractItemModel::modelReset, this, &WindowMain::enableMenuItems);
    connect(&images, &ImageCatalogue::renameFlagChanged, this, &WindowMain::enableMenuItems);
    enableMenuItems();
}

void WindowMain::enableMenuItems() {
    MainMenuBar& menus = menus_;
    const ImageCatalogue& images = gallery_.images();
    menus.Save->setEnabled(images.ListCount() > 0);
    menus.Rename->setEnabled(images.ListCount() > 0);
    menus.RestoreNames->setEnabled(images.renameFlag() == kYes);
}

void WindowMain::setUpList() {
    static constexpr int kColumnWidths[ImageCatalogue::kVisibleColumns] = {210, 210, 520,
                                                                           130, 60,  60};
    ui_->Listbox1->setModel(&gallery_.images());
    ui_->Listbox1->setSelectionModel(gallery_.images().selectionModel());
    for (int column = 0; column < ImageCatalogue::kVisibleColumns; ++column)
        ui_->Listbox1->setColumnWidth(column, kColumnWidths[column]);
}

void WindowMain::showSelectedImage() {
    const ImageCatalogue& images = gallery_.images();
    const int row = images.ListIndex();
    if (row < 0) return;
    ui_->ImageCanvas->showImage(images.Cell(row, 2));
    ui_->imgCaption->setText(images.Cell(row, CatalogueRow::kCaptionCell));
}

void WindowMain::storeCaption(const QString& text) {
    // Without a selected row no row takes the text.
    ImageCatalogue& images = gallery_.images();
    images.setCell(images.ListIndex(), CatalogueRow::kCaptionCell, text);
}

void WindowMain::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasUrls())
        acceptAsCopy(event);
    else
        event->ignore();
}

void WindowMain::dragMoveEvent(QDragMoveEvent* event) {
    if (event->mimeData()->hasUrls())
        acceptAsCopy(event);
    else
        event->ignore();
}

void WindowMain::dropEvent(QDropEvent* event) {
    acceptAsCopy(event);
    takeDrop(event->mimeData());
}

bool WindowMain::eventFilter(QObject* watched, QEvent* event) {
    // Files dragged over a text field are meant for the window, not for the field's text: left
    // unaccepted there, the drag goes on to the window.
    if (event->type() == QEvent::DragEnter && qobject_cast<QLineEdit*>(watched))
        return static_cast<QDragEnterEvent*>(event)->mimeData()->hasUrls();
    return QMainWindow::eventFilter(watched, event);
}

void WindowMain::takeDrop(const QMimeData* dragged) {
    gallery_.openFolder(firstDraggedItem(dragged));
}

bool WindowMain::restorePage(const QString& pageFileName) {
    const QString question = QStringLiteral("This folder already has the gallery page \"") +
                             pageFileName +
                             QStringLiteral("\". Restore its captions, order and settings?");
    return platform::askYesOrNo(question);
}

bool WindowMain::replaceOtherPage(const QString& pageFileName) {
    return platform::askYesOrNo(pageFileName +
                                " already exists and was not written by Velmora. Replace it?");
}

void WindowMain::imagesMissing(const QStringList& fileNames) {
    static constexpr int kNamesShown = 10;
    platform::tell(
        Str(fileNames.size()) + QStringLiteral(" images of the page are no longer in the folder.") +
        Chr(13) +
        fileNames.first(std::min<qsizetype>(fileNames.size(), kNamesShown)).join(Chr(13)));
}

void WindowMain::showListProgress() {
    // Written also while the progress window is hidden, as after a removal.
    if (WindowProgess* progress = existingInstance<WindowProgess>()) {
        progress->setProgressInfoText(gallery_.images().progressText());
        progress->Refresh(WindowProgess::Repaint::AtMostOncePerFrame);
    }
}

void WindowMain::clearList() {
    if (gallery_.images().ListCount() == 0) {
        platform::beep();
        return;
    }
    if (!platform::askYesOrNo(QStringLiteral("Clear\n\nAre you sure to clear the image's list?")))
        return;
    gallery_.clear();
    infotext::show(ui_->info, infotext::start());
    ui_->ImageCanvas->showImage({});
}

void WindowMain::removeSelectedImages() {
    if (gallery_.images().ListIndex() == -1) {
        platform::beep();
        return;
    }
    const int selected = gallery_.images().SelCount();
    const QString question =
        selected == 1 ? QStringLiteral(
                            "Remove image/s\n\nAre you sure to remove from the list the "
                            "selected image?")
                      : QStringLiteral(
                            "Clear\n\nAre you sure to remove the %1 selected images from the "
                            "list?")
                            .arg(selected);
    if (!platform::askYesOrNo(question)) return;
    gallery_.removeSelectedImages();
    // After the selection the removal made: the preview shows no image until the user selects
    // one.
    ui_->ImageCanvas->showImage({});
}

void WindowMain::writePage() {
    const PageWriteResult result = gallery_.writePage();
    if (result.ok)
        Launch(result.path);
    else if (!result.error.isEmpty())
        platform::tell("The gallery page could not be written." + Chr(13) + result.error);
}

void WindowMain::writePageIfListed() {
    if (gallery_.images().ListIndex() >= 0) {
        writePage();
        return;
    }
    platform::beep();
    platform::tell(
        QStringLiteral("Oooops...") + Chr(13) +
        QStringLiteral("In order to create the page with the galley, you must first add the "
                       "folder with the images you have carefully chosen."));
}

void WindowMain::showHelp() {
    sharedInstance<VelmoraHelp>()->ShowWithin(this);
}

void WindowMain::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    // Only the user resizes the window; the sizes the program gives it are no resize.
    if (!event->spontaneous()) return;
    Event_Resizing();
    Event_Resized();
}

void WindowMain::Event_Resizing() {
    // The size of the area below the menu bar, where the controls are.
    preferences_.mainWinWidth = width();
    preferences_.mainWinHeight = height() - ui_->centralwidget->y();
}

void WindowMain::Event_Resized() {
    if (ui_->ImageCanvas->picture() == pictures::hubble())
        infotext::show(ui_->info, infotext::start());
}

void WindowMain::closeEvent(QCloseEvent* event) {
    // Closing is never refused, and nothing is kept: closing the window ends the program.
    event->accept();
    QCoreApplication::quit();
}
