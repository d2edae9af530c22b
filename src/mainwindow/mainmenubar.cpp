#include "mainwindow/mainmenubar.h"

#include "mainwindow/edititems.h"

namespace {

QAction* item(QObject* owner, const char* name, const QString& text, const QKeySequence& shortcut,
              QAction::MenuRole role = QAction::NoRole) {
    auto* action = new QAction(text, owner);
    action->setObjectName(QString::fromLatin1(name));
    action->setShortcut(shortcut);
    // Only the three items meant for the application menu may move there on macOS.
    action->setMenuRole(role);
    return action;
}

QAction* separator(QObject* owner, const char* name) {
    auto* action = new QAction(owner);
    action->setObjectName(QString::fromLatin1(name));
    action->setSeparator(true);
    return action;
}

}  // namespace

MainMenuBar::MainMenuBar(QObject* parent) : QObject(parent) {
    Untitled0();
    Untitled1();
}

MainMenuBar::~MainMenuBar() {
    delete FileMenu;
    delete EditMenu;
}

void MainMenuBar::Untitled0() {
    FileMenu = new QMenu(QStringLiteral("&File"));
    FileMenu->setObjectName(QStringLiteral("FileMenu"));
    OpenFolder = item(this, "OpenFolder", QStringLiteral("Open Folder..."), QKeySequence::Open);
    About = item(this, "About", QStringLiteral("About Velmora"), {}, QAction::AboutRole);
    Rename = item(this, "Rename", QStringLiteral("Rename All images..."),
                  QKeySequence(Qt::CTRL | Qt::Key_R));
    RestoreNames = item(this, "RestoreNames", QStringLiteral("Restore original file names..."),
                        QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_R));
    Preferences = item(this, "Preferences", QStringLiteral("Preferences..."),
                       QKeySequence(Qt::CTRL | Qt::Key_K), QAction::PreferencesRole);
    Save = item(this, "Save", QStringLiteral("Write the gallery page"),
                QKeySequence(Qt::CTRL | Qt::Key_S));
    FileQuit = item(this, "FileQuit", QStringLiteral("&Quit"), QKeySequence(Qt::CTRL | Qt::Key_Q),
                    QAction::QuitRole);
    FileMenu->addAction(OpenFolder);
    FileMenu->addAction(About);
    FileMenu->addAction(Save);
    FileMenu->addAction(FileQuit);
}

void MainMenuBar::Untitled1() {
    EditMenu = new QMenu(QStringLiteral("&Edit"));
    EditMenu->setObjectName(QStringLiteral("EditMenu"));
    EditUndo = item(this, "EditUndo", QStringLiteral("&Undo"), QKeySequence(Qt::CTRL | Qt::Key_Z));
    EditSeparator1 = separator(this, "EditSeparator1");
    EditCut = item(this, "EditCut", QStringLiteral("Cu&t"), QKeySequence(Qt::CTRL | Qt::Key_X));
    EditCopy = item(this, "EditCopy", QStringLiteral("&Copy"), QKeySequence(Qt::CTRL | Qt::Key_C));
    EditPaste =
        item(this, "EditPaste", QStringLiteral("&Paste"), QKeySequence(Qt::CTRL | Qt::Key_V));
    EditClear = item(this, "EditClear", QStringLiteral("&Delete"), {});
    EditSeparator2 = separator(this, "EditSeparator2");
    EditSelectAll = item(this, "EditSelectAll", QStringLiteral("Select &All"),
                         QKeySequence(Qt::CTRL | Qt::Key_A));
    EditMenu->addActions({EditUndo, EditSeparator1, EditCut, EditCopy, EditPaste, EditClear,
                          EditSeparator2, EditSelectAll});
    new EditItems(*this);
}
