#include <QElapsedTimer>
#include <QImageWriter>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

#include "mainwindow/windowmain.h"
#include "platform/slider.h"
#include "preview/imagecanvas.h"
#include "preview/sizecontrols.h"
#include "resources/namedpictures.h"
#include "support/testenvironment.h"
#include "support/testpictures.h"

namespace {
const QRgb kLeft = qRgb(20, 40, 200), kRight = qRgb(30, 180, 60), kFrame = qRgb(200, 30, 30);
const QRgb kQuarters[] = {qRgb(220, 20, 20), qRgb(20, 200, 20), qRgb(20, 20, 220),
                          qRgb(240, 220, 20)};
const QString kReady = QStringLiteral("Ready to create the gallery!");
const QString kStart = QStringLiteral(
    "To start, simply Drag and Drag  a folder of chosen images onto this window.\n"
    "Please take note: the images have to be already resized.");

// Halves of two colours, so that a crop or a shift of the picture shows.
QString writeHalves(const QString& path, QSize size) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(kRight);
    QPainter(&image).fillRect(0, 0, size.width() / 2, size.height(), QColor(kLeft));
    image.save(path);
    return path;
}

// Four quarters of four colours, so that a turn or a mirror of the picture shows in its corners.
QRgb quarterAt(QSize size, QPoint at) {
    return kQuarters[(at.x() >= size.width() / 2) + 2 * (at.y() >= size.height() / 2)];
}
QImage quarters(QSize size) {
    QImage image(size, QImage::Format_RGB32);
    QPainter painter(&image);
    for (QPoint at : {QPoint(0, 0), QPoint(size.width() / 2, 0), QPoint(0, size.height() / 2),
                      QPoint(size.width() / 2, size.height() / 2)})
        painter.fillRect(QRect(at, size), QColor(quarterAt(size, at)));
    return image;
}
// Which of the quarter colours `pixel` is, through the blur of a lossy encoder.
QRgb nearestQuarter(QRgb pixel) {
    const auto distance = [pixel](QRgb c) {
        return std::abs(qRed(c) - qRed(pixel)) + std::abs(qGreen(c) - qGreen(pixel)) +
               std::abs(qBlue(c) - qBlue(pixel));
    };
    return *std::min_element(std::begin(kQuarters), std::end(kQuarters),
                             [&](QRgb a, QRgb b) { return distance(a) < distance(b); });
}
}  // namespace

// The canvas and the size controls on stand-ins for the main window's controls, with a slider
// wide enough to hand every number back unchanged; then the real window. The suite runs at device
// pixel ratios 1 and 2.
class PreviewTest : public QObject {
    Q_OBJECT
    QTemporaryDir dir;
    QWidget window;
    QLineEdit* wanted = new QLineEdit(&window);
    QRadioButton* byWidth = new QRadioButton(&window);
    QRadioButton* byHeight = new QRadioButton(&window);
    QWidget* wRect = new QWidget(&window);
    QWidget* hRect = new QWidget(&window);
    QLabel* info = new QLabel(&window);
    ImageCanvas* canvas = new ImageCanvas(&window);
    Slider* slider = new Slider(&window);
    SizeControls sizeControls{{wanted, slider, byWidth, byHeight, canvas}};
    const QString photo = writeHalves(dir.filePath("photo.png"), {1600, 1067});
    const qreal ratio = canvas->devicePixelRatioF();

    void paint(const QString& file, bool widthMode, const QString& size, int frame = 0) {
        App::instance()->opf = file;
        App::instance()->frameWidth = frame;
        (widthMode ? byWidth : byHeight)->setChecked(true);
        wanted->setText(size);
        canvas->Invalidate();
        QCoreApplication::processEvents();
    }
    QRgb pixel(const QImage& image, QPoint at) const { return image.pixel(at * ratio); }

private slots:
    void initTestCase() {
        window.resize(3300, 2200);  // room for the largest worked example
        canvas->move(245, 74);
        canvas->bind({wanted, byWidth, wRect, hRect, info});
        slider->setRange(0, 20000);
        App::instance()->bordColor = QColor(kFrame);
    }

