#include "mainwindow/edititems.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <utility>

#include "mainwindow/mainmenubar.h"

EditItems::EditItems(MainMenuBar& menus) : QObject(&menus), menus_(menus) {
    using FieldEdit = void (*)(QLineEdit*);
    const std::pair<QAction*, FieldEdit> fieldEdits[] = {
        {menus.undoItem, [](QLineEdit* field) { field->undo(); }},
        {menus.cutItem, [](QLineEdit* field) { field->cut(); }},
        {menus.copyItem, [](QLineEdit* field) { field->copy(); }},
        {menus.pasteItem, [](QLineEdit* field) { field->paste(); }},
        {menus.deleteItem, [](QLineEdit* field) { field->del(); }},
    };
    for (const auto& [item, edit] : fieldEdits) {
        // Copied by name: clang before 16 cannot capture a structured binding.
        connect(item, &QAction::triggered, this, [this, edit = edit] {
            if (field_) edit(field_);
        });
    }
    connect(menus.selectAllItem, &QAction::triggered, this, [this] {
        if (field_) field_->selectAll();
        if (list_) list_->selectAll();
    });
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget*, QWidget* focused) { follow(focused); });
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this, &EditItems::update);
    // Read-only and enabled changes send no signal: the menu looks again as it opens.
    connect(menus.editMenu, &QMenu::aboutToShow, this, &EditItems::update);
    follow(QApplication::focusWidget());
}

void EditItems::follow(QWidget* focused) {
    for (const QMetaObject::Connection& connection : watching_) disconnect(connection);
    watching_.clear();
    field_ = qobject_cast<QLineEdit*>(focused);
    list_ = qobject_cast<QAbstractItemView*>(focused);
    if (field_) {
        watching_ << connect(field_, &QLineEdit::textChanged, this, &EditItems::update)
                  << connect(field_, &QLineEdit::selectionChanged, this, &EditItems::update);
    }
    if (list_ && list_->model()) {
        QAbstractItemModel* rows = list_->model();
        watching_ << connect(rows, &QAbstractItemModel::rowsInserted, this, &EditItems::update)
                  << connect(rows, &QAbstractItemModel::rowsRemoved, this, &EditItems::update)
                  << connect(rows, &QAbstractItemModel::modelReset, this, &EditItems::update);
    }
    update();
}

void EditItems::update() {
    const bool editable = field_ && !field_->isReadOnly();
    const bool selected = field_ && field_->hasSelectedText();
    const bool clipboardText = !QGuiApplication::clipboard()->text().isEmpty();
    const bool rowsToSelect = list_ && list_->model() && list_->model()->rowCount() > 0 &&
                              list_->selectionMode() != QAbstractItemView::NoSelection &&
                              list_->selectionMode() != QAbstractItemView::SingleSelection;
    menus_.undoItem->setEnabled(editable && field_->isUndoAvailable());
    menus_.cutItem->setEnabled(editable && selected);
    menus_.copyItem->setEnabled(selected);
    menus_.pasteItem->setEnabled(editable && clipboardText);
    menus_.deleteItem->setEnabled(editable && selected);
    menus_.selectAllItem->setEnabled((field_ && !field_->text().isEmpty()) || rowsToSelect);
}
