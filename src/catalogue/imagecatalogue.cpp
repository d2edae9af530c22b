#include "catalogue/imagecatalogue.h"

#include <QMimeData>
#include <QScopedValueRollback>
#include <algorithm>
#include <utility>
#include <vector>

#include "catalogue/imagetypes.h"
#include "platform/nativename.h"
#include "platform/photodescription.h"
#include "platform/text.h"

namespace {
const QString kRowsMimeType = QStringLiteral("application/x-velmora-catalogue-rows");
const QStringList kHeadings = {QStringLiteral("Picture name"), QStringLiteral("Original name"),
                               QStringLiteral("Image path"),   QStringLiteral("Image type"),
                               QStringLiteral("Width"),        QStringLiteral("Height")};
}  // namespace

ImageCatalogue::ImageCatalogue(QObject* parent) : QAbstractTableModel(parent), selection_(this) {
    connect(&selection_, &QItemSelectionModel::selectionChanged, this, [this] {
        if (!holdChange_) emit selectionChanged();
    });
}

void ImageCatalogue::addRow(const CatalogueRow& row) {
    const int index = imageCount();
    beginInsertRows({}, index, index);
    rows_.append(row);
    endInsertRows();
    lastIndex_ = index;
}

QString ImageCatalogue::cell(int row, int column) const {
    if (row < 0 || row >= imageCount()) return {};
    if (column == CatalogueRow::Caption) readCaptionFromFile(row);
    return rows_[row].cell(column);
}

const QList<CatalogueRow>& ImageCatalogue::rows() const {
    for (int row = 0; row < imageCount(); ++row) readCaptionFromFile(row);
    return rows_;
}

std::optional<QString> ImageCatalogue::captionAsKnown(int row) const {
    if (row < 0 || row >= imageCount() || rows_[row].captionInFile) return std::nullopt;
    return rows_[row].caption;
}

void ImageCatalogue::readCaptionFromFile(int row) const {
    CatalogueRow& entry = rows_[row];
    if (!entry.captionInFile) return;
    entry.caption = photoDescription(entry.imagePath);
    entry.captionInFile = false;
}

void ImageCatalogue::setCell(int row, int column, const QString& text) {
    if (row < 0 || row >= imageCount()) return;
    rows_[row].setCell(column, text);
    if (column >= 0 && column < kVisibleColumns)
        emit dataChanged(index(row, column), index(row, column));
    else  // the caption and the format speak in the row's tooltip
        emit dataChanged(index(row, 0), index(row, kVisibleColumns - 1), {Qt::ToolTipRole});
}

int ImageCatalogue::selectedRow() const {
    // Asked at every selection change: walking the selected ranges from the top stays cheap when
    // thousands of rows are selected, where listing every selected row would not.
    QItemSelection ranges = selection_.selection();
    std::sort(ranges.begin(), ranges.end(),
              [](const QItemSelectionRange& a, const QItemSelectionRange& b) {
                  return a.top() < b.top();
              });
    for (const QItemSelectionRange& range : ranges) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            if (selection_.isRowSelected(row, {})) return row;
    }
    return -1;
}

void ImageCatalogue::selectRow(int row) {
    {
        const QScopedValueRollback quiet(holdChange_, true);
        if (row >= 0 && row < imageCount()) {
            selection_.select(index(row, 0),
                              QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        } else {
            selection_.clear();
        }
    }
    makeCurrentSoon(row >= 0 && row < imageCount() ? index(row, 0) : QModelIndex());
    emit selectionChanged();
}

void ImageCatalogue::makeCurrentSoon(const QModelIndex& row) {
    // The arrow keys go on from the current row. Moving it scrolls the list to it, which a walk
    // that selects each of thousands of new rows would pay every time, so only the last row asked
    // for becomes current, once the work at hand is done.
    const bool queued = pendingCurrent_.has_value();
    pendingCurrent_ = QPersistentModelIndex(row);
    if (queued) return;
    QMetaObject::invokeMethod(
        this,
        [this] {
            const QPersistentModelIndex row = *std::exchange(pendingCurrent_, std::nullopt);
            if (row.isValid() && selection_.isRowSelected(row.row(), {}))
                selection_.setCurrentIndex(row, QItemSelectionModel::NoUpdate);
        },
        Qt::QueuedConnection);
}

int ImageCatalogue::selectedCount() const {
    return static_cast<int>(selection_.selectedRows().size());
}

bool ImageCatalogue::isSelected(int row) const {
    return row >= 0 && row < imageCount() && selection_.isRowSelected(row, {});
}

void ImageCatalogue::removeImageAt(int row) {
    if (row < 0 || row >= imageCount()) return;
    // A removed row leaves the selection without anyone choosing: no signal, or every row taken
    // out would load a preview on its way.
    const QScopedValueRollback quiet(holdChange_, true);
    beginRemoveRows({}, row, row);
    rows_.removeAt(row);
    endRemoveRows();
    clampLastIndex();
}

void ImageCatalogue::removeAll() {
    beginResetModel();
    rows_.clear();
    endResetModel();
    selection_.clear();
    lastIndex_ = -1;
}

void ImageCatalogue::clampLastIndex() {
    lastIndex_ = std::min(lastIndex_, imageCount() - 1);
}

void ImageCatalogue::moveRowsTo(QList<int> sourceRows, int destination) {
    std::sort(sourceRows.begin(), sourceRows.end());
    sourceRows.erase(std::unique(sourceRows.begin(), sourceRows.end()), sourceRows.end());
    sourceRows.erase(std::remove_if(sourceRows.begin(), sourceRows.end(),
                                    [this](int r) { return r < 0 || r >= imageCount(); }),
                     sourceRows.end());
    if (sourceRows.isEmpty()) return;
    destination = std::clamp(destination, 0, imageCount());

    // The new order: the rows that stay, with the moved block put where `destination` stood.
    QList<int> order;  // order[newRow] = oldRow
    for (int old = 0; old <= imageCount(); ++old) {
        if (old == destination) order.append(sourceRows);
        if (old < imageCount() && !sourceRows.contains(old)) order.append(old);
    }
    arrange(order);
}

void ImageCatalogue::arrange(const QList<int>& order) {
    if (std::is_sorted(order.begin(), order.end())) return;
    std::vector<int> newRowOf(rows_.size());
    for (int newRow = 0; newRow < order.size(); ++newRow) newRowOf[order[newRow]] = newRow;

    emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    QList<CatalogueRow> reordered;
    reordered.reserve(rows_.size());
    for (int old : order) reordered.append(rows_[old]);
    rows_ = std::move(reordered);
    const QModelIndexList persistent = persistentIndexList();
    QModelIndexList moved;
    moved.reserve(persistent.size());
    for (const QModelIndex& before : persistent)
        moved.append(index(newRowOf[before.row()], before.column()));
    changePersistentIndexList(persistent, moved);
    emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

bool ImageCatalogue::moveRows(const QModelIndex& sourceParent, int sourceRow, int count,
                              const QModelIndex& destinationParent, int destinationChild) {
    if (sourceParent.isValid() || destinationParent.isValid() || count <= 0) return false;
    if (sourceRow < 0 || sourceRow + count > imageCount()) return false;
    QList<int> block;
    for (int r = sourceRow; r < sourceRow + count; ++r) block.append(r);
    moveRowsTo(block, destinationChild);
    return true;
}

void ImageCatalogue::updateSelectionAndCounts() {
    const int count = imageCount();
    selectRow(lastAddedRow());
    setCountText(QString::number(imageCount()) +
                 (count == 1 ? QStringLiteral(" image") : QStringLiteral(" images")));
    updateProgressText();
}

void ImageCatalogue::updateProgressText() {
    progressText_ = QString::number(imageCount()) + QStringLiteral(" images added, please wait.");
    emit progressTextChanged(progressText_);
}

void ImageCatalogue::setCountText(const QString& text) {
    countText_ = text;
    emit countTextChanged(countText_);
}

void ImageCatalogue::setRenamed(bool renamed) {
    renamed_ = renamed;
    emit renamedChanged(renamed_);
}

int ImageCatalogue::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : imageCount();
}

int ImageCatalogue::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : kVisibleColumns;
}

