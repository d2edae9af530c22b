#include <sys/stat.h>
#include <unistd.h>

#include <QLabel>
#include <QLineEdit>

#include "auxwindows/progresswindow.h"
#include "mainwindow/mainwindow.h"
#include "platform/nativename.h"
#include "platform/sharedwindow.h"
#include "preview/imagecanvas.h"
#include "support/dropfiles.h"
#include "support/pagebytes.h"
#include "support/testenvironment.h"
#include "support/testpictures.h"

// Each drop walks its first item once and lists what reads as a picture, in a file manager's
// order. Whatever lies in the folder, the walk ends and passes over the rest without a word, and
// selecting a listed row either previews it or shows nothing new.
class IntakeTest : public QObject {
    Q_OBJECT
    QTemporaryDir dir;
    QString trip = dir.filePath("Trip"), more = dir.filePath("More"), odd = dir.filePath("Odd");
    Gallery gallery;
    MainWindow window{gallery, App::instance()->preferences(), App::instance()->menuBar()};
    ImageCatalogue& catalogue = gallery.images();
    QLineEdit* caption = window.findChild<QLineEdit*>("captionField");
    QLineEdit* folderField = window.findChild<QLineEdit*>("folderField");
    QLabel* imageCountLabel = window.findChild<QLabel*>("imageCountLabel");
    ProgressWindow* progress = nullptr;
    PaintCounter progressPaints;
    const QString longName = QString(251, u'n') + ".png";  // 255 bytes
    // A name in Latin-1, as an old camera card may hold: no UTF-8 text names this file.
    const QString latin1 = nativeName::fromBytes("caf\xe9.png");

    // The rows from `first` on as list name, type and size.
    QStringList rows(int first) const {
        QStringList shown;
        for (int row = first; row < catalogue.imageCount(); ++row)
            shown << catalogue.cell(row, CatalogueRow::ListName) + "|" +
                         catalogue.cell(row, CatalogueRow::Type) + "|" +
                         catalogue.cell(row, CatalogueRow::Width) + "x" +
                         catalogue.cell(row, CatalogueRow::Height);
        return shown;
    }
    // The progress window is painted during the walk and hidden after it, and the first row is
    // selected.
    void drop(QWidget* target, const QList<QUrl>& urls, int count, const QString& folder) {
        const int paints = progressPaints.paints;
        dropOn(target, urls);
        QVERIFY(progressPaints.paints > paints && progress->isHidden());
        QCOMPARE(QStringList({folderField->text(), imageCountLabel->text(), progress->countText()}),
                 QStringList({folder, QString("%1 images").arg(count),
                              QString("%1 images added, please wait.").arg(count)}));
        QCOMPARE(catalogue.selectedRow(), 0);
        QVERIFY(TestEnvironment::dialogs().messages.isEmpty() && !TestEnvironment::dialogs().beeps);
    }

private slots:
    void initTestCase() {
        QVERIFY(QDir().mkpath(trip + "/sub") && QDir().mkpath(more) &&
                QDir().mkpath(odd + "/dir.png"));
        // Photos: one named as no picture is, one hidden, one in a folder that the walk passes by.
        const std::pair<QString, QSize> photos[] = {
            {"Trip/IMG_2.png", {40, 30}}, {"Trip/IMG_10.png", {20, 10}},
            {"Trip/beach.jpg", {64, 48}}, {"Trip/shot.bak", {5, 7}},
            {"Trip/.cover.png", {8, 8}},  {"Trip/sub/inner.png", {9, 9}},
            {"More/dune.png", {12, 6}},   {"Odd/dot.png", {1, 1}}};
        for (const auto& [name, size] : photos)
            writeBytes(dir.filePath(name),
                       encoded(photoLike(size, 7), name.endsWith("jpg") ? "JPEG" : "PNG"));
        // A GIF of 3 x 2 pixels: Qt reads GIF but cannot write it.
        const QByteArray gif = QByteArray::fromHex(
            "47494638396103000200800000000000ffffff2c00000000030002000002050441100451003b");
        writeBytes(trip + "/anim.gif", gif);
        writeBytes(trip + "/fake.jpg", "not a picture at all\n");
        // Stored sideways, as a phone stores a portrait shot: listed as it is shown.
        writeBytes(trip + "/portrait.jpg", jpegWithOrientation(photoLike({30, 40}, 7), 6));
        QVERIFY(writeAvif(photoLike({24, 16}, 7), trip + "/sky.avif"));

        const QByteArray png = encoded(photoLike({40, 30}, 7), "PNG");
        writeBytes(odd + "/empty.jpg", {});
        const QByteArray jpeg = encoded(photoLike({200, 150}, 7), "JPEG");
        writeBytes(odd + "/cut.jpg", jpeg.left(4000));
        // Stray bytes before a marker are passed over, a stuffed FF 00 among them; a header that
        // ends before its scan is none.
        writeBytes(odd + "/stray.jpg", jpeg.left(2) + QByteArray("\0\xFF\0", 3) + jpeg.mid(2));
        writeBytes(odd + "/unscanned.jpg", jpeg.left(jpeg.indexOf("\xFF\xDA")));
        // Nor is a header the decoder refuses: a lossless or hierarchical frame, a second frame, a
        // frame of no height or with a sampling factor of 0, a marker it does not know.
        const qsizetype frame = jpeg.indexOf("\xFF\xC0");
        const auto overwritten = [&](qsizetype at, const QByteArray& bytes) {
            return jpeg.left(at) + bytes + jpeg.mid(at + bytes.size());
        };
        const QByteArray frameSegment = jpeg.mid(frame, 2 + 8 + 3 * 3);
        const std::pair<const char*, QByteArray> refused[] = {
            {"lossless", overwritten(frame + 1, "\xC3")},
            {"hierarchical", overwritten(frame + 1, "\xC5")},
            {"two frames", jpeg.left(frame) + frameSegment + jpeg.mid(frame)},
            {"no height", overwritten(frame + 5, QByteArray(2, '\0'))},
            {"unsampled", overwritten(frame + 11, QByteArray(1, '\0'))},
            {"unknown marker", jpeg.left(frame) +
                                   QByteArray("\xFF\xF0\0\x04"
                                              "ab",
                                              6) +
                                   jpeg.mid(frame)}};
        for (const auto& [name, bytes] : refused) writeBytes(odd + "/" + name + ".jpg", bytes);
        // Its header declares 100000 x 100000 pixels, its rows end after the first: a decoder
        // that took the header at its word would ask for 10 GB.
        writeBytes(odd + "/enormous.png", blackPng({100000, 1}, {100000, 100000}));
        for (const QString& name :
             {QString("it's.png"), QString("Tom & Jerry.png"), QString("say \"cheese\".png"),
              QString("🌅 dawn.png"), longName, latin1})
            writeBytes(odd + "/" + name, png);
        // A walk that opened the pipe would wait for a writer that never comes.
        QCOMPARE(mkfifo(QFile::encodeName(odd + "/pipe.jpg").constData(), 0600), 0);
        QVERIFY(QFile::link(odd + "/gone.png", odd + "/dangling.png"));
        QVERIFY(QFile::link(odd + "/loop-b.png", odd + "/loop-a.png"));
        QVERIFY(QFile::link(odd + "/loop-a.png", odd + "/loop-b.png"));
        QVERIFY(QFile::link(odd + "/it's.png", odd + "/link.png"));
        window.fillFromPreferences();
        // Closing cannot stop the walk, so the progress window refuses it while a drop runs.
        progress = sharedInstance<ProgressWindow>();
        progress->showForWalk();
        QVERIFY(!progress->close());
        progress->hideAfterWalk();
        progress->installEventFilter(&progressPaints);
    }

