#pragma once

#include <QApplication>
#include <QPointer>
#include <QString>

#include "gallery/gallery.h"
#include "preferences/preferences.h"

class MainMenuBar;
class MainWindow;

// The one application object: it starts the program, holds the state that more than one
// window needs, answers the menu items that no window owns, and tidies up at the end.
class App : public QApplication {
    Q_OBJECT
public:
    App(int& argc, char** argv);
    ~App() override;

    static App* instance() { return static_cast<App*>(QCoreApplication::instance()); }

    // The rest of the start: the main window, which fills its fields, and then the offer of the
    // work kept last, unless a folder is handed over first.
    void start();
    // Takes `path` the road of a dropped folder once the main window is open. Anything but an
    // existing folder is refused with a word on standard error, and the list stays as it is.
    void openFolder(const QString& path);

    // What the menu items no window owns do, and the tidying at the end.
    void writePage();
    void showAbout();
    void showPreferences();
    void openChosenFolder();
    void removeDesktopLeftover();

    void savePreferences();
    void loadPreferences();

    // The gallery that the main window shows.
    Gallery& gallery() { return gallery_; }
    Preferences& preferences() { return preferences_; }

    MainMenuBar& menuBar() { return *menuBar_; }
    // The main window; nullptr before start() and after it closed.
    MainWindow* mainWindow() const;

    // An exception that reaches the event loop is shown to the user, and the program goes on.
    bool notify(QObject* receiver, QEvent* event) override;

protected:
    // A folder dropped on the Dock icon or opened with the program arrives as a file open event.
    bool event(QEvent* event) override;

private:
    void connectMenuItems();

    Gallery gallery_;
    Preferences preferences_;
    MainMenuBar* menuBar_ = nullptr;
    QPointer<MainWindow> mainWindow_;
    bool folderHandedOver_ = false;
};
