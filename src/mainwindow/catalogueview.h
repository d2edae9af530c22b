#pragma once

#include <QTableView>

// The list of images. Rows are reordered by dragging them inside the list; the model moves the
// whole rows, hidden cells included.
class CatalogueView : public QTableView {
    Q_OBJECT
public:
    using QTableView::QTableView;

protected:
    void dropEvent(QDropEvent* event) override;

private:
    // The row before which rows dropped at `position` go: the row under it when the position is
    // in its upper half, the next one in its lower half, and the end below the last row.
    int dropRow(const QPoint& position) const;
};
