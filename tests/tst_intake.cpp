#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

#include "auxwindows/windowprogess.h"
#include "mainwindow/windowmain.h"
#include "platform/nativename.h"
#include "platform/sharedwindow.h"
#include "preview/imagecanvas.h"
#include "support/dropfiles.h"
#include "support/photolike.h"
#include "support/testenvironment.h"
#include "support/testpictures.h"

namespace {
// Counts how often the progress window comes on screen.
class ShowCounter : public QObject {
public:
    int shows = 0;
    bool eventFilter(QObject* watched, QEvent* event) override {
        shows += event->type() == QEvent::Show && qobject_cast<WindowProgess*>(watched);
        return false;
    }
};

QByteArray picture(QSize size, const char* format) {
    return encoded(photoLike(size, 7), format);
}
}  // namespace

// Each drop walks its first item once and lists what reads as a picture, in a file manager's
// order. Whatever lies in the folder, the walk ends and passes over the rest without a word, and
// selecting a listed row either previews it or keeps the preview as it was.
class IntakeTest : public QObject {
    Q_OBJECT
    QTemporaryDir dir;
    QString trip = dir.filePath("Trip"), more = dir.filePath("More"), odd = dir.filePath("Odd");
    WindowMain window;
    ImageCatalogue& catalogue = window.catalogue();
    QLineEdit* caption = window.findChild<QLineEdit*>("imgCaption");
    ShowCounter counter;
    int drops = 0;
    const QString longName = QString(251, u'n') + ".png";  // 255 bytes
    // A name in Latin-1, as an old camera card may hold: no UTF-8 text names this file.
    const QString latin1 = nativeName::fromBytes("caf\xe9.png");