    void dropsAppendTheFirstItemOfEach() {
        dropOn(&window, {QUrl("https://example.org/photos/")});
        QCOMPARE(folderField->text() + imageCountLabel->text(),
                 "Please add the image's folder...0 images");

        drop(&window, {QUrl::fromLocalFile(trip), QUrl::fromLocalFile(more)}, 8, trip + "/");
        // Whatever its name says, a PNG is a picture; its extension is no image extension.
        QCOMPARE(rows(0), QStringList({".cover|image/png|8x8", "anim|image/gif|3x2",
                                       "beach|image/jpeg|64x48", "IMG_2|image/png|40x30",
                                       "IMG_10|image/png|20x10", "portrait|image/jpeg|40x30",
                                       "shot.bak||5x7", "sky|image/avif|24x16"}));
        catalogue.selectRow(2);
        QTest::keyClicks(caption, "Low tide");
        drop(caption, {QUrl::fromLocalFile(more)}, 9, more + "/");
        QCOMPARE(catalogue.cell(2, CatalogueRow::Caption), QString("Low tide"));
        QCOMPARE(caption->text(), QString());  // row 0's own caption
        drop(&window, {QUrl::fromLocalFile(more)}, 10, more + "/");
        QCOMPARE(rows(8), QStringList(2, "dune|image/png|12x6"));
        catalogue.selectRow(4);
        drop(&window, {QUrl::fromLocalFile(trip + "/beach.jpg")}, 10, trip + "/beach.jpg/");
    }

