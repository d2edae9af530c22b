#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>

#include "mainwindow/mainwindow.h"
#include "preview/imagecanvas.h"
#include "resources/namedpictures.h"
#include "support/dropfiles.h"
#include "support/testenvironment.h"
#include "support/testpictures.h"

// A folder of 10,000 small images goes the whole way through the main window: dropped, written
// as a page, and taken out again with "-".
class LargeFolderTest : public QObject {
    Q_OBJECT
    static constexpr int kImages = 10000;
    QTemporaryDir dir;
    QString folder = dir.filePath("Ten thousand");
    QStringList written;
    MainWindow* window = nullptr;
    ImageCatalogue* catalogue = nullptr;
    RecordingDialogs& dialogs = TestEnvironment::dialogs();

    QString text(const char* name) const {
        if (auto* field = window->findChild<QLineEdit*>(name)) return field->text();
        return window->findChild<QLabel*>(name)->text();
    }
    QStringList originalNames() const {
        QStringList names;
        for (int row = 0; row < catalogue->imageCount(); ++row)
            names << catalogue->cell(row, CatalogueRow::FileName);
        return names;
    }
    // Takes out the selected rows with "-", answering Yes, and checks the question asked.
    void removeSelectedRows(int selected) {
        dialogs.answers.enqueue(true);
        window->findChild<QPushButton*>("removeImagesButton")->click();
        QVERIFY(dialogs.answers.isEmpty());
        QCOMPARE(dialogs.questions.last(),
                 QString("Clear\n\nAre you sure to remove the %1 selected images from the list?")
                     .arg(selected));
        QVERIFY(window->imageCanvas()->imagePath().isEmpty());
        QTRY_VERIFY(!window->imageCanvas()->previewPending());
        QCOMPARE(window->imageCanvas()->picture(), pictures::placeholder());
    }

private slots:
    void initTestCase() {
        // One picture, encoded once, under names of several kinds: blanks, accents, both cases of
        // the extension, numbers that sort by value.
        const QByteArray png = encoded(photoLike(QSize(16, 12), 5), "PNG");
        QVERIFY(QDir().mkpath(folder));
        const QStringList prefixes = {"IMG_", "beach ", "Dune-", "été_"};
        for (int i = 0; i < kImages; ++i) {
            written << prefixes[i % prefixes.size()] + QString::number(i) +
                           (i % 3 ? ".png" : ".PNG");
            writeBytes(QDir(folder).filePath(written.last()), png);
        }
        App::instance()->start();
        window = App::instance()->mainWindow();
        catalogue = &App::instance()->gallery().images();
    }

    void everyImageOfTheDroppedFolderGetsARow() {
        dropOn(window, {QUrl::fromLocalFile(folder)});
        QCOMPARE(text("imageCountLabel"), QString("10000 images"));
        QStringList names = originalNames();
        names.sort();
        written.sort();
        QCOMPARE(names, written);
    }

    void thePageHoldsASlideForEveryRowInOrder() {
        window->findChild<QPushButton*>("writePageButton")->click();
        const QString page = folder + "/index.html";
        QCOMPARE(TestEnvironment::desktop().launched, QStringList{page});
        QFile file(page);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString html = QString::fromUtf8(file.readAll());

        QCOMPARE(html.count("<li data-target='#simpleCarousel' data-slide-to='"), kImages);
        QStringList sources;
        for (const QRegularExpressionMatch& match :
             QRegularExpression("<img src='([^']*)'").globalMatch(html))
            sources << match.captured(1);
        QCOMPARE(sources, originalNames());
    }

    void removingBlocksAndSingleRowsKeepsTheRestInOrder() {
        const QStringList before = originalNames();
        // Two blocks picked with Shift, and every tenth row between them with Ctrl.
        QItemSelection picked;
        picked.select(catalogue->index(0, 0), catalogue->index(2499, 5));
        for (int row = 2500; row < 7500; row += 10)
            picked.select(catalogue->index(row, 0), catalogue->index(row, 5));
        picked.select(catalogue->index(7500, 0), catalogue->index(kImages - 1, 5));
        catalogue->selectionModel()->select(picked, QItemSelectionModel::ClearAndSelect);

        removeSelectedRows(5500);
        QStringList kept;
        for (int row = 2500; row < 7500; ++row)
            if (row % 10) kept << before[row];
        QCOMPARE(originalNames(), kept);
        QCOMPARE(text("imageCountLabel"), QString("4500 images"));
        QCOMPARE(catalogue->selectedCount(), 1);
    }

    void removingEveryRowLeavesAnEmptyListAndNoPreview() {
        QTest::keyClick(window->findChild<QWidget*>("imageList"), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(window->findChild<QLineEdit*>("captionField"), "First of all");
        removeSelectedRows(4500);
        // The caption typed and the folder stay; the next paint brings back the start text.
        QCOMPARE(text("imageCountLabel") + "|" + text("captionField") + "|" + text("folderField"),
                 "0 images|First of all|" + folder + "/");
        QVERIFY(text("infoLabel").startsWith("To start, simply Drag and Drag  a folder"));
        // Only the list lost them.
        QCOMPARE(QDir(folder).entryList({"*.png", "*.PNG"}, QDir::Files).size(), kImages);
    }
};

VELMORA_TEST_MAIN(LargeFolderTest)
#include "tst_largefolder.moc"