    QString text(const char* name) const {
        if (auto* field = window.findChild<QLineEdit*>(name)) return field->text();
        return window.findChild<QLabel*>(name)->text();
    }
    // The rows from `first` on as list name, path in the test's folder, type and size.
    QStringList rows(int first) const {
        QStringList shown;
        for (int row = first; row < catalogue.ListCount(); ++row)
            shown << QStringList({catalogue.Cell(row, 0),
                                  QDir(dir.path()).relativeFilePath(catalogue.Cell(row, 2)),
                                  catalogue.Cell(row, 3),
                                  catalogue.Cell(row, 4) + "x" + catalogue.Cell(row, 5)})
                         .join('|');
        return shown;
    }
    void drop(QWidget* target, const QList<QUrl>& urls, int count, const QString& folder) {
        dropOn(target, urls);
        QCOMPARE(counter.shows, ++drops);
        QVERIFY(existingInstance<WindowProgess>()->isHidden());
        QCOMPARE(catalogue.ListCount(), count);
        QCOMPARE(text("galleryPath"), folder);
        if (count == 0) return;
        QCOMPARE(catalogue.ListIndex(), 0);
        QCOMPARE(catalogue.SelCount(), 1);
        QCOMPARE(App::instance()->opf, catalogue.Cell(0, 2));
        QCOMPARE(text("imgCount"), QString("%1 images").arg(count));
        QCOMPARE(existingInstance<WindowProgess>()->progressInfoText(),
                 QString("%1 images added, please wait.").arg(count));
        QVERIFY(TestEnvironment::dialogs().messages.isEmpty());
        QCOMPARE(TestEnvironment::dialogs().beeps, 0);
    }

private slots:
    void initTestCase() {
        QVERIFY(QDir().mkpath(trip + "/sub") && QDir().mkpath(more) &&
                QDir().mkpath(odd + "/dir.png"));
        const auto in = [](const QString& folder, const QString& name, const QByteArray& bytes) {
            writeBytes(folder + "/" + name, bytes);
        };
        in(trip, "IMG_2.png", picture({40, 30}, "PNG"));
        in(trip, "IMG_10.png", picture({20, 10}, "PNG"));
        in(trip, "beach.jpg", picture({64, 48}, "JPEG"));
        in(trip, "shot.bak", picture({5, 7}, "PNG"));
        in(trip, ".cover.png", picture({8, 8}, "PNG"));
        in(trip, "sub/inner.png", picture({9, 9}, "PNG"));
        // A GIF of 3 x 2 pixels: Qt reads GIF but cannot write it.
        in(trip, "anim.gif",
           QByteArray::fromHex("47494638396103000200800000000000ffffff2c00000000030002000002050441"
                               "100451003b"));
        in(trip, "readme.txt", "Pictures from the trip.\n");
        in(trip, "fake.jpg", "not a picture at all\n");
        // Stored sideways, as a phone stores a portrait shot: listed as it is shown.
        in(trip, "portrait.jpg", jpegWithOrientation(photoLike({30, 40}, 7), 6));
        QVERIFY(writeAvif(photoLike({24, 16}, 7), trip + "/sky.avif"));
        in(more, "dune.png", picture({12, 6}, "PNG"));

        const QByteArray png = picture({40, 30}, "PNG"), jpeg = picture({200, 150}, "JPEG");
        in(odd, "empty.jpg", {});
        in(odd, "cut.jpg", jpeg.left(jpeg.size() / 2));
        in(odd, "dot.png", picture({1, 1}, "PNG"));
        in(odd, "notes.png", "Shopping list: film, batteries.\n");
        // Its header declares 100000 x 100000 pixels, its rows end after the first: a decoder
        // that took the header at its word would ask for 10 GB.
        in(odd, "enormous.png", blackPng({100000, 100000}, 1));
        for (const QString& name :
             {QString("it's.png"), QString("Tom & Jerry.png"), QString("say \"cheese\".png"),
              QString("🌅 dawn.png"), longName, latin1})
            in(odd, name, png);
        QCOMPARE(nativeName::toBytes(longName).size(), 255);
        QCOMPARE(mkfifo(QFile::encodeName(odd + "/pipe.jpg").constData(), 0600), 0);
        QVERIFY(QFile::link(odd + "/gone.png", odd + "/dangling.png"));
        QVERIFY(QFile::link(odd + "/loop-b.png", odd + "/loop-a.png"));
        QVERIFY(QFile::link(odd + "/loop-a.png", odd + "/loop-b.png"));
        QVERIFY(QFile::link(odd + "/it's.png", odd + "/link.png"));
        window.Event_Open();
        qApp->installEventFilter(&counter);
    }

    void dropsAppendTheFirstItemOfEach() {
        QVERIFY(!existingInstance<WindowProgess>());
        drop(&window, {QUrl("https://example.org/photos/")}, 0, "Please add the image's folder...");
        drop(&window, {QUrl::fromLocalFile(trip), QUrl::fromLocalFile(more)}, 8, trip + "/");
        // Whatever its name says, a PNG is a picture; its extension is no image extension.
        QCOMPARE(
            rows(0),
            QStringList({".cover|Trip/.cover.png|image/png|8x8", "anim|Trip/anim.gif|image/gif|3x2",
                         "beach|Trip/beach.jpg|image/jpeg|64x48",
                         "IMG_2|Trip/IMG_2.png|image/png|40x30",
                         "IMG_10|Trip/IMG_10.png|image/png|20x10",
                         "portrait|Trip/portrait.jpg|image/jpeg|40x30",
                         "shot.bak|Trip/shot.bak||5x7", "sky|Trip/sky.avif|image/avif|24x16"}));

        catalogue.setListIndex(2);
        QTest::keyClicks(caption, "Low tide");
        drop(caption, {QUrl::fromLocalFile(more)}, 9, more + "/");
        QCOMPARE(catalogue.Cell(2, CatalogueRow::kCaptionCell), QString("Low tide"));
        QCOMPARE(caption->text(), QString());  // row 0's own caption
        drop(&window, {QUrl::fromLocalFile(more)}, 10, more + "/");
        QCOMPARE(rows(8), QStringList(2, "dune|More/dune.png|image/png|12x6"));
        catalogue.setListIndex(4);
        drop(&window, {QUrl::fromLocalFile(trip + "/beach.jpg")}, 10, trip + "/beach.jpg/");
    }

