#include "mainwindow/catalogueview.h"

#include <QDropEvent>
#include <QScrollBar>

void CatalogueView::dropEvent(QDropEvent* event) {
    const QMimeData* dragged = event->mimeData();
    const int destination = dropRow(event->position().toPoint());
    if (model()->canDropMimeData(dragged, Qt::MoveAction, destination, 0, {}))
        model()->dropMimeData(dragged, Qt::MoveAction, destination, 0, {});
    // Left unaccepted on purpose: a drag that ends as a move makes the view remove its source
    // rows, and these rows have already moved.
    event->ignore();
    stopAutoScroll();
    setState(NoState);
    viewport()->update();
}

int CatalogueView::dropRow(const QPoint& position) const {
    const QModelIndex under = indexAt(position);
    if (!under.isValid()) return model()->rowCount();
    const bool upperHalf = position.y() < visualRect(under).center().y();
    return upperHalf ? under.row() : under.row() + 1;
}

void CatalogueView::updateGeometries() {
    QTableView::updateGeometries();
    // With no room to scroll into, no key, wheel or drag brings the hidden columns into view.
    horizontalScrollBar()->setRange(0, 0);
}

QModelIndex CatalogueView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    // Home and End go to the ends of the list, as in any list.
    if (action == MoveHome || action == MoveEnd) modifiers |= Qt::ControlModifier;
    // Left and Right have nowhere to go: the current cell stays in the one column in sight.
    return QTableView::moveCursor(action, modifiers).siblingAtColumn(0);
}
