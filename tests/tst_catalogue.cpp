#include <QMimeData>
#include <QSignalSpy>
#include <QTextDocument>

#include "catalogue/imagecatalogue.h"
#include "catalogue/imagetypes.h"
#include "catalogue/stripextension.h"
#include "platform/text.h"
#include "support/testenvironment.h"

namespace {
using Pairs = QList<std::pair<QString, QString>>;

// A row for each letter, its caption the letter in upper case.
void fill(ImageCatalogue& catalogue, const QString& letters) {
    for (const QChar letter : letters) {
        CatalogueRow row;
        row.pictureName = letter;
        row.caption = letter.toUpper();
        catalogue.addRow(row);
    }
}

// The rows as "name=caption", so that a caption left behind by its row shows.
QString rows(const ImageCatalogue& catalogue) {
    QStringList shown;
    for (int row = 0; row < catalogue.imageCount(); ++row)
        shown << catalogue.cell(row, CatalogueRow::ListName) + "=" +
                     catalogue.cell(row, CatalogueRow::Caption);
    return shown.join(' ');
}
}  // namespace

class CatalogueTest : public QObject {
    Q_OBJECT
private slots:
    // The list name of a file loses only a known image extension, the last one, in any case;
    // the Image type column names the type of the extension, given with or without its dot.
    void namesAndTypesComeFromTheExtension() {
        const Pairs names = {
            {"photo.Jpg", "photo"}, {"x.jpeg.bak", "x.jpeg.bak"}, {"s.jpe", "s.jpe"}};
        const Pairs types = {{".JPEG", "image/jpeg"}, {"pict", "image/x-macpict"}, {"webp", ""}};
        for (const auto& [name, listName] : names) QCOMPARE(stripExtension(name), listName);
        for (const auto& [extension, type] : types) QCOMPARE(imageTypeOfExtension(extension), type);
    }

    // Each update counts the rows and selects the row added last. The caption is no column of
    // the list, and no cell of the list can be edited in place.
    void countsAndHeadingsReadAsTheListShowsThem() {
        ImageCatalogue catalogue;
        for (const auto& [letters, count] :
             Pairs{{"", "0 images"}, {"a", "1 image"}, {"bcdefg", "7 images"}}) {
            fill(catalogue, letters);
            catalogue.updateSelectionAndCounts();
            QCOMPARE(catalogue.countText(), count);
            QCOMPARE(catalogue.selectedRow(), catalogue.imageCount() - 1);
        }
        QStringList headings;
        for (int column = 0; column < catalogue.columnCount(); ++column) {
            headings << catalogue.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
            QVERIFY(catalogue.index(0, column).data().toString() != "A");
            QVERIFY(!(catalogue.flags(catalogue.index(0, column)) & Qt::ItemIsEditable));
        }
        QCOMPARE(headings, QStringList({"Picture name", "Original name", "Image path", "Image type",
                                        "Width", "Height"}));
    }

    // Hovering a row shows its caption as typed, or that it has none, and warns of a picture that
    // browsers do not show, whatever its name.
    void aRowsTooltipShowsItsCaptionAndWhatBrowsersCannotShow() {
        const QList<std::tuple<QString, QString, QString>> cases = {
            {"", "png", "No caption yet"},
            {"Start & <end>", "jpeg", "Start & <end>"},
            {"", "tiff", "No caption yet\nWeb browsers will not show this TIFF picture."},
            {"Dunes", "pgm", "Dunes\nWeb browsers will not show this PGM picture."},
            {"x", "webp", "x"},
            {QString(150, 'w'), "jpeg", QString(99, 'w') + "\u2026"}};
        ImageCatalogue catalogue;
        QTextDocument shown;
        for (const auto& [caption, format, tooltip] : cases) {
            fill(catalogue, "a");
            catalogue.setCell(catalogue.lastAddedRow(), CatalogueRow::Caption, caption);
            catalogue.setCell(catalogue.lastAddedRow(), CatalogueRow::Format, format);
            shown.setHtml(
                catalogue.index(catalogue.lastAddedRow(), 2).data(Qt::ToolTipRole).toString());
            QCOMPARE(shown.toPlainText(), tooltip);
        }
    }

    // The program selects one row or none, and the row added last stays an existing row.
    void theSelectionAndTheLastRowStayOnExistingRows() {
        ImageCatalogue catalogue;
        fill(catalogue, "abcd");
        catalogue.selectRow(0);
        catalogue.selectRow(1);
        QCOMPARE(catalogue.cell(catalogue.selectedRow(), CatalogueRow::ListName), QString("b"));
        // The list's keys go on from the row the program selected last, once it is done.
        QCoreApplication::processEvents();
        QCOMPARE(catalogue.selectionModel()->currentIndex().row(), 1);
        const auto rowsFlag = QItemSelectionModel::Select | QItemSelectionModel::Rows;
        catalogue.selectionModel()->select(catalogue.index(2, 0), rowsFlag);
        QCOMPARE(catalogue.selectedCount(), 2);
        catalogue.selectionModel()->select(catalogue.index(0, 0), rowsFlag);
        QCOMPARE(catalogue.selectedRow(), 0);  // first in row order, not in the order of picking

        // A row that does not exist neither fails nor takes the text.
        catalogue.selectRow(4);
        QCOMPARE(catalogue.selectedCount(), 0);
        catalogue.setCell(-1, CatalogueRow::Caption, "nobody");
        catalogue.setCell(5, CatalogueRow::Caption, "nobody");
        QCOMPARE(rows(catalogue), QString("a=A b=B c=C d=D"));

        catalogue.selectRow(3);
        QSignalSpy change(&catalogue, &ImageCatalogue::selectionChanged);
        catalogue.removeImageAt(3);
        QCOMPARE(change.count(), 0);  // the selection went with its row; nobody chose anew
        QCOMPARE(catalogue.lastAddedRow(), 2);
        catalogue.removeImageAt(0);
        QCOMPARE(rows(catalogue), QString("b=B c=C"));
        catalogue.removeAll();
        QCOMPARE(catalogue.lastAddedRow(), -1);
        catalogue.selectRow(0);  // nothing to select, and nothing fails
        QCOMPARE(catalogue.selectedRow(), -1);
    }

    // The list control's own drag, dropped onto a row, lands before it.
    void draggedRowsMoveWholeWithTheirCaptionsAndSelection() {
        ImageCatalogue catalogue;
        fill(catalogue, "abcde");
        catalogue.selectRow(3);
        const QScopedPointer<QMimeData> dragged(catalogue.mimeData(
            {catalogue.index(3, 0), catalogue.index(1, 3), catalogue.index(3, 2)}));
        catalogue.dropMimeData(dragged.get(), Qt::MoveAction, -1, 0, catalogue.index(0, 0));
        QCOMPARE(rows(catalogue), QString("b=B d=D a=A c=C e=E"));
        QCOMPARE(catalogue.selectedRow(), 1);  // the selection went with its row
    }

    // Counts, the size field and the preference file are read with Val: the leading number
    // only, behind blanks, with a point and an exponent but never a comma.
    void valReadsTheLeadingNumberOnly() {
        const QList<std::pair<QString, double>> cases = {
            {"-4x", -4}, {"Empty list", 0}, {"\t0012", 12}, {".5", 0.5},
            {"-", 0},    {"2e3 px", 2000},  {"2e", 2},      {"1,5", 1}};
        for (const auto& [text, value] : cases)
            QVERIFY2(text::leadingNumber(text) == value, qPrintable(text));
    }
};

VELMORA_TEST_MAIN(CatalogueTest)
#include "tst_catalogue.moc"
