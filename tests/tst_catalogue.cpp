#include <QMimeData>
#include <QSignalSpy>
#include <QTest>

#include "catalogue/imagecatalogue.h"
#include "platform/text.h"
#include "support/testenvironment.h"

namespace {
void fill(ImageCatalogue& catalogue, const QStringList& names) {
    for (const QString& name : names) {
        catalogue.AddRow(name);
        catalogue.setCell(catalogue.LastIndex(), 1, name + ".jpg");
        catalogue.setCell(catalogue.LastIndex(), 7, "caption of " + name);
    }
}

QStringList firstCells(const ImageCatalogue& catalogue) {
    QStringList names;
    for (int row = 0; row < catalogue.ListCount(); ++row) names.append(catalogue.Cell(row, 0));
    return names;
}
}  // namespace

class CatalogueTest : public QObject {
    Q_OBJECT
private slots:
    void startsEmptyWithItsStartTexts() {
        ImageCatalogue catalogue;
        QCOMPARE(catalogue.ListCount(), 0);
        QCOMPARE(catalogue.ListIndex(), -1);
        QCOMPARE(catalogue.LastIndex(), -1);
        QCOMPARE(catalogue.countText(), QString("0 images"));
        QCOMPARE(catalogue.renameFlag(), QString("no"));
        QCOMPARE(catalogue.columnCount(), 6);
        QCOMPARE(catalogue.headerData(2, Qt::Horizontal, Qt::DisplayRole).toString(),
                 QString("Image path"));
    }

    void updateTheListWritesCountAndProgressAndSelectsTheLastAddedRow() {
        ImageCatalogue catalogue;
        catalogue.updateTheList();
        QCOMPARE(catalogue.countText(), QString("0 images"));
        QCOMPARE(catalogue.progressText(), QString("0 images added, please wait."));
        QCOMPARE(catalogue.ListIndex(), -1);

        catalogue.AddRow("a");
        QCOMPARE(catalogue.ListIndex(), -1);  // adding does not select
        catalogue.updateTheList();
        QCOMPARE(catalogue.countText(), QString("1 image"));
        QCOMPARE(catalogue.progressText(), QString("1 images added, please wait."));

        fill(catalogue, {"b", "c", "d", "e", "f", "g"});
        catalogue.updateTheList();
        QCOMPARE(catalogue.countText(), QString("7 images"));
        QCOMPARE(catalogue.progressText(), QString("7 images added, please wait."));
        QCOMPARE(catalogue.ListIndex(), 6);
        QCOMPARE(catalogue.SelCount(), 1);
        QCOMPARE(text::Val(catalogue.countText()), 7.0);
    }

    void theCaptionCellLivesBeyondTheColumns() {
        ImageCatalogue catalogue;
        fill(catalogue, {"a"});
        QCOMPARE(catalogue.Cell(0, 7), QString("caption of a"));
        QCOMPARE(catalogue.Cell(0, 6), QString());
        catalogue.setCell(0, 6, "ignored");
        QCOMPARE(catalogue.Cell(0, 6), QString());
        for (int column = 0; column < catalogue.columnCount(); ++column)
            QVERIFY(catalogue.index(0, column).data().toString() != "caption of a");
        QVERIFY(!(catalogue.flags(catalogue.index(0, 0)) & Qt::ItemIsEditable));
        // A row that does not exist neither fails nor takes the text.
        catalogue.setCell(-1, 7, "nobody");
        catalogue.setCell(5, 7, "nobody");
        QCOMPARE(catalogue.Cell(-1, 7), QString());
    }

