#include "mainwindow/windowmain.h"

#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>
#include <QLayout>
#include <QMenuBar>
#include <QMimeData>
#include <QScreen>
#include <QUrl>
#include <algorithm>
#include <optional>

#include "app/app.h"
#include "auxwindows/velmorahelp.h"
#include "auxwindows/windowprogess.h"
#include "catalogue/filetypes.h"
#include "catalogue/folderitems.h"
#include "catalogue/stripextension.h"
#include "mainwindow/colournames.h"
#include "mainwindow/mainmenubar.h"
#include "mainwindow/pagerestore.h"
#include "mainwindow/ui_windowmain.h"
#include "platform/designfonts.h"
#include "platform/dialogs.h"
#include "platform/sharedwindow.h"
#include "platform/text.h"
#include "preferences/windowpreferences.h"
#include "preview/imagecanvas.h"
#include "preview/infotext.h"
#include "preview/sizecontrols.h"
#include "resources/namedpictures.h"

using text::Chr;
using text::EndOfLine;
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

WindowMain::WindowMain(QWidget* parent) : QMainWindow(parent), ui_(new Ui::WindowMain) {
    ui_->setupUi(this);
    ui_->ImageCanvas->bind(
        {ui_->resizedWidth, ui_->RadioButtonWidth, ui_->wRect, ui_->hRect, ui_->info});
    new SizeControls({ui_->resizedWidth, ui_->SliderSize, ui_->RadioButtonWidth,
                      ui_->RadioButtonHeight, ui_->ImageCanvas},
                     this);
    ui_->BevelButton1->setIcon(pictures::iconOf(pictures::blue()));
    ui_->BevelButton2->setIcon(pictures::iconOf(pictures::help()));
    applyDesignFonts();
    fillColourPopups();
    Listbox1_Open();
    connectHandlers();
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

WindowMain::~WindowMain() = default;

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
    connect(&catalogue_, &ImageCatalogue::Change, this, &WindowMain::Listbox1_Change);
    connect(&catalogue_, &ImageCatalogue::countTextChanged, ui_->imgCount, &QLabel::setText);
    connect(&catalogue_, &ImageCatalogue::renameFlagChanged, ui_->TextFieldRenamed,
            &QLineEdit::setText);
    connect(ui_->imgCaption, &QLineEdit::textChanged, this, &WindowMain::imgCaption_TextChange);
    connect(ui_->clearBtn, &QPushButton::clicked, this, &WindowMain::clearBtn_Action);
    connect(ui_->clearBtn1, &QPushButton::clicked, this, &WindowMain::clearBtn1_Action);
    connect(ui_->BevelButton1, &QPushButton::clicked, this, &WindowMain::BevelButton1_Action);
    connect(ui_->BevelButton2, &QToolButton::clicked, this, &WindowMain::BevelButton2_Action);
}

void WindowMain::Event_Open() {
    App* app = App::instance();
    // The window takes any file and any folder; whether an item is a picture is settled only
    // when it is opened.
    setAcceptDrops(true);
    ui_->resizedWidth->setText(Str(app->lastSize));
    // The sheet does not hold up the rest of the opening.
    if (app->openPrefs == kYes) sharedInstance<WindowPreferences>()->ShowWithin(this);
    ui_->galleryHTMLtitle->setText(app->shortName + QStringLiteral("'s photo gallery"));
}

GallerySettings WindowMain::gallerySettings() const {
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
    return settings;
}

QString WindowMain::countText() const {
    return catalogue_.countText();
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
    MainMenuBar& menus = App::instance()->menuBar();
    menuBar()->addMenu(menus.FileMenu);
    menuBar()->addMenu(menus.EditMenu);
    // The items kept out of the File menu still answer their shortcuts while this window is
    // active.
    addActions(menus.hiddenItems());
    connect(menus.FileMenu, &QMenu::aboutToShow, this, &WindowMain::Event_EnableMenuItems);
    // Shortcuts fire without the menu being opened, so the enabling follows every change.
    connect(&catalogue_, &QAbstractItemModel::rowsInserted, this,
            &WindowMain::Event_EnableMenuItems);
    connect(&catalogue_, &QAbstractItemModel::rowsRemoved, this,
            &WindowMain::Event_EnableMenuItems);
    connect(&catalogue_, &QAbstractItemModel::modelReset, this, &WindowMain::Event_EnableMenuItems);
    connect(&catalogue_, &ImageCatalogue::renameFlagChanged, this,
            &WindowMain::Event_EnableMenuItems);
    Event_EnableMenuItems();
}

