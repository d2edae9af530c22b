#include "app/app.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFileOpenEvent>
#include <QIcon>
#include <QLayout>
#include <QTimer>
#include <exception>
#include <iostream>

#include "app/identity.h"
#include "auxwindows/aboutwindow.h"
#include "mainwindow/mainmenubar.h"
#include "mainwindow/mainwindow.h"
#include "platform/dialogs.h"
#include "platform/nativename.h"
#include "platform/sharedwindow.h"
#include "platform/specialfolders.h"
#include "platform/text.h"
#include "preferences/preferencefile.h"
#include "preferences/preferenceswindow.h"
#include "resources/namedpictures.h"

namespace {

// The window's size is the size of its control area: where the menu bar lives inside the
// window, the window is taller by the menu bar's height.
void setControlAreaSize(MainWindow* window, QSize size) {
    QSize chrome(0, 0);
    if (QWidget* area = window->centralWidget()) {
        window->layout()->activate();
        chrome = window->size() - area->size();
    }
    // Qt bounds a widget's size to QWIDGETSIZE_MAX anyway; bounding first keeps the sum from
    // overflowing for the huge numbers a damaged file may hold.
    window->resize(size.boundedTo(QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX)) + chrome);
}

}  // namespace

App::App(int& argc, char** argv) : QApplication(argc, argv) {
    setApplicationName(QStringLiteral("Velmora"));
    setApplicationVersion(QStringLiteral(VELMORA_VERSION));
    // Task bars and Wayland find the desktop entry, and with it the icon, by this name.
    setDesktopFileName(QStringLiteral(VELMORA_APPLICATION_ID));
    setWindowIcon(pictures::iconOf(pictures::pebble512()));
    menuBar_ = new MainMenuBar(this);
    connectMenuItems();
    connect(this, &QCoreApplication::aboutToQuit, this, &App::removeDesktopLeftover);
}

App::~App() {
    delete mainWindow_;
}

MainWindow* App::mainWindow() const {
    return mainWindow_;
}

void App::connectMenuItems() {
    connect(menuBar_->writePageItem, &QAction::triggered, this, &App::writePage);
    connect(menuBar_->aboutItem, &QAction::triggered, this, &App::showAbout);
    connect(menuBar_->preferencesItem, &QAction::triggered, this, &App::showPreferences);
    connect(menuBar_->restoreNamesItem, &QAction::triggered, &gallery_,
            &Gallery::restoreOriginalNames);
    connect(menuBar_->openFolderItem, &QAction::triggered, this, &App::openChosenFolder);
    // Quitting asks nothing: the gallery keeps its unwritten work by itself.
    connect(menuBar_->quitItem, &QAction::triggered, this, &QCoreApplication::quit);
}

void App::start() {
    mainWindow_ = new MainWindow(gallery_, preferences_, *menuBar_);
    mainWindow_->fillFromPreferences();
    mainWindow_->show();
    // Once the window is up, as for a folder; a folder handed over at the start brings its own
    // kept work, and the question would be of another.
    QTimer::singleShot(0, this, [this] {
        if (mainWindow_ && !folderHandedOver_) gallery_.offerKeptWork();
    });
}

void App::openFolder(const QString& path) {
    if (!nativeName::isFolder(path)) {
        std::cerr << "velmora: cannot open \"" << nativeName::toBytes(path).constData()
                  << "\": not an existing folder" << std::endl;
        return;
    }
    // Queued, so that the window is up before the walk, as it is for a drop. The page is written
    // into the gallery folder, so it must not depend on the working folder. Made absolute as text,
    // since QDir would lose the bytes of a name that is not UTF-8.
    const QString folder = QDir::cleanPath(QDir::current().absoluteFilePath(path));
    folderHandedOver_ = true;
    QTimer::singleShot(0, this, [this, folder] {
        if (mainWindow_) gallery_.openFolder(folder);
    });
}

bool App::event(QEvent* event) {
    if (event->type() != QEvent::FileOpen) return QApplication::event(event);
    openFolder(static_cast<QFileOpenEvent*>(event)->file());
    return true;
}

void App::removeDesktopLeftover() {
    // Where no Desktop folder is set up, the home folder stands in for it, and a file of the
    // user's there is none of ours.
    const QString desktop = QFileInfo(SpecialFolder::Desktop()).canonicalFilePath();
    if (desktop.isEmpty() || desktop == QFileInfo(SpecialFolder::UserHome()).canonicalFilePath())
        return;
    const QString leftover = QDir(desktop).filePath(QStringLiteral(".foo.jpg"));
    if (QFileInfo::exists(leftover)) QFile::remove(leftover);
}

void App::writePage() {
    // The shortcut can fire while the menu's enabling is stale: never write without rows.
    if (!mainWindow_ || gallery_.images().imageCount() == 0) {
        platform::beep();
        return;
    }
    mainWindow_->writePage();
}

void App::openChosenFolder() {
    // The chosen folder takes the road of a dropped one.
    const QString folder = platform::chooseFolder();
    if (mainWindow_ && !folder.isEmpty()) gallery_.openFolder(folder);
}

bool App::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception& error) {
        platform::tell(QStringLiteral("Velmora ran into an unexpected error and carried on.\r") +
                       QString::fromLocal8Bit(error.what()));
    } catch (...) {
        platform::tell(QStringLiteral("Velmora ran into an unexpected error and carried on."));
    }
    return false;
}

void App::loadPreferences() {
    const std::optional<SavedPreferences> saved = readPreferenceFile();
    if (!saved) {
        preferences_.previewSize = 720;
        preferences_.imageQuality = 80;
        preferences_.imageFormat = QStringLiteral("PNG");
        preferences_.savePath = QStringLiteral("Desktop");
        preferences_.openAtStart = true;
        sharedInstance<AboutWindow>()->showOver(mainWindow());
        return;
    }
    preferences_.previewSize = saved->previewSize;
    preferences_.imageQuality = saved->imageQuality;
    preferences_.imageFormat = saved->imageFormat;
    preferences_.savePath = saved->savePath;
    preferences_.openAtStart = saved->openPrefs == QStringLiteral("yes");
    if (MainWindow* window = mainWindow()) setControlAreaSize(window, saved->windowSize);
}

void App::savePreferences() {
    writePreferenceFile(preferences_, {preferences_.windowWidth, preferences_.windowHeight});
}

void App::showAbout() {
    sharedInstance<AboutWindow>()->showOver(mainWindow());
}

void App::showPreferences() {
    sharedInstance<PreferencesWindow>(preferences_)->showAsSheetOver(mainWindow());
}
