#include <QDir>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

#include "auxwindows/windowprogess.h"
#include "mainwindow/windowmain.h"
#include "platform/sharedwindow.h"
#include "support/dropfiles.h"
#include "support/testenvironment.h"
#include "support/testpictures.h"

namespace {
// A GIF of 3 x 2 pixels: Qt reads GIF but cannot write it.
const QByteArray kGif = QByteArray::fromHex(
    "47494638396103000200800000000000ffffff2c00000000030002000002050441100451003b");

void writeImage(const QString& path, int width, int height, const char* format) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::darkCyan);
    QVERIFY(image.save(path, format));
}

void writeFile(const QString& path, const QByteArray& content) {
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}

// Counts how often the progress window comes on screen.
class ShowCounter : public QObject {
public:
    int shows = 0;
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Show && qobject_cast<WindowProgess*>(watched)) ++shows;
        return false;
    }
};
}  // namespace

class IntakeTest : public QObject {
    Q_OBJECT
    QTemporaryDir dir;
    QString folder = dir.filePath("Trip");
    QString second = dir.filePath("More");
    WindowMain window;
    ImageCatalogue& catalogue = window.catalogue();
    ShowCounter counter;

    QString text(const char* name) const {
        if (auto* field = window.findChild<QLineEdit*>(name)) return field->text();
        return window.findChild<QLabel*>(name)->text();
    }
    QStringList row(int index) const {
        QStringList cells;
        for (int cell : {0, 1, 2, 3, 4, 5, 7}) cells << catalogue.Cell(index, cell);
        return cells;
    }

private slots:
    void initTestCase() {
        QVERIFY(QDir().mkpath(folder + "/sub") && QDir().mkpath(second));
        writeImage(folder + "/IMG_2.png", 40, 30, "PNG");
        writeImage(folder + "/IMG_10.png", 20, 10, "PNG");
        writeImage(folder + "/beach.jpg", 64, 48, "JPEG");
        writeImage(folder + "/shot.bak", 5, 7, "PNG");
        writeImage(folder + "/.cover.png", 8, 8, "PNG");
        writeImage(folder + "/sub/inner.png", 9, 9, "PNG");
        writeFile(folder + "/anim.gif", kGif);
        writeFile(folder + "/readme.txt", "Pictures from the trip.\n");
        writeFile(folder + "/fake.jpg", "not a picture at all\n");
        // Stored sideways, as a phone stores a portrait shot: listed as it is shown.
        writeFile(folder + "/portrait.jpg",
                  jpegWithOrientation(QImage(30, 40, QImage::Format_RGB32), 6));
        QVERIFY(writeAvif(QImage(24, 16, QImage::Format_RGB32), folder + "/sky.avif"));
        writeImage(second + "/dune.png", 12, 6, "PNG");
        window.Event_Open();
        qApp->installEventFilter(&counter);
    }

    void aDragOfNoLocalFileOnlyShowsAndHidesTheProgressWindow() {
        QVERIFY(!existingInstance<WindowProgess>());
        dropOn(&window, {QUrl("https://example.org/photos/")});
        QCOMPARE(counter.shows, 1);
        QVERIFY(existingInstance<WindowProgess>()->isHidden());
        QCOMPARE(catalogue.ListCount(), 0);
        QCOMPARE(text("galleryPath"), QString("Please add the image's folder..."));
    }

    void aFolderGivesOneRowPerPictureInFileManagerOrder() {
        dropOn(&window, {QUrl::fromLocalFile(folder), QUrl::fromLocalFile(second)});
        QCOMPARE(catalogue.ListCount(), 8);
        const QString at = folder + "/";
        QCOMPARE(row(0), QStringList({".cover", ".cover.png", at + ".cover.png", "image/png", "8",
                                      "8", ""}));
        QCOMPARE(row(1),
                 QStringList({"anim", "anim.gif", at + "anim.gif", "image/gif", "3", "2", ""}));
        QCOMPARE(row(2), QStringList({"beach", "beach.jpg", at + "beach.jpg", "image/jpeg", "64",
                                      "48", ""}));
        QCOMPARE(row(3).mid(0, 2), QStringList({"IMG_2", "IMG_2.png"}));
        QCOMPARE(row(4).mid(0, 2), QStringList({"IMG_10", "IMG_10.png"}));
        QCOMPARE(row(5), QStringList({"portrait", "portrait.jpg", at + "portrait.jpg", "image/jpeg",
                                      "40", "30", ""}));
        // Whatever its name says, a PNG is a picture; its extension is no image extension.
        QCOMPARE(row(6), QStringList({"shot.bak", "shot.bak", at + "shot.bak", "", "5", "7", ""}));
        QCOMPARE(row(7),
                 QStringList({"sky", "sky.avif", at + "sky.avif", "image/avif", "24", "16", ""}));

        QCOMPARE(text("imgCount"), QString("8 images"));
        QCOMPARE(existingInstance<WindowProgess>()->progressInfoText(),
                 QString("8 images added, please wait."));
        QVERIFY(existingInstance<WindowProgess>()->isHidden());
        QCOMPARE(text("galleryPath"), at);
        QCOMPARE(catalogue.ListIndex(), 0);
        QCOMPARE(catalogue.SelCount(), 1);
        QCOMPARE(App::instance()->opf, at + ".cover.png");
    }

    void aSecondDropAppendsAndKeepsTheCaptions() {
        catalogue.setListIndex(2);
        QTest::keyClicks(window.findChild<QLineEdit*>("imgCaption"), "Low tide");
        dropOn(window.findChild<QLineEdit*>("imgCaption"), {QUrl::fromLocalFile(second)});
        QCOMPARE(catalogue.ListCount(), 9);
        QCOMPARE(row(8).mid(0, 2), QStringList({"dune", "dune.png"}));
        QCOMPARE(catalogue.Cell(2, 7), QString("Low tide"));
        QCOMPARE(text("imgCount"), QString("9 images"));
        QCOMPARE(existingInstance<WindowProgess>()->progressInfoText(),
                 QString("9 images added, please wait."));
        QCOMPARE(text("galleryPath"), second + "/");
        QCOMPARE(catalogue.ListIndex(), 0);
        // Row 0 is selected again and shows its own caption.
        QCOMPARE(text("imgCaption"), QString());
    }

    void aSingleFileAddsNothingButBecomesTheFolder() {
        catalogue.setListIndex(4);
        dropOn(&window, {QUrl::fromLocalFile(folder + "/beach.jpg")});
        QCOMPARE(catalogue.ListCount(), 9);
        QCOMPARE(catalogue.ListIndex(), 0);
        QCOMPARE(text("galleryPath"), folder + "/beach.jpg/");
        QCOMPARE(counter.shows, 4);  // once for every drop
    }

    void theProgressWindowCannotBeClosedDuringADrop() {
        WindowProgess* progress = sharedInstance<WindowProgess>();
        progress->Show();
        QVERIFY(!progress->close());
        QVERIFY(progress->isVisible());
        progress->Hide();
        QCOMPARE(progress->progressInfoText(), QString("9 images added, please wait."));
    }
};

VELMORA_TEST_MAIN(IntakeTest)
#include "tst_intake.moc"
