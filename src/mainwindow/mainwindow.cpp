#include "mainwindow/mainwindow.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLayout>
#include <QMenuBar>
#include <QMimeData>
#include <QScopedValueRollback>
#include <QScreen>
#include <QUrl>
#include <algorithm>
#include <optional>

#include "auxwindows/helpwindow.h"
#include "auxwindows/progresswindow.h"
#include "gallery/gallery.h"
#include "mainwindow/mainmenubar.h"
#include "mainwindow/ui_mainwindow.h"
#include "page/colournames.h"
#include "platform/designfonts.h"
#include "platform/desktop.h"
#include "platform/dialogs.h"
#include "platform/nativename.h"
#include "platform/sharedwindow.h"
#include "platform/text.h"
#include "preferences/preferences.h"
#include "preferences/preferenceswindow.h"
#include "preview/imagecanvas.h"
#include "preview/infotext.h"
#include "preview/sizecontrols.h"
#include "resources/namedpictures.h"

namespace {

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

// The first names of a long list, as a person reads them, and how many more there are.
QString someOf(const QStringList& names, const QString& separator) {
    static constexpr int kNamesShown = 10;
    QString shown = nativeName::shown(
        names.first(std::min<qsizetype>(names.size(), kNamesShown)).join(separator));
    if (names.size() > kNamesShown)
        shown += separator + QStringLiteral("and %1 more").arg(names.size() - kNamesShown);
    return shown;
}

}  // namespace

