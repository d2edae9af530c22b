#include "mainwindow/catalogueview.h"

#include <QDropEvent>

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