    // Pictures whose header reads are listed, even when their pixels will not decode, and
    // whatever bytes their names are made of; then every row listed so far is selected in turn.
    void aHostileFolderListsWhatReadsAndEveryRowPreviews() {
        drop(&window, {QUrl::fromLocalFile(odd)}, 21, odd + "/");
        QCOMPARE(rows(10),
                 QStringList({"🌅 dawn|image/png|40x30", latin1.chopped(4) + "|image/png|40x30",
                              "cut|image/jpeg|200x150", "dot|image/png|1x1",
                              "enormous|image/png|100000x100000", "it's|image/png|40x30",
                              "link|image/png|40x30", longName.chopped(4) + "|image/png|40x30",
                              "say \"cheese\"|image/png|40x30", "stray|image/jpeg|200x150",
                              "Tom & Jerry|image/png|40x30"}));
        // The Latin-1 name is kept byte for byte, and shown with a replacement character.
        QCOMPARE(catalogue.cell(11, CatalogueRow::FileName), latin1);
        QCOMPARE(catalogue.data(catalogue.index(11, 1), Qt::DisplayRole), "caf\uFFFD.png");

        const PeakMemory memory;
        for (int row = 0; row < catalogue.imageCount(); ++row) {
            catalogue.selectRow(row);
            QCOMPARE(window.imageCanvas()->imagePath(), catalogue.cell(row, CatalogueRow::Path));
            QTRY_VERIFY(!window.imageCanvas()->previewPending());
            // All but the enormous picture, whose pixels end long before its header says; what a
            // refusal leaves as it was, the preview suite checks.
            QVERIFY2(bool(window.imageCanvas()->picture()) ==
                         (catalogue.cell(row, CatalogueRow::FileName) != "enormous.png"),
                     qPrintable(catalogue.cell(row, CatalogueRow::FileName)));
        }
        // The enormous picture was never decoded at its full size.
        QVERIFY(memory.megabytes() < 256);
        QVERIFY(TestEnvironment::dialogs().messages.isEmpty());
    }

    // No length limit cuts a caption or a title: these are three times a text field's usual one.
    void titlesAndCaptionsKeepEveryCharacter() {
        const QString longText(100000, u'x');
        for (const char* field : {"captionField", "headTitleField", "titleField", "subtitleField"})
            window.findChild<QLineEdit*>(field)->setText(longText);
        const GallerySettings settings = gallery.settings();
        QCOMPARE(catalogue.cell(catalogue.selectedRow(), CatalogueRow::Caption) +
                     settings.headTitle + settings.title + settings.subtitle,
                 longText.repeated(4));
    }

    // A new picture's caption is its first usable description; a restored one wins, even empty.
    void picturesBringTheirOwnDescriptions() {
        const QString folder = dir.filePath("Described");
        const char *xmp = "Xmp.dc.description", *iptc = "Iptc.Application2.Caption",
                   *exif = "Exif.Image.ImageDescription";
        // Each case: the picture, what its file says, the caption it comes in with.
        const std::tuple<QString, QList<std::pair<const char*, QString>>, QString> cases[] = {
            {"0.jpg", {{xmp, "lang=x-default Dunes"}}, "Mine"},  // both restored from the page
            {"1.jpg", {{xmp, "lang=x-default Dunes"}}, ""},
            {"a.jpg", {{xmp, "lang=x-default Glacier"}, {iptc, "Ice"}, {exif, "Snow"}}, "Glacier"},
            {"b.jpg", {{xmp, "lang=x-default   "}, {iptc, "Harbour"}, {exif, "Snow"}}, "Harbour"},
            {"c.jpg", {{xmp, "lang=x-default OLYMPUS DIGITAL CAMERA"}, {exif, "Cliffs"}}, "Cliffs"},
            {"d.jpg", {{exif, "SONY DSC"}}, ""},
            {"e.jpg", {{"Exif.Image.Model", "DMC-GX80"}, {exif, "DMC-GX80   "}}, ""},
            {"f.jpg", {{exif, "Café"}}, "Café"},
            {"g.jpg", {}, ""},
        };
        QDir().mkpath(folder);
        QStringList expected;
        for (const auto& [name, fields, caption] : cases) {
            writeBytes(folder + "/" + name, encoded(QImage(4, 3, QImage::Format_RGB32), "JPEG"));
            describe(folder + "/" + name, fields);
            expected << name + "|" + caption;
        }
        writeBytes(folder + "/index.html", pageBytes({{}, {{"0.jpg", "Mine"}, {"1.jpg", ""}}}));
        catalogue.removeAll();
        TestEnvironment::dialogs().answers.enqueue(true);
        dropOn(&window, {QUrl::fromLocalFile(folder)});
        // Keeping the unwritten work reads no description: one given to a file since still counts.
        window.findChild<QLineEdit*>("titleField")->setText("Kept");
        QTRY_VERIFY(KeptWork([] { return GalleryPage(); }).find(folder));
        describe(folder + "/g.jpg", {{iptc, "Later"}});
        expected.last() = "g.jpg|Later";
        // Work brought back in another window reads the descriptions it did not hold.
        Gallery next;
        MainWindow other{next, App::instance()->preferences(), App::instance()->menuBar()};
        TestEnvironment::dialogs().answers.enqueue(true);
        next.offerKeptWork();
        for (const ImageCatalogue* shown : {&next.images(), &catalogue}) {
            QStringList rows;
            for (int row = 0; row < shown->imageCount(); ++row)
                rows << shown->cell(row, CatalogueRow::FileName) + "|" +
                            shown->cell(row, CatalogueRow::Caption);
            QCOMPARE(rows, expected);
        }
    }

    // Qt's own removal cannot reach a name that is not UTF-8.
    void cleanupTestCase() { ::unlink(nativeName::toBytes(odd + "/" + latin1).constData()); }
};

VELMORA_TEST_MAIN(IntakeTest)
#include "tst_intake.moc"
