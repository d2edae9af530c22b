#pragma once

#include <QAbstractTableModel>
#include <QItemSelectionModel>
#include <QList>
#include <QString>
#include <optional>

#include "catalogue/cataloguerow.h"

// The ordered list of images with its selection, whether the names were changed, the count text and
// the progress text. The main window's list is a view of it.
class ImageCatalogue : public QAbstractTableModel {
    Q_OBJECT
public:
    static constexpr int kVisibleColumns = 6;

    explicit ImageCatalogue(QObject* parent = nullptr);

    // Appends `row` in one insertion; it becomes the last added row. The selection stays as it
    // is. A row marked captionInFile takes its picture's own description as its caption. Reading
    // it costs more than the header the row was made from, so it is read when the caption is first
    // asked for; a caption set before then wins.
    void addRow(const CatalogueRow& row);
    QString cell(int row, int column) const;
    void setCell(int row, int column, const QString& text);
    int imageCount() const { return static_cast<int>(rows_.size()); }
    // The row that addRow added last, kept on an existing row after removals; -1 when empty.
    int lastAddedRow() const { return lastIndex_; }
    // The first selected row, or -1.
    int selectedRow() const;
    // Makes `row` the only selected row, and soon the current one, or selects nothing when `row`
    // names no row, and signals selectionChanged before returning, also when the selection was
    // already that row.
    void selectRow(int row);
    int selectedCount() const;
    bool isSelected(int row) const;
    // Removes the row; a selection that goes with it signals no change.
    void removeImageAt(int row);
    void removeAll();

    // Every row, each caption that is still in its file read.
    const QList<CatalogueRow>& rows() const;
    // The row's caption, or nothing while it is still its picture's unread description.
    std::optional<QString> captionAsKnown(int row) const;
    QItemSelectionModel* selectionModel() { return &selection_; }

    // Moves the given rows, in their order, to stand before `destination` (a row index of the
    // list before the move; imageCount() for the end). Whole rows move, captions included.
    void moveRowsTo(QList<int> sourceRows, int destination);
    // Puts the rows in a new order: `order` lists every row once, by its index before the call,
    // in the order they are to stand. Whole rows move, as above.
    void arrange(const QList<int>& order);

    // Brings selection, count text and progress text up to date after the rows changed.
    void updateSelectionAndCounts();
    // Brings the progress text alone up to date, as a walk adds rows.
    void updateProgressText();

    QString countText() const { return countText_; }
    void setCountText(const QString& text);
    QString progressText() const { return progressText_; }
    // Whether the list's names were changed from the file names.
    bool renamed() const { return renamed_; }
    void setRenamed(bool renamed);

    // QAbstractTableModel
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool moveRows(const QModelIndex& sourceParent, int sourceRow, int count,
                  const QModelIndex& destinationParent, int destinationChild) override;
    Qt::DropActions supportedDropActions() const override;
    QStringList mimeTypes() const override;
    QMimeData* mimeData(const QModelIndexList& indexes) const override;
    bool canDropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                         const QModelIndex& parent) const override;
    bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                      const QModelIndex& parent) override;

signals:
    // The selection changed, by the user or by the program.
    void selectionChanged();
    void countTextChanged(const QString& text);
    void progressTextChanged(const QString& text);
    void renamedChanged(bool renamed);

private:
    void clampLastIndex();
    void makeCurrentSoon(const QModelIndex& row);

    // Reading a caption from its file completes a row, so it happens also where the rows are only
    // read.
    void readCaptionFromFile(int row) const;

    mutable QList<CatalogueRow> rows_;
    int lastIndex_ = -1;
    QItemSelectionModel selection_;
    // Set while the catalogue itself changes the selection and notifies on its own terms.
    bool holdChange_ = false;
    std::optional<QPersistentModelIndex> pendingCurrent_;
    QString countText_ = QStringLiteral("0 images");
    QString progressText_;
    bool renamed_ = false;
};