void WindowMain::Event_EnableMenuItems() {
    MainMenuBar& menus = App::instance()->menuBar();
    const int count = catalogue_.ListCount();
    menus.Save->setEnabled(count > 0);
    menus.Rename->setEnabled(count > 0);
    menus.RestoreNames->setEnabled(catalogue_.renameFlag() == kYes);
}

void WindowMain::Listbox1_Open() {
    static constexpr int kColumnWidths[ImageCatalogue::kVisibleColumns] = {210, 210, 520,
                                                                           130, 60,  60};
    ui_->Listbox1->setModel(&catalogue_);
    ui_->Listbox1->setSelectionModel(catalogue_.selectionModel());
    for (int column = 0; column < ImageCatalogue::kVisibleColumns; ++column)
        ui_->Listbox1->setColumnWidth(column, kColumnWidths[column]);
}

void WindowMain::Listbox1_Change() {
    const int row = catalogue_.ListIndex();
    if (row < 0) return;
    App* app = App::instance();
    app->opf = catalogue_.Cell(row, 2);
    // A row that intake has just added was opened a moment ago: reading the file's header again
    // would double the file reads of the walk.
    const bool justOpened = intakePicture_ && intakePicture_->path() == app->opf;
    app->op = justOpened ? intakePicture_ : Picture::open(app->opf);
    ui_->imgCaption->setText(catalogue_.Cell(row, CatalogueRow::kCaptionCell));
    ui_->ImageCanvas->Invalidate();
}

void WindowMain::imgCaption_TextChange(const QString& text) {
    // Without a selected row no row takes the text.
    catalogue_.setCell(catalogue_.ListIndex(), CatalogueRow::kCaptionCell, text);
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
    Event_DropObject(event->mimeData());
}

bool WindowMain::eventFilter(QObject* watched, QEvent* event) {
    // Files dragged over a text field are meant for the window, not for the field's text: left
    // unaccepted there, the drag goes on to the window.
    if (event->type() == QEvent::DragEnter && qobject_cast<QLineEdit*>(watched))
        return static_cast<QDragEnterEvent*>(event)->mimeData()->hasUrls();
    return QMainWindow::eventFilter(watched, event);
}

void WindowMain::Event_DropObject(const QMimeData* dragged) {
    takeFolder(firstDraggedItem(dragged));
}

void WindowMain::takeFolder(const QString& item) {
    const bool emptyList = catalogue_.ListCount() == 0;
    // A gallery page stands for its folder, and handing it over already says what to do.
    std::optional<GalleryPageFile> page = readGalleryPageFile(item);
    const QString folder = page ? QFileInfo(item).absolutePath() : item;
    WindowProgess* progress = sharedInstance<WindowProgess>();
    progress->Show();
    if (!folder.isEmpty()) older(folder);
    progress->Hide();
    // Rows already in the list are another gallery in the making: the folder only adds to them.
    if (!emptyList || folder.isEmpty()) return;
    if (!page) {
        page = newestGalleryPageIn(folder);
        if (!page) return;
        const QString question = QStringLiteral("This folder already has the gallery page \"") +
                                 QFileInfo(page->path).fileName() +
                                 QStringLiteral("\". Restore its captions, order and settings?");
        if (MsgBox(question, 36, QString()) != kAnswerYes) return;
    }
    reopenGallery(*page);
}

void WindowMain::reopenGallery(const GalleryPageFile& found) {
    const QStringList missing = arrangeAsPage(catalogue_, found.page.slides);
    takePageSettings(found.page.settings);
    ui_->galleryFileName->setText(QFileInfo(found.path).fileName());
    catalogue_.setListIndex(0);
    if (missing.isEmpty()) return;
    static constexpr int kNamesShown = 10;
    MsgBox(Str(missing.size()) +
           QStringLiteral(" images of the page are no longer in the folder.") + Chr(13) +
           missing.first(std::min<qsizetype>(missing.size(), kNamesShown)).join(Chr(13)));
}

void WindowMain::takePageSettings(const GallerySettings& settings) {
    ui_->galleryHTMLtitle->setText(settings.galleryHTMLtitle);
    ui_->galleryTitle->setText(settings.galleryTitle);
    ui_->gallerySubTitle->setText(settings.gallerySubTitle);
    // A colour the popups do not list (the page was edited by hand) leaves the popup as it is.
    const std::pair<QComboBox*, QString> colours[] = {{ui_->bgColot, settings.bgColor},
                                                      {ui_->txtColor, settings.textColor},
                                                      {ui_->capColor, settings.captionColor}};
    for (const auto& [popup, colour] : colours)
        if (const int row = popup->findText(colour, Qt::MatchFixedString); row >= 0)
            popup->setCurrentIndex(row);
    ui_->CheckBoxFullScreen->setChecked(settings.fullPageWidth);
}

