#pragma once

#include <QAction>
#include <QMenu>
#include <QObject>

// The program's one menu tree, File and Edit, built once. The main window shows the two menus
// in its menu bar; the items created invisible (Rename, RestoreNames, Preferences) stay out of
// the File menu, and the main window carries them so that their shortcuts still work.
class MainMenuBar : public QObject {
    Q_OBJECT
public:
    explicit MainMenuBar(QObject* parent = nullptr);
    ~MainMenuBar() override;

    QMenu* FileMenu;
    QAction* OpenFolder;
    QAction* About;
    QAction* Rename;
    QAction* RestoreNames;
    QAction* Preferences;
    QAction* Save;
    QAction* FileQuit;

    QMenu* EditMenu;
    QAction* EditUndo;
    QAction* EditSeparator1;
    QAction* EditCut;
    QAction* EditCopy;
    QAction* EditPaste;
    QAction* EditClear;
    QAction* EditSeparator2;
    QAction* EditSelectAll;

    // The items that are declared but not shown in the File menu.
    QList<QAction*> hiddenItems() const { return {Rename, RestoreNames, Preferences}; }

private:
    void Untitled0();  // builds the File menu
    void Untitled1();  // builds the Edit menu
};
