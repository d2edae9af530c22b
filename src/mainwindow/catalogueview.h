#pragma once

#include <QTableView>

// The list of images. Rows are reordered by dragging them inside the list; the model moves the
// whole rows, hidden cells included. Only the first column is in sight: the others lie past the
// right edge, and nothing scrolls the list sideways to reach them.
class CatalogueView : public QTableView {
    Q_OBJECT
public:
    using QTableView::QTableView;

protected:
    void dropEvent(QDropEvent* event) override;
    void updateGeometries() override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;

private:
    // The row before which rows dropped at `position` go: the row under it when the position is
    // in its upper half, the next one in its lower half, and the end below the last row.
    int dropRow(const QPoint& position) const;
};