    void listIndexSelectsOneRowOrNothingAndAlwaysNotifies() {
        ImageCatalogue catalogue;
        fill(catalogue, {"a", "b", "c"});
        QSignalSpy change(&catalogue, &ImageCatalogue::Change);
        catalogue.setListIndex(1);
        QCOMPARE(catalogue.ListIndex(), 1);
        QCOMPARE(catalogue.Text(), QString("b"));
        // The list's keys go on from the row the program selected last, once it is done.
        catalogue.setListIndex(0);
        catalogue.setListIndex(1);
        QVERIFY(!catalogue.selectionModel()->currentIndex().isValid());
        QCoreApplication::processEvents();
        QCOMPARE(catalogue.selectionModel()->currentIndex().row(), 1);
        catalogue.setListIndex(1);
        QCOMPARE(change.count(), 4);

        catalogue.selectionModel()->select(catalogue.index(2, 0),
                                           QItemSelectionModel::Select | QItemSelectionModel::Rows);
        QCOMPARE(change.count(), 5);  // a change by the user notifies too
        QCOMPARE(catalogue.SelCount(), 2);
        QCOMPARE(catalogue.ListIndex(), 1);
        QVERIFY(catalogue.Selected(2));
        QVERIFY(!catalogue.Selected(0));
        catalogue.selectionModel()->select(catalogue.index(0, 0),
                                           QItemSelectionModel::Select | QItemSelectionModel::Rows);
        QCOMPARE(catalogue.ListIndex(), 0);  // first in row order, not in the order of picking

        catalogue.setListIndex(3);
        QCOMPARE(catalogue.ListIndex(), -1);
        QCOMPARE(catalogue.SelCount(), 0);
        catalogue.setText("nobody");
        QCOMPARE(firstCells(catalogue), QStringList({"a", "b", "c"}));
    }

    void lastIndexStaysOnAnExistingRow() {
        ImageCatalogue catalogue;
        fill(catalogue, {"a", "b", "c", "d"});
        QCOMPARE(catalogue.LastIndex(), 3);
        catalogue.setListIndex(3);
        QSignalSpy change(&catalogue, &ImageCatalogue::Change);
        catalogue.RemoveRow(3);
        QCOMPARE(change.count(), 0);  // the selection went with its row; nobody chose anew
        QCOMPARE(catalogue.LastIndex(), 2);
        catalogue.RemoveRow(0);
        QCOMPARE(catalogue.LastIndex(), 1);
        QCOMPARE(firstCells(catalogue), QStringList({"b", "c"}));
        catalogue.moveRowsTo({1}, 0);
        QCOMPARE(firstCells(catalogue), QStringList({"c", "b"}));
        QCOMPARE(catalogue.LastIndex(), 1);
        catalogue.DeleteAllRows();
        QCOMPARE(catalogue.LastIndex(), -1);
        QCOMPARE(catalogue.ListIndex(), -1);
        catalogue.setListIndex(0);  // nothing to select, and nothing fails
        QCOMPARE(catalogue.ListIndex(), -1);
    }

    void draggedRowsMoveWholeWithTheirCaptionsAndSelection() {
        ImageCatalogue catalogue;
        fill(catalogue, {"a", "b", "c", "d", "e"});
        catalogue.setListIndex(3);
        catalogue.moveRowsTo({3, 1}, 0);
        QCOMPARE(firstCells(catalogue), QStringList({"b", "d", "a", "c", "e"}));
        QCOMPARE(catalogue.Cell(1, 7), QString("caption of d"));
        QCOMPARE(catalogue.Cell(1, 1), QString("d.jpg"));
        QCOMPARE(catalogue.ListIndex(), 1);  // the selection went with its row

        catalogue.moveRowsTo({0}, 5);
        QCOMPARE(firstCells(catalogue), QStringList({"d", "a", "c", "e", "b"}));

        // The list control's own drag goes through the model's drag data.
        QMimeData* dragged = catalogue.mimeData({catalogue.index(4, 0), catalogue.index(4, 3)});
        QVERIFY(catalogue.canDropMimeData(dragged, Qt::MoveAction, 1, 0, {}));
        catalogue.dropMimeData(dragged, Qt::MoveAction, 1, 0, {});
        delete dragged;
        QCOMPARE(firstCells(catalogue), QStringList({"d", "b", "a", "c", "e"}));
        QCOMPARE(catalogue.Cell(1, 7), QString("caption of b"));
        QCOMPARE(catalogue.ListCount(), 5);
    }

    void rowsWithTheSamePathStayIndependent() {
        ImageCatalogue catalogue;
        fill(catalogue, {"same", "same"});
        catalogue.setCell(0, 2, "/p/same.jpg");
        catalogue.setCell(1, 2, "/p/same.jpg");
        catalogue.setCell(1, 7, "second");
        QCOMPARE(catalogue.Cell(0, 7), QString("caption of same"));
        QCOMPARE(catalogue.Cell(1, 7), QString("second"));
    }
};

VELMORA_TEST_MAIN(CatalogueTest)
#include "tst_catalogue.moc"
