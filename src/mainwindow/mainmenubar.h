#pragma once

#include <QAction>
#include <QMenu>
#include <QObject>

// The program's one menu tree, File and Edit, built once. The main window shows the two menus
// in its menu bar; the items created invisible (renameItem, restoreNamesItem, preferencesItem) stay
// out of the File menu, and the main window carries them so that their shortcuts still work.
class MainMenuBar : public QObject {
    Q_OBJECT
public:
    explicit MainMenuBar(QObject* parent = nullptr);
    ~MainMenuBar() override;

    QMenu* fileMenu;
    QAction* openFolderItem;
    QAction* aboutItem;
    QAction* renameItem;
    QAction* restoreNamesItem;
    QAction* preferencesItem;
    QAction* writePageItem;
    QAction* quitItem;

    QMenu* editMenu;
    QAction* undoItem;
    QAction* editSeparator1;
    QAction* cutItem;
    QAction* copyItem;
    QAction* pasteItem;
    QAction* deleteItem;
    QAction* editSeparator2;
    QAction* selectAllItem;

    // The items that are declared but not shown in the File menu.
    QList<QAction*> hiddenItems() const { return {renameItem, restoreNamesItem, preferencesItem}; }

private:
    void buildFileMenu();  // builds the File menu
    void buildEditMenu();  // builds the Edit menu
};
