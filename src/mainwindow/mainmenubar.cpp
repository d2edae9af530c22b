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
    buildFileMenu();
    buildEditMenu();
}

MainMenuBar::~MainMenuBar() {
    delete fileMenu;
    delete editMenu;
}

void MainMenuBar::buildFileMenu() {
    fileMenu = new QMenu(QStringLiteral("&File"));
    fileMenu->setObjectName(QStringLiteral("FileMenu"));
    openFolderItem = item(this, "OpenFolder", QStringLiteral("Open Folder..."), QKeySequence::Open);
    aboutItem = item(this, "About", QStringLiteral("About Velmora"), {}, QAction::AboutRole);
    renameItem = item(this, "Rename", QStringLiteral("Rename All images..."),
                      QKeySequence(Qt::CTRL | Qt::Key_R));
    restoreNamesItem = item(this, "RestoreNames", QStringLiteral("Restore original file names..."),
                            QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_R));
    preferencesItem = item(this, "Preferences", QStringLiteral("Preferences..."),
                           QKeySequence(Qt::CTRL | Qt::Key_K), QAction::PreferencesRole);
    writePageItem = item(this, "Save", QStringLiteral("Write the gallery page"),
                         QKeySequence(Qt::CTRL | Qt::Key_S));
    quitItem = item(this, "FileQuit", QStringLiteral("&Quit"), QKeySequence(Qt::CTRL | Qt::Key_Q),
                    QAction::QuitRole);
    fileMenu->addAction(openFolderItem);
    fileMenu->addAction(aboutItem);
    fileMenu->addAction(writePageItem);
    fileMenu->addAction(quitItem);
}

void MainMenuBar::buildEditMenu() {
    editMenu = new QMenu(QStringLiteral("&Edit"));
    editMenu->setObjectName(QStringLiteral("EditMenu"));
    undoItem = item(this, "EditUndo", QStringLiteral("&Undo"), QKeySequence(Qt::CTRL | Qt::Key_Z));
    editSeparator1 = separator(this, "EditSeparator1");
    cutItem = item(this, "EditCut", QStringLiteral("Cu&t"), QKeySequence(Qt::CTRL | Qt::Key_X));
    copyItem = item(this, "EditCopy", QStringLiteral("&Copy"), QKeySequence(Qt::CTRL | Qt::Key_C));
    pasteItem =
        item(this, "EditPaste", QStringLiteral("&Paste"), QKeySequence(Qt::CTRL | Qt::Key_V));
    deleteItem = item(this, "EditClear", QStringLiteral("&Delete"), {});
    editSeparator2 = separator(this, "EditSeparator2");
    selectAllItem = item(this, "EditSelectAll", QStringLiteral("Select &All"),
                         QKeySequence(Qt::CTRL | Qt::Key_A));
    editMenu->addActions({undoItem, editSeparator1, cutItem, copyItem, pasteItem, deleteItem,
                          editSeparator2, selectAllItem});
    new EditItems(*this);
}
