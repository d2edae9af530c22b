#include "gallery/pagerestore.h"

#include <QHash>
#include <vector>

namespace {
// Names that are canonically equivalent are one name: a copy through another system or an archive
// may store "café" composed or decomposed, and the page names it as it was when written.
QString comparable(const QString& name) {
    return name.normalized(QString::NormalizationForm_C);
}
}  // namespace

QStringList arrangeAsPage(ImageCatalogue& catalogue, const QList<PageSlide>& slides) {
    const int count = catalogue.imageCount();
    QHash<QString, int> rowOfName;
    rowOfName.reserve(count);
    for (int row = 0; row < count; ++row)
        rowOfName.insert(comparable(catalogue.cell(row, CatalogueRow::FileName)), row);

    QList<int> order;
    order.reserve(count);
    QList<std::optional<QString>> captions;
    std::vector<bool> placed(static_cast<std::size_t>(count));
    QStringList missing;
    for (const PageSlide& slide : slides) {
        const auto found = rowOfName.constFind(comparable(slide.fileName));
        if (found == rowOfName.cend()) {
            missing << slide.fileName;
        } else if (!placed[*found]) {
            // A picture the page shows twice keeps its first place.
            placed[*found] = true;
            order << *found;
            captions << slide.caption;
        }
    }
    for (int row = 0; row < count; ++row)
        if (!placed[row]) order << row;
    catalogue.arrange(order);
    for (int row = 0; row < captions.size(); ++row)
        if (captions[row]) catalogue.setCell(row, CatalogueRow::Caption, *captions[row]);
    missing.removeDuplicates();
    return missing;
}
