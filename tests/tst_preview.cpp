#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>

#include "preview/imagecanvas.h"
#include "resources/namedpictures.h"
#include "support/testenvironment.h"

namespace {
const QRgb kLeft = qRgb(20, 40, 200);
const QRgb kRight = qRgb(30, 180, 60);
const QRgb kFrame = qRgb(200, 30, 30);
const char* const kStartText =
    "To start, simply Drag and Drag  a folder of chosen images onto this window.\n"
    "Please take note: the images have to be already resized.";

// A picture whose left half and right half differ, so that a crop or a shift shows.
QString writeHalves(const QString& path, QSize size) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(kRight);
    QPainter(&image).fillRect(0, 0, size.width() / 2, size.height(), QColor(kLeft));
    image.save(path);
    return path;
}
}  // namespace

class PreviewTest : public QObject {
    Q_OBJECT
    QTemporaryDir dir;
    QWidget window;
    QLineEdit* resizedWidth = new QLineEdit(&window);
    QRadioButton* byWidth = new QRadioButton(&window);
    QRadioButton* byHeight = new QRadioButton(&window);
    QWidget* wRect = new QWidget(&window);
    QWidget* hRect = new QWidget(&window);
    QLabel* info = new QLabel(&window);
    ImageCanvas* canvas = new ImageCanvas(&window);
    QString photo;  // 1600 x 1067

    void paint(const QString& file, bool widthMode, const QString& wanted, int frame = 0) {
        App::instance()->opf = file;
        App::instance()->frameWidth = frame;
        (widthMode ? byWidth : byHeight)->setChecked(true);
        resizedWidth->setText(wanted);
        canvas->Invalidate();
        QCoreApplication::processEvents();
    }

private slots:
    void initTestCase() {
        canvas->setGeometry(245, 74, 360, 240);
        wRect->setGeometry(244, 73, 360, 1);
        hRect->setGeometry(242, 74, 2, 245);
        canvas->bind({resizedWidth, byWidth, wRect, hRect, info});
        App::instance()->bordColor = QColor(kFrame);
        photo = writeHalves(dir.filePath("photo.png"), {1600, 1067});
    }

    void sizesFramesAndDrawsThePicture_data() {
        QTest::addColumn<bool>("widthMode");
        QTest::addColumn<QString>("wanted");
        QTest::addColumn<int>("frame");
        QTest::addColumn<QSize>("preview");
        QTest::addColumn<QRect>("inner");
        QTest::newRow("width 720, frame 5")
            << true << "720" << 5 << QSize(720, 480) << QRect(5, 5, 710, 470);
        QTest::newRow("height 400")
            << false << "400" << 0 << QSize(599, 400) << QRect(0, 0, 599, 400);
        QTest::newRow("width empty") << true << "" << 0 << QSize(16, 10) << QRect(0, 0, 16, 10);
        QTest::newRow("height 0") << false << "0" << 0 << QSize(2, 2) << QRect(0, 0, 2, 2);
        QTest::newRow("fraction") << true << "720.9" << 0 << QSize(720, 480)
                                  << QRect(0, 0, 720, 480);
        QTest::newRow("scaled up")
            << false << "2000" << 3 << QSize(2999, 2000) << QRect(3, 3, 2993, 1994);
        QTest::newRow("all frame") << true << "16" << 8 << QSize(16, 10) << QRect();
    }
    void sizesFramesAndDrawsThePicture() {
        QFETCH(bool, widthMode);
        QFETCH(QString, wanted);
        QFETCH(int, frame);
        QFETCH(QSize, preview);
        QFETCH(QRect, inner);
        paint(photo, widthMode, wanted, frame);

        QCOMPARE(canvas->geometry(), QRect(QPoint(245, 74), preview));
        QCOMPARE(wRect->isVisibleTo(&window), widthMode);
        QCOMPARE(hRect->isVisibleTo(&window), !widthMode);
        QCOMPARE(widthMode ? wRect->width() : hRect->height(),
                 widthMode ? preview.width() : preview.height());
        QCOMPARE(info->text(), QString("Ready to create the gallery!"));

        const QImage small = App::instance()->opSmall;
        QCOMPARE(small.size(), preview);
        QCOMPARE(canvas->grab().toImage().convertToFormat(small.format()), small);
        if (frame > 0) QCOMPARE(small.pixel(0, 0), kFrame);
        if (inner.isEmpty()) {
            QCOMPARE(small.pixel(preview.width() / 2, preview.height() / 2), kFrame);
            return;
        }
        QCOMPARE(small.pixel(inner.topLeft()), kLeft);
        QCOMPARE(small.pixel(inner.bottomRight()), kRight);
        if (frame > 0) QCOMPARE(small.pixel(inner.bottomRight() + QPoint(1, 1)), kFrame);
    }

    void showsThePlaceholderWhileNothingIsSelected() {
        paint(QString(), true, "360");
        QCOMPARE(App::instance()->op, pictures::hubble());
        QCOMPARE(info->text(), QString(kStartText));
        QCOMPARE(canvas->size(), QSize(360, 240));

        paint(photo, true, "360");
        QCOMPARE(info->text(), QString("Ready to create the gallery!"));
        paint(QString(), false, "360");  // the selection went away with its row
        QCOMPARE(App::instance()->op, pictures::hubble());
        QCOMPARE(canvas->size(), QSize(540, 360));
        QCOMPARE(info->text(), QString(kStartText));
    }

    void aFileThatCannotBeDecodedChangesNothing() {
        const QString damaged = dir.filePath("damaged.png");
        QFile::copy(writeHalves(dir.filePath("whole.png"), {800, 600}), damaged);
        QFile(damaged).resize(300);
        QVERIFY(Picture::open(damaged));  // the header still reads: only decoding fails

        for (const QString& file : {damaged, dir.filePath("gone.png")}) {
            paint(photo, true, "300");
            const QImage small = App::instance()->opSmall;
            paint(file, false, "100");
            QVERIFY(!App::instance()->op);
            QCOMPARE(canvas->size(), QSize(300, 200));
            QVERIFY(wRect->isVisibleTo(&window) && !hRect->isVisibleTo(&window));
            QCOMPARE(info->text(), QString("Ready to create the gallery!"));
            QCOMPARE(App::instance()->opSmall, small);
        }
    }

    void aRepaintOrAReturnToAPictureDecodesNothing() {
        const QString other = writeHalves(dir.filePath("other.png"), {640, 480});
        paint(photo, true, "360");
        const int decodes = Picture::decodeCount();
        paint(photo, true, "360");
        paint(other, true, "360");
        paint(photo, true, "360");
        QCOMPARE(Picture::decodeCount(), decodes + 1);

        writeHalves(photo, {1200, 800});  // changed on disk: decoded anew
        paint(photo, true, "360");
        QCOMPARE(Picture::decodeCount(), decodes + 2);
        QCOMPARE(canvas->size(), QSize(360, 240));
    }
};

VELMORA_TEST_MAIN(PreviewTest)
#include "tst_preview.moc"