MainWindow::MainWindow(Gallery& gallery, Preferences& preferences, MainMenuBar& menus,
                       QWidget* parent)
    : QMainWindow(parent),
      gallery_(gallery),
      preferences_(preferences),
      menus_(menus),
      ui_(new Ui::MainWindow) {
    ui_->setupUi(this);
    ui_->imageCanvas->bind({ui_->previewSizeField, ui_->byWidthButton, ui_->widthGuide,
                            ui_->heightGuide, ui_->infoLabel},
                           preferences_);
    new SizeControls({ui_->previewSizeField, ui_->previewSizeSlider, ui_->byWidthButton,
                      ui_->byHeightButton, ui_->imageCanvas},
                     preferences_, this);
    ui_->writePageButton->setIcon(pictures::iconOf(pictures::blue()));
    ui_->helpButton->setIcon(pictures::iconOf(pictures::help()));
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

MainWindow::~MainWindow() {
    gallery_.setQuestions(nullptr);
}

void MainWindow::applyDesignFonts() {
    useDesignFontSizes(this);
    // The group box's larger font is for its caption only.
    for (QWidget* child : ui_->settingsGroup->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        QFont usual = child->font();
        usual.setPointSizeF(QApplication::font(child).pointSizeF());
        child->setFont(usual);
    }
}

void MainWindow::connectHandlers() {
    ImageCatalogue& images = gallery_.images();
    connect(&images, &ImageCatalogue::selectionChanged, this, &MainWindow::showSelectedImage);
    connect(&images, &ImageCatalogue::countTextChanged, ui_->imageCountLabel, &QLabel::setText);
    connect(&images, &ImageCatalogue::renamedChanged, ui_->renameFlagField, [this](bool renamed) {
        ui_->renameFlagField->setText(renamed ? QStringLiteral("yes") : QStringLiteral("no"));
    });
    connect(ui_->captionField, &QLineEdit::textChanged, this, &MainWindow::storeCaption);
    connect(ui_->clearListButton, &QPushButton::clicked, this, &MainWindow::clearList);
    connect(ui_->removeImagesButton, &QPushButton::clicked, this,
            &MainWindow::removeSelectedImages);
    connect(ui_->writePageButton, &QPushButton::clicked, this, &MainWindow::writePageIfListed);
    connect(ui_->helpButton, &QToolButton::clicked, this, &MainWindow::showHelp);
    connect(&gallery_, &Gallery::settingsChanged, this, &MainWindow::showSettings);
    connect(&gallery_, &Gallery::listUpdated, this, &MainWindow::showListProgress);
    connect(&gallery_, &Gallery::cleared, this, [this] {
        infotext::show(ui_->infoLabel, infotext::start());
        ui_->imageCanvas->showImage({});
    });
    connect(&gallery_, &Gallery::intakeStarted, this, [this] {
        walking_ = true;
        sharedInstance<ProgressWindow>()->showForWalk();
    });
    connect(&gallery_, &Gallery::intakeFinished, this, [this] {
        ProgressWindow* progress = sharedInstance<ProgressWindow>();
        progress->refresh(ProgressWindow::Repaint::Now);
        progress->hideAfterWalk();
        walking_ = false;
        showSelectedImage();
    });
}

void MainWindow::connectSettingFields() {
    for (QLineEdit* field : {ui_->folderField, ui_->pageFileNameField, ui_->headTitleField,
                             ui_->titleField, ui_->subtitleField})
        connect(field, &QLineEdit::textChanged, this, &MainWindow::storeSettings);
    for (QComboBox* popup : {ui_->backgroundColourBox, ui_->titleColourBox, ui_->captionColourBox})
        connect(popup, &QComboBox::currentTextChanged, this, &MainWindow::storeSettings);
    for (QCheckBox* box : {ui_->fullWidthCheckBox, ui_->selfContainedCheckBox})
        connect(box, &QCheckBox::toggled, this, &MainWindow::storeSettings);
    showSettings();
}

void MainWindow::storeSettings() {
    if (showingSettings_) return;
    GallerySettings settings;
    settings.folder = ui_->folderField->text();
    settings.pageFileName = ui_->pageFileNameField->text();
    settings.headTitle = ui_->headTitleField->text();
    settings.title = ui_->titleField->text();
    settings.subtitle = ui_->subtitleField->text();
    settings.backgroundColour = ui_->backgroundColourBox->currentText();
    settings.titleColour = ui_->titleColourBox->currentText();
    settings.captionColour = ui_->captionColourBox->currentText();
    settings.fullWidth = ui_->fullWidthCheckBox->isChecked();
    settings.selfContained = ui_->selfContainedCheckBox->isChecked();
    gallery_.setSettings(settings);
}

void MainWindow::showSettings() {
    const GallerySettings& settings = gallery_.settings();
    const QScopedValueRollback showing(showingSettings_, true);
    // Until a folder comes in, the field asks for one.
    if (!settings.folder.isEmpty()) ui_->folderField->setText(settings.folder);
    ui_->pageFileNameField->setText(settings.pageFileName);
    ui_->headTitleField->setText(settings.headTitle);
    ui_->titleField->setText(settings.title);
    ui_->subtitleField->setText(settings.subtitle);
    ui_->backgroundColourBox->setCurrentText(settings.backgroundColour);
    ui_->titleColourBox->setCurrentText(settings.titleColour);
    ui_->captionColourBox->setCurrentText(settings.captionColour);
    ui_->fullWidthCheckBox->setChecked(settings.fullWidth);
    ui_->selfContainedCheckBox->setChecked(settings.selfContained);
}

void MainWindow::fillFromPreferences() {
    // The window takes any file and any folder; whether an item is a picture is settled only
    // when it is opened.
    setAcceptDrops(true);
    ui_->previewSizeField->setText(QString::number(preferences_.previewSize));
    // The sheet does not hold up the rest of the opening.
    if (preferences_.openAtStart)
        sharedInstance<PreferencesWindow>(preferences_)->showAsSheetOver(this);
}

ImageCanvas* MainWindow::imageCanvas() const {
    return ui_->imageCanvas;
}

void MainWindow::fillColourPopups() {
    for (QComboBox* popup : {ui_->backgroundColourBox, ui_->titleColourBox, ui_->captionColourBox})
        popup->addItems(galleryColourNames());
}

void MainWindow::installMenus() {
    MainMenuBar& menus = menus_;
    menuBar()->addMenu(menus.fileMenu);
    menuBar()->addMenu(menus.editMenu);
    // The items kept out of the File menu still answer their shortcuts while this window is
    // active.
    addActions(menus.hiddenItems());
    connect(menus.fileMenu, &QMenu::aboutToShow, this, &MainWindow::enableMenuItems);
    // Shortcuts fire without the menu being opened, so the enabling follows every change.
    ImageCatalogue& images = gallery_.images();
    connect(&images, &QAbstractItemModel::rowsInserted, this, &MainWindow::enableMenuItems);
    connect(&images, &QAbstractItemModel::rowsRemoved, this, &MainWindow::enableMenuItems);
    connect(&images, &QAbstractItemModel::modelReset, this, &MainWindow::enableMenuItems);
    connect(&images, &ImageCatalogue::renamedChanged, this, &MainWindow::enableMenuItems);
    enableMenuItems();
}

void MainWindow::enableMenuItems() {
    MainMenuBar& menus = menus_;
    const ImageCatalogue& images = gallery_.images();
    menus.writePageItem->setEnabled(images.imageCount() > 0);
    menus.renameItem->setEnabled(images.imageCount() > 0);
    menus.restoreNamesItem->setEnabled(images.renamed());
}

void MainWindow::setUpList() {
    static constexpr int kColumnWidths[ImageCatalogue::kVisibleColumns] = {210, 210, 520,
                                                                           130, 60,  60};
    ui_->imageList->setModel(&gallery_.images());
    ui_->imageList->setSelectionModel(gallery_.images().selectionModel());
    for (int column = 0; column < ImageCatalogue::kVisibleColumns; ++column)
        ui_->imageList->setColumnWidth(column, kColumnWidths[column]);
}

void MainWindow::showSelectedImage() {
    const ImageCatalogue& images = gallery_.images();
    const int row = images.selectedRow();
    if (row < 0 || walking_) return;
    QStringList neighbours;
    // The next row first: a walk through the list goes down more often than up.
    for (const int next : {row + 1, row - 1})
        if (next >= 0 && next < images.imageCount())
            neighbours << images.cell(next, CatalogueRow::Path);
    ui_->imageCanvas->showImage(images.cell(row, CatalogueRow::Path), neighbours);
    ui_->captionField->setText(images.cell(row, CatalogueRow::Caption));
}

void MainWindow::storeCaption(const QString& text) {
    // Without a selected row no row takes the text.
    ImageCatalogue& images = gallery_.images();
    images.setCell(images.selectedRow(), CatalogueRow::Caption, text);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasUrls())
        acceptAsCopy(event);
    else
        event->ignore();
}