    void sizesFramesAndDrawsThePicture_data() {
        QTest::addColumn<bool>("widthMode");
        QTest::addColumn<QString>("size");
        QTest::addColumn<int>("frame");
        QTest::addColumn<QRect>("inner");
        QTest::addColumn<QSize>("preview");
        QTest::newRow("width 720")
            << true << "720" << 5 << QRect(5, 5, 710, 470) << QSize(720, 480);
        QTest::newRow("height 400")
            << false << "400" << 0 << QRect(0, 0, 599, 400) << QSize(599, 400);
        QTest::newRow("width empty") << true << "" << 0 << QRect(0, 0, 16, 10) << QSize(16, 10);
        QTest::newRow("height 0") << false << "0" << 0 << QRect(0, 0, 2, 2) << QSize(2, 2);
        QTest::newRow("scaled up")
            << false << "2000" << 3 << QRect(3, 3, 2993, 1994) << QSize(2999, 2000);
        QTest::newRow("all frame") << true << "16" << 8 << QRect() << QSize(16, 10);
    }
    void sizesFramesAndDrawsThePicture() {
        QFETCH(bool, widthMode);
        QFETCH(QString, size);
        QFETCH(int, frame);
        QFETCH(QRect, inner);
        QFETCH(QSize, preview);
        paint(photo, widthMode, size, frame);

        QCOMPARE(canvas->geometry(), QRect(QPoint(245, 74), preview));
        QVERIFY(wRect->isVisibleTo(&window) == widthMode &&
                hRect->isVisibleTo(&window) != widthMode);
        QCOMPARE(widthMode ? wRect->width() : hRect->height(),
                 widthMode ? preview.width() : preview.height());
        QCOMPARE(info->text(), kReady);
        QCOMPARE(App::instance()->opSmall.size(), preview);
        // Drawn at the screen's pixel density, and the same as the composed preview.
        const QImage small = App::instance()->opSmall.image(ratio);
        QCOMPARE(small.size(), preview * ratio);
        QCOMPARE(canvas->grab().toImage().convertToFormat(small.format()), small);
        if (frame > 0) QCOMPARE(pixel(small, {0, 0}), kFrame);
        if (frame > 0) QCOMPARE(pixel(small, inner.bottomRight() + QPoint(1, 1)), kFrame);
        if (!inner.isEmpty()) QCOMPARE(pixel(small, inner.topLeft()), kLeft);
        if (!inner.isEmpty()) QCOMPARE(pixel(small, inner.bottomRight()), kRight);
    }

    void aOnePixelLineStaysOneDevicePixelWide() {
        QImage lined(720, 480, QImage::Format_RGB32);
        lined.fill(Qt::white);
        QPainter(&lined).fillRect(360, 0, 1, 480, Qt::black);
        lined.save(dir.filePath("lined.png"));
        paint(dir.filePath("lined.png"), true, "360");
        const QImage shown = canvas->grab().toImage();
        int marked = 0;
        for (int x = 0; x < shown.width(); ++x) marked += qGray(shown.pixel(x, 100)) < 250;
        QCOMPARE(marked, 1);
    }