    void aHostileFolderListsWhatReadsAndPassesOverTheRest() {
        QElapsedTimer walk;
        walk.start();
        drop(&window, {QUrl::fromLocalFile(odd)}, 20, odd + "/");
        // A walk that opened the pipe would wait here for a writer that never comes.
        QVERIFY(walk.elapsed() < 60000);
        // Pictures whose header reads are listed, even when their pixels will not decode, and
        // whatever bytes their names are made of.
        QStringList listed;
        for (int row = 10; row < 20; ++row)
            listed << catalogue.Cell(row, 1) + " " + catalogue.Cell(row, 4) + "x" +
                          catalogue.Cell(row, 5);
        QCOMPARE(listed, QStringList({"🌅 dawn.png 40x30", latin1 + " 40x30", "cut.jpg 200x150",
                                      "dot.png 1x1", "enormous.png 100000x100000", "it's.png 40x30",
                                      "link.png 40x30", longName + " 40x30",
                                      "say \"cheese\".png 40x30", "Tom & Jerry.png 40x30"}));
        QCOMPARE(catalogue.data(catalogue.index(11, 1), Qt::DisplayRole), "caf\uFFFD.png");
    }

    void everyListedRowPreviewsOrKeepsThePreviewAsItWas() {
        auto* canvas = window.findChild<ImageCanvas*>("ImageCanvas");
        const PeakMemory memory;
        for (int row = 0; row < catalogue.ListCount(); ++row) {
            const QSize canvasBefore = canvas->size();
            const FramedPreview smallBefore = App::instance()->opSmall;
            const QString infoBefore = text("info");
            catalogue.setListIndex(row);
            QCoreApplication::processEvents();
            QCOMPARE(App::instance()->opf, catalogue.Cell(row, 2));
            if (catalogue.Cell(row, 1) == "enormous.png") {
                // Its pixels end long before its header says: the preview stays as it was.
                QVERIFY(!App::instance()->op);
                QCOMPARE(canvas->size(), canvasBefore);
                QCOMPARE(App::instance()->opSmall, smallBefore);
                QCOMPARE(text("info"), infoBefore);
            } else {
                QVERIFY2(App::instance()->op, qPrintable(catalogue.Cell(row, 1)));
                QCOMPARE(canvas->size(), App::instance()->opSmall.size());
            }
        }
        // The enormous picture was never decoded at its full size.
        QVERIFY(memory.megabytes() < 256);
        QVERIFY(TestEnvironment::dialogs().messages.isEmpty());
    }

    void titlesAndCaptionsKeepEveryCharacter() {
        const QString longText(100000, u'x');  // three times a text field's usual limit
        for (const char* field :
             {"imgCaption", "galleryHTMLtitle", "galleryTitle", "gallerySubTitle"})
            window.findChild<QLineEdit*>(field)->setText(longText);
        const GallerySettings settings = window.gallerySettings();
        QCOMPARE(catalogue.Cell(catalogue.ListIndex(), CatalogueRow::kCaptionCell), longText);
        QCOMPARE(settings.galleryHTMLtitle + settings.galleryTitle + settings.gallerySubTitle,
                 longText + longText + longText);
    }

    void theProgressWindowCannotBeClosedDuringADrop() {
        WindowProgess* progress = sharedInstance<WindowProgess>();
        progress->Show();
        QVERIFY(!progress->close() && progress->isVisible());
        progress->Hide();
    }

    // Qt's own removal cannot reach a name that is not UTF-8.
    void cleanupTestCase() { ::unlink(nativeName::toBytes(odd + "/" + latin1).constData()); }
};

VELMORA_TEST_MAIN(IntakeTest)
#include "tst_intake.moc"
