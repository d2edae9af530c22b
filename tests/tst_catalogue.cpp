#include <QMimeData>
#include <QSignalSpy>
#include <QTest>

#include "catalogue/filetypes.h"
#include "catalogue/imagecatalogue.h"
#include "catalogue/stripextension.h"
#include "platform/text.h"
#include "support/testenvironment.h"

namespace {
using Pairs = QList<std::pair<QString, QString>>;

// A row for each letter, its caption the letter in upper case.
void fill(ImageCatalogue& catalogue, const QString& letters) {
    for (const QChar letter : letters) {
        catalogue.AddRow(letter);
        catalogue.setCell(catalogue.LastIndex(), 7, letter.toUpper());
    }
}

// The rows as "name=caption", so that a caption left behind by its row shows.
QString rows(const ImageCatalogue& catalogue) {
    QStringList shown;
    for (int row = 0; row < catalogue.ListCount(); ++row)
        shown << catalogue.Cell(row, 0) + "=" + catalogue.Cell(row, 7);
    return shown.join(' ');
}

void select(ImageCatalogue& catalogue, int row) {
    catalogue.selectionModel()->select(catalogue.index(row, 0),
                                       QItemSelectionModel::Select | QItemSelectionModel::Rows);
}
}  // namespace

class CatalogueTest : public QObject {
    Q_OBJECT
private slots:
    // The list name of a file loses only a known image extension, the last one, in any case;
    // the Image type column names the type of the extension, given with or without its dot.
    void namesAndTypesComeFromTheExtension() {
        // clang-format off
        const Pairs names = {
            {"photo.Jpg", "photo"}, {"a.2019.b.png", "a.2019.b"}, {"README", "README"},
            {"a.tar.gz", "a.tar.gz"}, {"x.jpeg.bak", "x.jpeg.bak"}, {"photo.", "photo."},
            {".jpg", ""}, {"a..tif", "a."}, {"s.jpe", "s.jpe"}, {"Café Zürich.png", "Café Zürich"}};
        const Pairs types = {{".JPEG", "image/jpeg"}, {"pict", "image/x-macpict"}, {"webp", ""}};
        // clang-format on
        for (const auto& [name, listName] : names) QCOMPARE(stripExtension(name), listName);
        for (const auto& [extension, type] : types)
            QCOMPARE(fileTypes::typeOfExtension(extension), type);
    }

    // The caption is no column of the list, and no cell of the list can be edited in place.
    void countsAndHeadingsReadAsTheListShowsThem() {
        ImageCatalogue catalogue;
        QStringList headings;
        for (int column = 0; column < catalogue.columnCount(); ++column)
            headings << catalogue.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
        QCOMPARE(headings, QStringList({"Picture name", "Original name", "Image path", "Image type",
                                        "Width", "Height"}));
        QCOMPARE(catalogue.countText() + catalogue.renameFlag(), QString("0 imagesno"));
        // Each update counts the rows and selects the row added last; adding alone selects none.
        for (const auto& [letters, count] :
             Pairs{{"", "0 images"}, {"a", "1 image"}, {"bcdefg", "7 images"}}) {
            fill(catalogue, letters);
            QCOMPARE(catalogue.ListIndex(), -1);
            catalogue.updateTheList();
            QCOMPARE(catalogue.countText(), count);
            QCOMPARE(catalogue.ListIndex(), catalogue.ListCount() - 1);
            catalogue.setListIndex(-1);
        }
        for (int column = 0; column < catalogue.columnCount(); ++column) {
            QVERIFY(catalogue.index(0, column).data().toString() != "A");
            QVERIFY(!(catalogue.flags(catalogue.index(0, column)) & Qt::ItemIsEditable));
        }
    }