    void showsEveryPictureUprightWithinMemory_data() {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QSize>("upright");  // empty: the picture cannot be previewed
        QTest::addColumn<double>("megabytes");
        const QSize photo(64, 48);
        const QList<QTransform> turns = {{},
                                         QTransform(-1, 0, 0, 1, 0, 0),
                                         QTransform().rotate(180),
                                         QTransform(1, 0, 0, -1, 0, 0),
                                         QTransform(0, 1, 1, 0, 0, 0),
                                         QTransform().rotate(-90),
                                         QTransform(0, -1, -1, 0, 0, 0),
                                         QTransform().rotate(90)};
        for (int orientation = 1; orientation <= 8; ++orientation) {
            const QString file = dir.filePath(QString("orientation %1.jpg").arg(orientation));
            QFile out(file);
            QVERIFY(out.open(QIODevice::WriteOnly));
            out.write(jpegWithOrientation(quarters(photo).transformed(turns[orientation - 1]),
                                          orientation));
            QTest::addRow("EXIF orientation %d", orientation) << file << photo << 50.0;
        }
        QVERIFY(writeAvif(quarters(photo), dir.filePath("plain.avif")));
        QVERIFY(writeAvif(quarters(photo).transformed(turns[7]), dir.filePath("turned.avif"),
                          {"--irot", "1"}));
        QTest::newRow("AVIF") << dir.filePath("plain.avif") << photo << 50.0;
        QTest::newRow("AVIF turned") << dir.filePath("turned.avif") << photo << 50.0;

        // 60 megapixels in formats that cannot decode at a smaller scale, within 600 MB.
        const QSize large(10000, 6000);
        QImageWriter tiff(dir.filePath("large.tiff"));
        tiff.setCompression(1);
        QVERIFY(tiff.write(quarters(large)));
        QImageWriter webp(dir.filePath("large.webp"));
        webp.setQuality(100);
        QVERIFY(webp.write(quarters(large)));
        QTest::newRow("60 MP TIFF") << dir.filePath("large.tiff") << large << 600.0;
        QTest::newRow("60 MP WebP") << dir.filePath("large.webp") << large << 600.0;
        // A preview hundreds of times taller than the window costs no more than the window.
        quarters({1, 400}).save(dir.filePath("thin.png"));
        QTest::newRow("1 x 400") << dir.filePath("thin.png") << QSize(1, 400) << 50.0;
        // All its rows are there: decoding them would hold the window for half a minute.
        QFile huge(dir.filePath("huge.png"));
        QVERIFY(huge.open(QIODevice::WriteOnly) && huge.write(blackPng({60000, 60000})) > 0);
        QTest::newRow("60000 x 60000") << huge.fileName() << QSize() << 50.0;
    }
    void showsEveryPictureUprightWithinMemory() {
        QFETCH(QString, file);
        QFETCH(QSize, upright);
        QFETCH(double, megabytes);
        paint(photo, true, "360");
        const QSize before = canvas->size();
        QElapsedTimer clock;
        clock.start();
        const PeakMemory memory;
        paint(file, true, "360");
        QVERIFY2(memory.megabytes() < megabytes, qPrintable(QString::number(memory.megabytes())));
        if (upright.isEmpty()) {
            QVERIFY(clock.elapsed() < 1000);  // refused from its header, not after a long decode
            QVERIFY(!App::instance()->op);
            QCOMPARE(canvas->size(), before);
            return;
        }
        QCOMPARE(App::instance()->op->size(), upright);
        const QSize preview(360, 360 * upright.height() / upright.width());
        QCOMPARE(canvas->size(), preview);
        QCOMPARE(info->text(), kReady);
        // Composed at one pixel a point: at two, the thin picture's would take 800 MB.
        const QImage small = App::instance()->opSmall.image();
        for (const QPoint corner : {QPoint(0, 0), QPoint(1, 0), QPoint(0, 1), QPoint(1, 1)}) {
            const QPoint inPreview(corner.x() ? preview.width() - 3 : 2,
                                   corner.y() ? preview.height() - 3 : 2);
            const QPoint inPicture(corner.x() * (upright.width() - 1),
                                   corner.y() * (upright.height() - 1));
            QCOMPARE(nearestQuarter(small.pixel(inPreview)), quarterAt(upright, inPicture));
        }
    }

    void aRepaintOrAReturnToAPictureDecodesNothing() {
        const QString other = writeHalves(dir.filePath("other.png"), {640, 480});
        paint(photo, true, "360");
        const int decodes = Picture::decodeCount();
        for (const QString& file : {photo, other, photo}) paint(file, true, "360");
        QCOMPARE(Picture::decodeCount(), decodes + 1);
        writeHalves(photo, {1200, 800});  // changed on disk: decoded anew
        paint(photo, true, "360");
        QCOMPARE(Picture::decodeCount(), decodes + 2);
    }

