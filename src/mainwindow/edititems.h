#pragma once

#include <QList>
#include <QMetaObject>
#include <QObject>
#include <QPointer>

class MainMenuBar;
class QAbstractItemView;
class QLineEdit;
class QWidget;

// The Edit items act on the focused control: a text field's editing, or Select All on the rows
// of a list. Their enabled state follows the focus and the focused control's state at every
// moment, not only when the menu opens: a shortcut of a disabled item leaves the key to the
// control, and an enabled one must have something to act on.
class EditItems : public QObject {
    Q_OBJECT
public:
    explicit EditItems(MainMenuBar& menus);

private:
    void follow(QWidget* focused);
    void update();

    MainMenuBar& menus_;
    QPointer<QLineEdit> field_;
    QPointer<QAbstractItemView> list_;
    // What ties the items to the focused control; cut when the focus moves on.
    QList<QMetaObject::Connection> watching_;
};