void WindowMain::older(const QString& folder) {
    const QDir dir(folder);
    for (const QString& name : folderItemsByName(folder)) {
        const QFileInfo item(dir.filePath(name));
        intakePicture_ = Picture::open(item.filePath());
        if (intakePicture_) {
            catalogue_.AddRow(stripExtension(name));
            const int row = catalogue_.LastIndex();
            catalogue_.setCell(row, 1, name);
            catalogue_.setCell(row, 2, QDir::toNativeSeparators(item.absoluteFilePath()));
            catalogue_.setCell(row, 3, fileTypes::typeOfExtension(item.suffix()));
            catalogue_.setCell(row, 4, Str(intakePicture_->width()));
            catalogue_.setCell(row, 5, Str(intakePicture_->height()));
        }
        updateTheList();
        intakePicture_.reset();
    }
    if (WindowProgess* progress = existingInstance<WindowProgess>())
        progress->Refresh(WindowProgess::Repaint::Now);
    catalogue_.setListIndex(0);
    ui_->galleryPath->setText(QDir::toNativeSeparators(folder) + QStringLiteral("/"));
}

void WindowMain::updateTheList() {
    catalogue_.updateTheList();
    // Written also while the progress window is hidden, as after a removal.
    if (WindowProgess* progress = existingInstance<WindowProgess>()) {
        progress->setProgressInfoText(catalogue_.progressText());
        progress->Refresh(WindowProgess::Repaint::AtMostOncePerFrame);
    }
}

void WindowMain::clearBtn_Action() {
    if (catalogue_.ListCount() == 0) {
        Beep();
        return;
    }
    if (MsgBox(QStringLiteral("Clear") + EndOfLine + EndOfLine +
                   QStringLiteral("Are you sure to clear the image's list?"),
               36, QString()) != kAnswerYes)
        return;
    catalogue_.DeleteAllRows();
    catalogue_.setCountText(QStringLiteral("Empty list"));
    infotext::show(ui_->info, infotext::start());
    App::instance()->opf.clear();
    ui_->ImageCanvas->Invalidate();
    catalogue_.setRenameFlag(kNo);
}

void WindowMain::clearBtn1_Action() {
    if (catalogue_.ListIndex() == -1) {
        Beep();
        return;
    }
    const int selected = catalogue_.SelCount();
    const int count = catalogue_.ListCount();
    const QString question =
        selected == 1
            ? QStringLiteral("Remove image/s") + EndOfLine + EndOfLine +
                  QStringLiteral("Are you sure to remove from the list the selected image?")
            : QStringLiteral("Clear") + EndOfLine + EndOfLine +
                  QStringLiteral("Are you sure to remove the ") + Str(selected) +
                  QStringLiteral(" selected images from the list?");
    if (MsgBox(question, 36, QString()) != kAnswerYes) return;
    // Backward, so that the rows still to be looked at keep their indexes.
    for (int row = count - 1; row >= 0; --row)
        if (catalogue_.Selected(row)) catalogue_.RemoveRow(row);
    updateTheList();
    // After the selection above: the preview shows no image until the user selects one.
    App::instance()->opf.clear();
    ui_->ImageCanvas->Invalidate();
    catalogue_.setRenameFlag(kNo);
}

void WindowMain::BevelButton1_Action() {
    if (catalogue_.ListIndex() >= 0) {
        App::instance()->saveAll();
        return;
    }
    Beep();
    MsgBox(QStringLiteral("Oooops...") + Chr(13) +
           QStringLiteral("In order to create the page with the galley, you must first add the "
                          "folder with the images you have carefully chosen."));
}

void WindowMain::BevelButton2_Action() {
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
    App::instance()->mainWinWidth = width();
    App::instance()->mainWinHeight = height() - ui_->centralwidget->y();
}

void WindowMain::Event_Resized() {
    if (App::instance()->op == pictures::hubble()) infotext::show(ui_->info, infotext::start());
}

void WindowMain::closeEvent(QCloseEvent* event) {
    // Closing is never refused, and nothing is kept: closing the window ends the program.
    event->accept();
    QCoreApplication::quit();
}
