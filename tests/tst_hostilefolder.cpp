#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QBuffer>
#include <QDataStream>
#include <QDir>
#include <QElapsedTimer>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

#include "mainwindow/windowmain.h"
#include "platform/nativename.h"
#include "preview/imagecanvas.h"
#include "support/photolike.h"
#include "support/testenvironment.h"
#include "support/testpictures.h"

namespace {
const QByteArray kGif1x1 =
    QByteArray::fromHex("47494638396101000100800000000000ffffff2c000000000100010000020144003b");

QByteArray encoded(QSize size, const char* format) {
    const QImage image = photoLike(size, 7);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return buffer.data();
}

// A well-formed PNG header declaring 100000 x 100000 RGB pixels, followed by its first rows only:
// a decoder that took the header at its word would ask for 40 GB.
QByteArray enormousPng() {
    QByteArray header;
    QDataStream out(&header, QIODevice::WriteOnly);
    out << quint32(100000) << quint32(100000) << quint8(8) << quint8(2) << quint8(0) << quint8(0)
        << quint8(0);
    const QByteArray rows = qCompress(QByteArray(4 * (1 + 3 * 100000), '\0')).mid(4);
    return QByteArray("\x89PNG\r\n\x1a\n", 8) + pngChunk("IHDR", header) + pngChunk("IDAT", rows) +
           pngChunk("IEND", {});
}

// Made by the name's bytes: not every name here is UTF-8.
void writeFile(const QString& path, const QByteArray& content) {
    const int fd = ::open(nativeName::toBytes(path).constData(), O_WRONLY | O_CREAT, 0600);
    QFile file;
    QVERIFY2(fd >= 0 && file.open(fd, QIODevice::WriteOnly, QFileDevice::AutoCloseHandle),
             qPrintable(path));
    file.write(content);
}

long peakResidentKilobytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}
}  // namespace

// Whatever lies in a dropped folder, the walk ends, lists what can be read and passes over the
// rest without a word; selecting a listed row either previews it or keeps the preview as it was.
class HostileFolderTest : public QObject {
    Q_OBJECT
    QTemporaryDir dir;
    QString folder = dir.filePath("Odd things");
    WindowMain window;
    ImageCatalogue& catalogue = window.catalogue();
    const QString longName = QString(251, QLatin1Char('n')) + ".png";  // 255 bytes

    // A name in Latin-1, as an old camera card may hold: no UTF-8 text names this file.
    const QString latin1 = nativeName::fromBytes("caf\xe9.png");

private slots:
    void initTestCase() {
        QVERIFY(QDir().mkpath(folder + "/dir.png"));
        const auto at = [this](const QString& name) { return folder + "/" + name; };
        const QByteArray png = encoded({40, 30}, "PNG");
        const QByteArray jpeg = encoded({200, 150}, "JPEG");
        writeFile(at("empty.jpg"), {});
        writeFile(at("cut.jpg"), jpeg.left(jpeg.size() / 2));
        writeFile(at("notes.png"), "Shopping list: film, batteries.\n");
        writeFile(at("enormous.png"), enormousPng());
        writeFile(at("dot.gif"), kGif1x1);
        writeFile(at("it's.png"), png);
        writeFile(at("Tom & Jerry.png"), png);
        writeFile(at("say \"cheese\".png"), png);
        writeFile(at("🌅 dawn.png"), png);
        writeFile(at(longName), png);
        QCOMPARE(QFile::encodeName(longName).size(), 255);
        QCOMPARE(mkfifo(QFile::encodeName(at("pipe.jpg")).constData(), 0600), 0);
        QVERIFY(QFile::link(at("gone.png"), at("dangling.png")));
        QVERIFY(QFile::link(at("loop-b.png"), at("loop-a.png")));
        QVERIFY(QFile::link(at("loop-a.png"), at("loop-b.png")));
        QVERIFY(QFile::link(at("it's.png"), at("link.png")));
        writeFile(at(latin1), png);
        window.Event_Open();
    }

    void theWalkListsWhatCanBeReadAndPassesOverTheRest() {
        QMimeData dragged;
        dragged.setUrls({QUrl::fromLocalFile(folder)});
        QElapsedTimer walk;
        walk.start();
        window.Event_DropObject(&dragged);
        // A walk that opened the pipe would wait here for a writer that never comes.
        QVERIFY(walk.elapsed() < 60000);

        // Pictures whose header reads are listed, even when their pixels will not decode, and
        // whatever bytes their names are made of.
        QStringList listed;
        for (int row = 0; row < catalogue.ListCount(); ++row) listed << catalogue.Cell(row, 1);
        QCOMPARE(listed, QStringList({"🌅 dawn.png", latin1, "cut.jpg", "dot.gif", "enormous.png",
                                      "it's.png", "link.png", longName, "say \"cheese\".png",
                                      "Tom & Jerry.png"}));
        QCOMPARE(catalogue.Cell(4, 4) + "x" + catalogue.Cell(4, 5), QString("100000x100000"));
        QCOMPARE(catalogue.Cell(3, 4) + "x" + catalogue.Cell(3, 5), QString("1x1"));
        QCOMPARE(catalogue.data(catalogue.index(1, 1), Qt::DisplayRole), "caf\uFFFD.png");
        QCOMPARE(window.findChild<QLabel*>("imgCount")->text(), QString("10 images"));
        QVERIFY(TestEnvironment::dialogs().messages.isEmpty());
        QCOMPARE(TestEnvironment::dialogs().beeps, 0);
    }

    void everyListedRowPreviewsOrKeepsThePreviewAsItWas() {
        auto* canvas = window.findChild<ImageCanvas*>("ImageCanvas");
        auto* info = window.findChild<QLabel*>("info");
        const long peakBefore = peakResidentKilobytes();
        for (int row = 0; row < catalogue.ListCount(); ++row) {
            const QString name = catalogue.Cell(row, 1);
            const QSize canvasBefore = canvas->size();
            const FramedPreview smallBefore = App::instance()->opSmall;
            const QString infoBefore = info->text();
            catalogue.setListIndex(row);
            QCoreApplication::processEvents();
            QCOMPARE(App::instance()->opf, folder + "/" + name);
            if (name == "enormous.png") {
                // Its pixels end long before its header says: the preview stays as it was.
                QVERIFY(!App::instance()->op);
                QCOMPARE(canvas->size(), canvasBefore);
                QCOMPARE(App::instance()->opSmall, smallBefore);
                QCOMPARE(info->text(), infoBefore);
            } else {
                QVERIFY2(App::instance()->op, qPrintable(name));
                QCOMPARE(canvas->size(), App::instance()->opSmall.size());
            }
        }
        // The enormous picture was never decoded at its full size.
        QVERIFY(peakResidentKilobytes() - peakBefore < 256 * 1024);
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

    // Qt's own removal cannot reach a name that is not UTF-8.
    void cleanupTestCase() { ::unlink(nativeName::toBytes(folder + "/" + latin1).constData()); }
};

VELMORA_TEST_MAIN(HostileFolderTest)
#include "tst_hostilefolder.moc"