    void aFileThatCannotBeDecodedChangesNothing() {
        const QString damaged = dir.filePath("damaged.png");
        QFile::copy(writeHalves(dir.filePath("whole.png"), {800, 600}), damaged);
        QFile(damaged).resize(300);
        QVERIFY(Picture::open(damaged));  // the header still reads: only decoding fails
        for (const QString& file : {damaged, dir.filePath("gone.png")}) {
            paint(photo, true, "300");
            const FramedPreview small = App::instance()->opSmall;
            paint(file, false, "100");
            QVERIFY(!App::instance()->op);
            QCOMPARE(canvas->size(), QSize(300, 200));
            QVERIFY(wRect->isVisibleTo(&window) && !hRect->isVisibleTo(&window));  // as before
            QCOMPARE(info->text(), kReady);
            QCOMPARE(App::instance()->opSmall, small);
        }
    }

    void committingMendsTheSizeField() {
        const QList<std::tuple<QString, QString, int>> cases = {
            {"0", "1", 1}, {"12.7", "12.7", 12}, {"ab", "1", 1}, {"9999", "9999", 9999}};
        for (const auto& [typed, kept, stored] : cases) {
            wanted->selectAll();
            QSignalSpy edits(wanted, &QLineEdit::textEdited);
            QTest::keyClicks(wanted, typed);
            QCOMPARE(edits.size(), typed.size());  // no key was swallowed
            QFocusEvent lost(QEvent::FocusOut);
            QCoreApplication::sendEvent(wanted, &lost);
            QCOMPARE(wanted->text(), kept);
            QCOMPARE(App::instance()->lastSize, stored);
        }
        wanted->setText("0");
        QTest::keyClick(wanted, Qt::Key_Return);
        QCOMPARE(wanted->text(), QString("1"));
    }

    void followsTheMainWindowFromOpeningToRemoval() {
        App* app = App::instance();
        app->opf.clear();
        app->frameWidth = 0;
        app->start();
        WindowMain* main = app->windowMain();
        const QLabel* mainInfo = main->findChild<QLabel*>("info");
        const ImageCanvas* mainCanvas = main->imageCanvas();
        // The field's first text falls to the slider's single position.
        QCOMPARE(main->findChild<QLineEdit*>("resizedWidth")->text(), QString("360"));
        QCOMPARE(app->lastSize, 360);
        QCoreApplication::processEvents();
        QCOMPARE(app->op, pictures::hubble());
        QCOMPARE(mainInfo->text(), kStart);
        QCOMPARE(mainCanvas->geometry(), QRect(245, 74, 360, 240));
        // Icons are drawn for the screen's density, not scaled up from a smaller one.
        const auto* help = main->findChild<QToolButton*>("BevelButton2");
        QCOMPARE(help->icon().pixmap(help->iconSize(), ratio).size(), help->iconSize() * ratio);

        QTemporaryDir folder;
        writeHalves(folder.filePath("a.png"), {1600, 1067});
        writeHalves(folder.filePath("b.png"), {800, 1200});
        main->older(folder.path());
        main->catalogue().setListIndex(1);
        main->findChild<QRadioButton*>("RadioButtonHeight")->click();
        QCoreApplication::processEvents();
        QCOMPARE(mainInfo->text(), kReady);
        QCOMPARE(mainCanvas->size(), QSize(240, 360));

        // A removal takes the selected file away although a row remains.
        TestEnvironment::dialogs().answers.enqueue(6);
        main->findChild<QPushButton*>("clearBtn1")->click();
        QCoreApplication::processEvents();
        QCOMPARE(app->op, pictures::hubble());
        QCOMPARE(mainInfo->text(), kStart);
        QCOMPARE(mainCanvas->size(), QSize(540, 360));
    }
};

VELMORA_TEST_MAIN(PreviewTest)
#include "tst_preview.moc"