QVariant ImageCatalogue::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole)) return {};
    if (role == Qt::DisplayRole) return nativeName::shown(cell(index.row(), index.column()));
    // Hovering tells the captioned rows from the others. Always rich text, so that a caption's
    // own "<" and "&" show as typed; unwrapped, as a wrapping tooltip is squeezed narrow, and so a
    // long caption is cut short.
    static constexpr int kLongest = 100;
    const CatalogueRow& row = rows_[index.row()];
    QString caption = cell(index.row(), CatalogueRow::Caption);
    if (caption.size() > kLongest) {
        caption.truncate(caption.at(kLongest - 2).isHighSurrogate() ? kLongest - 2 : kLongest - 1);
        caption += u'\u2026';
    }
    QString tip =
        caption.isEmpty() ? QStringLiteral("<i>No caption yet</i>") : caption.toHtmlEscaped();
    if (!browsersShow(row.format))
        tip += QStringLiteral("<br>Web browsers will not show this %1 picture.")
                   .arg(row.format.toUpper().toHtmlEscaped());
    return QStringLiteral("<p style='white-space:pre'>%1</p>").arg(tip);
}

QVariant ImageCatalogue::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole && section >= 0 &&
        section < kHeadings.size())
        return kHeadings[section];
    return QAbstractTableModel::headerData(section, orientation, role);
}

Qt::ItemFlags ImageCatalogue::flags(const QModelIndex& index) const {
    // No cell is editable; rows can be dragged, and dropped between other rows.
    if (!index.isValid()) return Qt::ItemIsDropEnabled;
    return Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsDragEnabled |
           Qt::ItemNeverHasChildren;
}

Qt::DropActions ImageCatalogue::supportedDropActions() const {
    return Qt::MoveAction;
}

QStringList ImageCatalogue::mimeTypes() const {
    return {kRowsMimeType};
}

QMimeData* ImageCatalogue::mimeData(const QModelIndexList& indexes) const {
    QList<int> rowsOfDrag;
    for (const QModelIndex& i : indexes)
        if (!rowsOfDrag.contains(i.row())) rowsOfDrag.append(i.row());
    std::sort(rowsOfDrag.begin(), rowsOfDrag.end());
    QStringList numbers;
    for (int r : rowsOfDrag) numbers.append(QString::number(r));
    auto* data = new QMimeData;
    data->setData(kRowsMimeType, numbers.join(u',').toLatin1());
    return data;
}

bool ImageCatalogue::canDropMimeData(const QMimeData* data, Qt::DropAction action, int, int,
                                     const QModelIndex&) const {
    return data && data->hasFormat(kRowsMimeType) && action == Qt::MoveAction;
}

bool ImageCatalogue::dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int,
                                  const QModelIndex& parent) {
    if (!canDropMimeData(data, action, row, 0, parent)) return false;
    QList<int> sourceRows;
    for (const QByteArray& number : data->data(kRowsMimeType).split(','))
        if (!number.isEmpty()) sourceRows.append(number.toInt());
    int destination = row;
    if (destination < 0) destination = parent.isValid() ? parent.row() : imageCount();
    moveRowsTo(sourceRows, destination);
    // The rows have moved here already: answering false keeps the view from removing the
    // "source" rows as it would after an ordinary move between two models.
    return false;
}
