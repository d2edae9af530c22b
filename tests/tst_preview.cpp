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
const QRgb kFrame = qRgb(200, 200, 30);  // apart from the four quarters' colours
const QString kReady = QStringLiteral("Ready to create the gallery!");

// Quarters of red, green, blue and white, so that a turn or a mirror shows in the corners.
QRgb quarterAt(QSize size, QPoint at) {
    static const QRgb kQuarters[] = {0xffff0000, 0xff00ff00, 0xff0000ff, 0xffffffff};
    return kQuarters[(at.x() >= size.width() / 2) + 2 * (at.y() >= size.height() / 2)];
}
QImage quarters(QSize size) {
    QImage image(size, QImage::Format_RGB32);
    for (int x : {0, size.width() / 2})
        for (int y : {0, size.height() / 2})
            QPainter(&image).fillRect(QRect({x, y}, size), QColor(quarterAt(size, {x, y})));
    return image;
}
QString writeQuarters(const QString& path, QSize size) {
    quarters(size).save(path);
    return path;
}
// The colour through the blur of a lossy encoder: which of the channels are on.
int channels(QRgb pixel) {
    return (qRed(pixel) > 127) | (qGreen(pixel) > 127) << 1 | (qBlue(pixel) > 127) << 2;
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
    const QString photo = writeQuarters(dir.filePath("photo.png"), {1600, 1067});
    const qreal ratio = canvas->devicePixelRatioF();

    void paint(const QString& file, bool widthMode, const QString& size, int frame = 0) {
        App::instance()->opf = file;
        App::instance()->frameWidth = frame;
        (widthMode ? byWidth : byHeight)->setChecked(true);
        wanted->setText(size);
        canvas->Invalidate();
        QCoreApplication::processEvents();
    }
    QString path(const char* name) const { return dir.filePath(name); }

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
        // Drawn at the screen's pixel density, as the composed preview is.
        QCOMPARE(App::instance()->opSmall.size(), preview);
        const QImage small = App::instance()->opSmall.image(ratio);
        QCOMPARE(canvas->grab().toImage().convertToFormat(small.format()), small);
        QCOMPARE(small.size(), preview * ratio);
        const auto pixel = [&](QPoint at) { return small.pixel(at * ratio); };
        if (frame > 0) QCOMPARE(pixel({0, 0}), kFrame);
        if (frame > 0) QCOMPARE(pixel(inner.bottomRight() + QPoint(1, 1)), kFrame);
        if (!inner.isEmpty()) QCOMPARE(channels(pixel(inner.topLeft())), channels(0xffff0000));
        if (!inner.isEmpty()) QCOMPARE(channels(pixel(inner.bottomRight())), channels(~0u));
    }

    void aOnePixelLineStaysOneDevicePixelWide() {
        QImage lined(720, 480, QImage::Format_RGB32);
        lined.fill(Qt::white);
        QPainter(&lined).fillRect(360, 0, 1, 480, Qt::black);
        lined.save(path("lined.png"));
        paint(path("lined.png"), true, "360");
        const QImage shown = canvas->grab().toImage();
        int marked = 0;
        for (int x = 0; x < shown.width(); ++x) marked += qGray(shown.pixel(x, 100)) < 250;
        QCOMPARE(marked, 1);
    }

    void showsEveryPictureUprightWithinMemory_data() {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QSize>("upright");  // empty: not to be previewed
        QTest::addColumn<double>("megabytes");
        const QSize shot(64, 48);
        // What turns each picture as stored into the upright one: EXIF orientations 1 to 8.
        const QList<QTransform> turns = {{},
                                         {-1, 0, 0, 1, 0, 0},
                                         {-1, 0, 0, -1, 0, 0},
                                         {1, 0, 0, -1, 0, 0},
                                         {0, 1, 1, 0, 0, 0},
                                         {0, 1, -1, 0, 0, 0},
                                         {0, -1, -1, 0, 0, 0},
                                         {0, -1, 1, 0, 0, 0}};
        for (int orientation = 1; orientation <= 8; ++orientation) {
            QFile file(dir.filePath(QString("orientation %1.jpg").arg(orientation)));
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write(jpegWithOrientation(
                quarters(shot).transformed(turns[orientation - 1].inverted()), orientation));
            QTest::addRow("EXIF orientation %d", orientation) << file.fileName() << shot << 50.0;
        }
        QVERIFY(writeAvif(quarters(shot), path("plain.avif")));
        QVERIFY(writeAvif(quarters(shot).transformed(turns[7].inverted()), path("turned.avif"),
                          {"--irot", "1"}));
        QTest::newRow("AVIF") << path("plain.avif") << shot << 50.0;
        QTest::newRow("AVIF turned") << path("turned.avif") << shot << 50.0;
        // 60 megapixels in formats that cannot decode at a smaller scale in Qt.
        QImageWriter tiff(path("large.tiff")), webp(path("large.webp"));
        tiff.setCompression(1);
        webp.setQuality(100);
        QVERIFY(tiff.write(quarters({10000, 6000})) && webp.write(quarters({10000, 6000})));
        QTest::newRow("60 MP TIFF") << path("large.tiff") << QSize(10000, 6000) << 600.0;
        QTest::newRow("60 MP WebP") << path("large.webp") << QSize(10000, 6000) << 600.0;
        // 400 times taller than the window: it costs what the window shows.
        quarters({1, 400}).save(path("thin.png"));
        QTest::newRow("1 x 400") << path("thin.png") << QSize(1, 400) << 50.0;
        // All its rows are there: a decode would hold the window for many seconds.
        QFile huge(path("huge.png"));
        QVERIFY(huge.open(QIODevice::WriteOnly) && huge.write(blackPng({60000, 60000})) > 0);
        QFile::copy(photo, path("damaged.png"));
        QFile(path("damaged.png")).resize(QFileInfo(photo).size() / 2);  // only the header reads
        QTest::newRow("60000 x 60000") << huge.fileName() << QSize() << 50.0;
        QTest::newRow("damaged") << path("damaged.png") << QSize() << 50.0;
        QTest::newRow("gone") << path("gone.png") << QSize() << 50.0;
    }
    void showsEveryPictureUprightWithinMemory() {
        QFETCH(QString, file);
        QFETCH(QSize, upright);
        QFETCH(double, megabytes);
        paint(photo, false, "360");
        const FramedPreview before = App::instance()->opSmall;
        QElapsedTimer clock;
        clock.start();
        const PeakMemory memory;
        paint(file, true, "360");
        QVERIFY2(memory.megabytes() < megabytes, qPrintable(QString::number(memory.megabytes())));
        QCOMPARE(info->text(), kReady);
        if (upright.isEmpty()) {  // nothing changes, and at once
            QVERIFY(clock.elapsed() < 1000 && !App::instance()->op);
            QVERIFY(hRect->isVisibleTo(&window) && !wRect->isVisibleTo(&window));
            QCOMPARE(canvas->size(), before.size());
            QCOMPARE(App::instance()->opSmall, before);
            return;
        }
        QCOMPARE(App::instance()->op->size(), upright);
        const QSize preview(360, 360 * upright.height() / upright.width());
        QCOMPARE(canvas->size(), preview);
        // Composed at one pixel a point: at two, the thin picture's would take 800 MB.
        const QImage small = App::instance()->opSmall.image();
        for (int x : {0, 1})
            for (int y : {0, 1})
                QCOMPARE(channels(small.pixel(x ? preview.width() - 2 : 1,
                                              y ? preview.height() - 2 : 1)),
                         channels(quarterAt(upright,
                                            {x * upright.width() - x, y * upright.height() - y})));
    }

    void aRepaintOrAReturnToAPictureDecodesNothing() {
        const QString other = writeQuarters(path("other.png"), {640, 480});
        paint(photo, true, "360");
        const int decodes = Picture::decodeCount();
        for (const QString& file : {photo, other, photo}) paint(file, true, "360");
        QCOMPARE(Picture::decodeCount(), decodes + 1);
        writeQuarters(photo, {1200, 800});  // changed on disk: decoded anew
        paint(photo, true, "360");
        QCOMPARE(Picture::decodeCount(), decodes + 2);
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
        QVERIFY(mainInfo->text().startsWith("To start, simply Drag and Drag  a folder"));
        QCOMPARE(mainCanvas->geometry(), QRect(245, 74, 360, 240));
        // Icons are drawn for the screen's density, not scaled up from a smaller one.
        const auto* help = main->findChild<QToolButton*>("BevelButton2");
        QCOMPARE(help->icon().pixmap(help->iconSize(), ratio).size(), help->iconSize() * ratio);

        QTemporaryDir folder;
        writeQuarters(folder.filePath("a.png"), {1600, 1067});
        writeQuarters(folder.filePath("b.png"), {800, 1200});
        main->older(folder.path());
        main->catalogue().setListIndex(1);
        main->findChild<QRadioButton*>("RadioButtonHeight")->click();
        QCoreApplication::processEvents();
        QCOMPARE(mainInfo->text(), kReady);
        QCOMPARE(mainCanvas->size(), QSize(240, 360));
        QVERIFY(app->op && app->op->path().endsWith("b.png"));
    }
};

VELMORA_TEST_MAIN(PreviewTest)
#include "tst_preview.moc"
