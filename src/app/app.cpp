#include "app/app.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <exception>

#include "catalogue/filetypes.h"
#include "catalogue/stripextension.h"
#include "mainwindow/mainmenubar.h"
#include "mainwindow/windowmain.h"
#include "page/gallerywriter.h"
#include "platform/dialogs.h"
#include "platform/specialfolders.h"
#include "platform/text.h"

namespace {
// Qt wants the file type set before the application object exists, as the start order has it.
int& initialiseFileTypes(int& argc) {
    fileTypes::initialise();
    return argc;
}
}  // namespace

App::App(int& argc, char** argv) : QApplication(initialiseFileTypes(argc), argv) {
    setApplicationName(QStringLiteral("Velmora"));
    setApplicationVersion(QStringLiteral("2.1"));
    menuBar_ = new MainMenuBar(this);
    bindMenuHandlers();
    connect(this, &QCoreApplication::aboutToQuit, this, &App::Event_Close);
}

App::~App() {
    delete windowMain_;
}

WindowMain* App::windowMain() const {
    return windowMain_;
}

void App::bindMenuHandlers() {
    connect(menuBar_->Save, &QAction::triggered, this, [this] { _Save_Action(0); });
    connect(menuBar_->About, &QAction::triggered, this, &App::_About_Action);
    connect(menuBar_->Preferences, &QAction::triggered, this, &App::_Preferences_Action);
    connect(menuBar_->RestoreNames, &QAction::triggered, this, &App::_RestoreNames_Action);
    connect(menuBar_->OpenFolder, &QAction::triggered, this, &App::_OpenFolder_Action);
    connect(menuBar_->FileQuit, &QAction::triggered, this, [this] {
        if (!Event_CancelClose()) quit();
    });
}

void App::start() {
    Event_Open();
    windowMain_ = new WindowMain;
    windowMain_->Event_Open();
    windowMain_->show();
}

void App::Event_Open() {
    shortName = QFileInfo(SpecialFolder::UserHome()).fileName();
}

bool App::Event_CancelClose() {
    return false;
}

void App::Event_Close() {
    const QString leftover = QDir(SpecialFolder::Desktop()).filePath(QStringLiteral(".foo.jpg"));
    if (QFileInfo::exists(leftover)) QFile::remove(leftover);
}

bool App::_Save_Action(int) {
    // The shortcut can fire while the menu's enabling is stale: never write without rows.
    if (!windowMain_ || windowMain_->catalogue().ListCount() == 0) {
        Beep();
        return true;
    }
    saveAll();
    return true;
}

bool App::_RestoreNames_Action() {
    if (!windowMain_) return true;
    ImageCatalogue& catalogue = windowMain_->catalogue();
    const int count = catalogue.ListCount();
    if (catalogue.renameFlag() != QStringLiteral("yes")) return true;
    for (int row = 0; row < count; ++row)
        catalogue.setCell(row, 0, stripExtension(catalogue.Cell(row, 1)));
    catalogue.setRenameFlag(QStringLiteral("no"));
    return true;
}

bool App::_OpenFolder_Action() {
    // The chosen folder takes the road of a dropped one.
    const QString folder = SelectFolder();
    if (windowMain_ && !folder.isEmpty()) windowMain_->takeFolder(folder);
    return true;
}

void App::saveAll() {
    if (!windowMain_) return;
    publishGalleryPage(windowMain_->gallerySettings(), windowMain_->countText(),
                       windowMain_->catalogue().rows());
}

bool App::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception& error) {
        MsgBox("Velmora ran into an unexpected error and carried on." + text::Chr(13) +
               QString::fromLocal8Bit(error.what()));
    } catch (...) {
        MsgBox(QStringLiteral("Velmora ran into an unexpected error and carried on."));
    }
    return false;
}