    void listIndexSelectsOneRowOrNothingAndAlwaysNotifies() {
        ImageCatalogue catalogue;
        fill(catalogue, "abc");
        QSignalSpy change(&catalogue, &ImageCatalogue::Change);
        catalogue.setListIndex(1);
        QCOMPARE(catalogue.Text(), QString("b"));
        // The list's keys go on from the row the program selected last, once it is done.
        catalogue.setListIndex(0);
        catalogue.setListIndex(1);
        QVERIFY(!catalogue.selectionModel()->currentIndex().isValid());
        QCoreApplication::processEvents();
        QCOMPARE(catalogue.selectionModel()->currentIndex().row(), 1);
        catalogue.setListIndex(1);
        QCOMPARE(change.count(), 4);

        select(catalogue, 2);
        QCOMPARE(change.count(), 5);  // a change by the user notifies too
        QCOMPARE(catalogue.SelCount(), 2);
        QVERIFY(catalogue.Selected(2) && !catalogue.Selected(0));
        select(catalogue, 0);
        QCOMPARE(catalogue.ListIndex(), 0);  // first in row order, not in the order of picking

        // A row that does not exist neither fails nor takes the text.
        catalogue.setListIndex(3);
        QCOMPARE(catalogue.SelCount(), 0);
        catalogue.setText("nobody");
        catalogue.setCell(-1, 7, "nobody");
        catalogue.setCell(5, 7, "nobody");
        QCOMPARE(rows(catalogue), QString("a=A b=B c=C"));
    }

    void lastIndexStaysOnAnExistingRow() {
        ImageCatalogue catalogue;
        fill(catalogue, "abcd");
        catalogue.setListIndex(3);
        QSignalSpy change(&catalogue, &ImageCatalogue::Change);
        catalogue.RemoveRow(3);
        QCOMPARE(change.count(), 0);  // the selection went with its row; nobody chose anew
        QCOMPARE(catalogue.LastIndex(), 2);
        catalogue.RemoveRow(0);
        QCOMPARE(catalogue.LastIndex(), 1);
        QCOMPARE(rows(catalogue), QString("b=B c=C"));
        catalogue.DeleteAllRows();
        QCOMPARE(catalogue.LastIndex(), -1);
        catalogue.setListIndex(0);  // nothing to select, and nothing fails
        QCOMPARE(catalogue.ListIndex(), -1);
    }

    void draggedRowsMoveWholeWithTheirCaptionsAndSelection() {
        ImageCatalogue catalogue;
        fill(catalogue, "abcde");
        catalogue.setListIndex(3);
        catalogue.moveRowsTo({3, 1}, 0);
        QCOMPARE(rows(catalogue), QString("b=B d=D a=A c=C e=E"));
        QCOMPARE(catalogue.ListIndex(), 1);  // the selection went with its row
        catalogue.moveRowsTo({0}, 5);
        QCOMPARE(rows(catalogue), QString("d=D a=A c=C e=E b=B"));
        // The list control's own drag, dropped onto a row, lands before it.
        const QScopedPointer<QMimeData> dragged(
            catalogue.mimeData({catalogue.index(4, 0), catalogue.index(4, 3)}));
        QVERIFY(
            catalogue.canDropMimeData(dragged.get(), Qt::MoveAction, -1, 0, catalogue.index(0, 0)));
        catalogue.dropMimeData(dragged.get(), Qt::MoveAction, -1, 0, catalogue.index(0, 0));
        QCOMPARE(rows(catalogue), QString("b=B d=D a=A c=C e=E"));
    }

    // Counts, the size field and the preference file are read with Val: the leading number
    // only, behind blanks, with a point and an exponent but never a comma.
    void valReadsTheLeadingNumberOnly() {
        const QList<std::pair<QString, double>> cases = {
            {"3 images", 3}, {"-4x", -4}, {"Empty list", 0}, {"  720", 720}, {"\t0012", 12},
            {".5", 0.5},     {"-", 0},    {"2e3 px", 2000},  {"2e", 2},      {"1,5", 1}};
        for (const auto& [text, value] : cases)
            QVERIFY2(text::Val(text) == value, qPrintable(text));
    }
};

VELMORA_TEST_MAIN(CatalogueTest)
#include "tst_catalogue.moc"