void MainWindow::dragMoveEvent(QDragMoveEvent* event) {
    if (event->mimeData()->hasUrls())
        acceptAsCopy(event);
    else
        event->ignore();
}

void MainWindow::dropEvent(QDropEvent* event) {
    acceptAsCopy(event);
    takeDrop(event->mimeData());
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    // Files dragged over a text field are meant for the window, not for the field's text: left
    // unaccepted there, the drag goes on to the window.
    if (event->type() == QEvent::DragEnter && qobject_cast<QLineEdit*>(watched))
        return static_cast<QDragEnterEvent*>(event)->mimeData()->hasUrls();
    return stepThroughCaptions(watched, event) || QMainWindow::eventFilter(watched, event);
}

bool MainWindow::stepThroughCaptions(QObject* watched, QEvent* event) {
    if (watched != ui_->captionField || event->type() != QEvent::KeyPress) return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    const int step = key->key() == Qt::Key_Down ? 1 : key->key() == Qt::Key_Up ? -1 : 0;
    // Arrow keys come with the keypad modifier on some systems.
    if (step == 0 || (key->modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) return false;
    ImageCatalogue& images = gallery_.images();
    if (images.imageCount() > 0)
        images.selectRow(std::clamp(images.selectedRow() + step, 0, images.imageCount() - 1));
    return true;
}

void MainWindow::takeDrop(const QMimeData* dragged) {
    gallery_.openFolder(firstDraggedItem(dragged));
}

bool MainWindow::restorePage(const QString& pageFileName) {
    const QString question = QStringLiteral("This folder already has the gallery page \"") +
                             pageFileName +
                             QStringLiteral("\". Restore its captions, order and settings?");
    return platform::askYesOrNo(question);
}

bool MainWindow::replaceOtherPage(const QString& pageFileName) {
    return platform::askYesOrNo(pageFileName +
                                " already exists and was not written by Velmora. Replace it?");
}

void MainWindow::imagesMissing(const QStringList& fileNames) {
    platform::tell(QString::number(fileNames.size()) +
                   QStringLiteral(" images of the page are no longer in the folder.\r") +
                   someOf(fileNames, QStringLiteral("\r")));
}

bool MainWindow::startNewGallery(const QString& folder) {
    return platform::askChoice(
        QStringLiteral(
            "The list holds the gallery of the folder \"%1\".\r\rStart a new gallery from "
            "\"%2\", or add its images to this one? Its page could not show images "
            "from elsewhere.")
            .arg(nativeName::shown(QDir::cleanPath(gallery_.settings().folder)),
                 nativeName::shown(folder)),
        QStringLiteral("Start a new gallery"), QStringLiteral("Add its images"));
}

bool MainWindow::bringBackWork(const QString& folder, int images, int captions) {
    return platform::askYesOrNo(
        QStringLiteral("Velmora kept the work on the gallery of \"%1\" that no page holds yet: "
                       "%2 images, %3 of them captioned, with the page's settings.\r\rBring it "
                       "back? If not, it is discarded.")
            .arg(nativeName::shown(folder))
            .arg(images)
            .arg(captions));
}

bool MainWindow::takeOutImagesElsewhere(const QStringList& paths) {
    return platform::askChoice(
        QStringLiteral("%1 images are not in the gallery's folder, so the page could not show "
                       "them:\r%2\r\rTake them out of the list and write the page without them?")
            .arg(paths.size())
            .arg(someOf(paths, QStringLiteral("\r"))),
        QStringLiteral("Take them out and write"), QStringLiteral("Don't write"));
}

bool MainWindow::writeUnshownImages(const QStringList& fileNames) {
    return platform::askChoice(QStringLiteral("%1 images will not show in web browsers: %2")
                                       .arg(fileNames.size())
                                       .arg(someOf(fileNames, QStringLiteral(", "))) +
                                   QStringLiteral("\r\rWrite the page anyway?"),
                               QStringLiteral("Write anyway"), QStringLiteral("Don't write"));
}

bool MainWindow::replaceVelmoraPage(const QString& pageFileName) {
    return platform::askChoice(
        QStringLiteral("\"%1\" is the page of a gallery that was not reopened here: writing "
                       "replaces it, and its captions are lost.\r\rReplace it?")
            .arg(nativeName::shown(pageFileName)),
        QStringLiteral("Replace"), QStringLiteral("Don't write"));
}

void MainWindow::showListProgress() {
    // Written also while the progress window is hidden, as after a removal.
    if (ProgressWindow* progress = existingInstance<ProgressWindow>()) {
        progress->setCountText(gallery_.images().progressText());
        progress->refresh(ProgressWindow::Repaint::AtMostOncePerFrame);
    }
}

void MainWindow::clearList() {
    if (gallery_.images().imageCount() == 0) {
        platform::beep();
        return;
    }
    if (!platform::askYesOrNo(QStringLiteral("Clear\n\nAre you sure to clear the image's list?")))
        return;
    gallery_.clear();
}

void MainWindow::removeSelectedImages() {
    if (gallery_.images().selectedRow() == -1) {
        platform::beep();
        return;
    }
    const int selected = gallery_.images().selectedCount();
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
    ui_->imageCanvas->showImage({});
}

void MainWindow::writePage() {
    const PageWriteResult result = gallery_.writePage();
    if (result.ok && !platform::openFile(result.path))
        platform::tell(
            QStringLiteral("The gallery page was written, but no web browser could be started to "
                           "show it. It is here:\r") +
            nativeName::shown(QDir::toNativeSeparators(result.path)));
    else if (!result.ok && !result.error.isEmpty())
        platform::tell(QStringLiteral("The gallery page could not be written.\r") + result.error);
}

void MainWindow::writePageIfListed() {
    if (gallery_.images().selectedRow() >= 0) {
        writePage();
        return;
    }
    platform::beep();
    platform::tell(QStringLiteral(
        "Oooops...\rIn order to create the page with the galley, you must first add the "
        "folder with the images you have carefully chosen."));
}

void MainWindow::showHelp() {
    sharedInstance<HelpWindow>()->showAsSheetOver(this);
}

void MainWindow::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    // Only the user resizes the window; the sizes the program gives it are no resize.
    if (!event->spontaneous()) return;
    rememberControlAreaSize();
    showStartTextWithoutImage();
}

void MainWindow::rememberControlAreaSize() {
    // The size of the area below the menu bar, where the controls are.
    preferences_.windowWidth = width();
    preferences_.windowHeight = height() - ui_->centralwidget->y();
}

void MainWindow::showStartTextWithoutImage() {
    if (ui_->imageCanvas->picture() == pictures::placeholder())
        infotext::show(ui_->infoLabel, infotext::start());
}

void MainWindow::closeEvent(QCloseEvent* event) {
    // Closing is never refused and asks nothing (the gallery keeps its unwritten work): closing
    // the window ends the program.
    event->accept();
    QCoreApplication::quit();
}
