#include <QImageWriter>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QRadioButton>
#include <QToolButton>

#include "mainwindow/mainwindow.h"
#include "platform/slider.h"
#include "preview/imagecanvas.h"
#include "preview/sizecontrols.h"
#include "resources/namedpictures.h"
#include "support/testenvironment.h"
#include "support/testpictures.h"

namespace {
const QRgb kFrame = qRgb(200, 200, 30);  // apart from the four quarters' colours

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
    QWidget* widthGuide = new QWidget(&window);
    QWidget* heightGuide = new QWidget(&window);
    QLabel* infoLabel = new QLabel(&window);
    ImageCanvas* canvas = new ImageCanvas(&window);
    Slider* slider = new Slider(&window);
    SizeControls sizeControls{{wanted, slider, byWidth, byHeight, canvas},
                              App::instance()->preferences()};
    const QString photo = path("photo.png");
    const qreal ratio = canvas->devicePixelRatioF();

    // `size` is the mode, w or h, then the size field's text.
    void paint(const QString& file, const QString& size, int frame = 0) {
        App::instance()->preferences().frameWidth = frame;
        (size.startsWith('w') ? byWidth : byHeight)->setChecked(true);
        wanted->setText(size.mid(1));
        canvas->showImage(file);
        QTRY_VERIFY_WITH_TIMEOUT(!canvas->decoding(), 60000);
    }
    QString path(const QString& name) const { return dir.filePath(name); }

private slots:
    void initTestCase() {
        window.resize(3300, 2200);  // room for the largest worked example
        canvas->move(245, 74);
        canvas->bind({wanted, byWidth, widthGuide, heightGuide, infoLabel},
                     App::instance()->preferences());
        slider->setRange(0, 20000);
        App::instance()->preferences().frameColour = QColor(kFrame);
        QVERIFY(quarters({1600, 1067}).save(photo));
    }

    // The worked examples, then pictures that must show upright and sharp within their memory,
    // or not at all.
    void sizesFramesAndDrawsEveryPictureUpright_data() {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("size");
        QTest::addColumn<int>("frame");
        QTest::addColumn<QSize>("preview");  // empty: not to be previewed
        QTest::addColumn<double>("megabytes");
        const auto add = [](const char* name, const QString& file, QSize preview,
                            double megabytes = 50, const char* size = "w360", int frame = 0) {
            QTest::newRow(name) << file << QString(size) << frame << preview << megabytes;
        };
        add("width 720", photo, {720, 480}, 50, "w720", 5);
        add("height 400", photo, {599, 400}, 50, "h400");
        add("width empty", photo, {16, 10}, 50, "w");
        add("height 0", photo, {2, 2}, 50, "h0");
        add("scaled up", photo, {2999, 2000}, 600, "h2000", 3);
        add("all frame", photo, {16, 10}, 50, "w16", 8);
        // What turns each picture as stored into the upright one: EXIF orientations 1 to 8.
        const QList<QTransform> turns = {
            QTransform(),       {-1, 0, 0, 1, 0, 0}, {-1, 0, 0, -1, 0, 0}, {1, 0, 0, -1, 0, 0},
            {0, 1, 1, 0, 0, 0}, {0, 1, -1, 0, 0, 0}, {0, -1, -1, 0, 0, 0}, {0, -1, 1, 0, 0, 0}};
        const QSize shot(64, 48);
        for (int orientation = 1; orientation <= 8; ++orientation) {
            const QString file = dir.filePath(QString("orientation %1.").arg(orientation));
            const QImage stored = quarters(shot).transformed(turns[orientation - 1].inverted());
            writeBytes(file + "jpg", jpegWithOrientation(stored, orientation));
            writeBytes(file + "png", pngWithOrientation(stored, orientation));
            for (const char* type : {"jpg", "png"})
                add(qPrintable(file.section('/', -1) + type), file + type, {360, 270});
        }
        // Qt's decoder also finds the tag in a later directory of the block.
        writeBytes(path("second directory.jpg"),
                   jpegWithOrientation(quarters(shot).transformed(turns[5].inverted()), 6, true));
        add("second directory.jpg", path("second directory.jpg"), {360, 270});
        QVERIFY(writeAvif(quarters(shot), path("plain.avif")));
        QVERIFY(writeAvif(quarters(shot).transformed(turns[7].inverted()), path("turned.avif"),
                          {"--irot", "1"}));
        for (const char* name : {"plain.avif", "turned.avif"}) add(name, path(name), {360, 270});
        // 60 megapixels in formats that cannot decode at a smaller scale in Qt.
        QImageWriter tiff(path("large.tiff"));
        tiff.setCompression(1);
        QVERIFY(tiff.write(quarters({10000, 6000})));
        writeBytes(path("large.webp"), encoded(quarters({10000, 6000}), "webp", 100));
        for (const char* name : {"large.tiff", "large.webp"})
            add(name, path(name), {360, 216}, 600);
        // 400 times taller than the window: it costs what the window shows.
        QVERIFY(quarters({1, 400}).save(path("thin.png")));
        add("1 x 400", path("thin.png"), {360, 144000});
        // Just over the pixel limit, under Qt's own limit on memory: all its rows are there, and
        // a decode would take half a gigabyte.
        writeBytes(path("huge.png"), blackPng({10240, 10000}));
        writeBytes(path("damaged.png"), encoded(quarters(shot), "PNG").left(99));  // header only
        for (const char* name : {"huge.png", "damaged.png", "gone.png"}) add(name, path(name), {});
    }
    void sizesFramesAndDrawsEveryPictureUpright() {
        QFETCH(QString, file);
        QFETCH(QString, size);
        QFETCH(int, frame);
        QFETCH(QSize, preview);
        QFETCH(double, megabytes);
        paint(photo, "h360");
        const FramedPreview before = canvas->framedPreview();
        const PeakMemory memory;
        paint(file, size, frame);
        QVERIFY2(memory.megabytes() < megabytes, qPrintable(QString::number(memory.megabytes())));
        QCOMPARE(infoLabel->text(),
                 file.endsWith("huge.png")
                     ? "This image is too large to preview (10240 × 10000 pixels)."
                     : QString("Ready to create the gallery!"));
        if (preview.isEmpty()) {  // nothing changes
            QVERIFY(!canvas->picture());
            QCOMPARE(canvas->size(), before.size());
            QCOMPARE(canvas->framedPreview(), before);
            return;
        }
        const bool widthMode = size.startsWith('w');
        QCOMPARE(canvas->geometry(), QRect(QPoint(245, 74), preview));
        QVERIFY(widthGuide->isVisibleTo(&window) == widthMode &&
                heightGuide->isVisibleTo(&window) != widthMode);
        QCOMPARE(widthMode ? widthGuide->width() : heightGuide->height(),
                 widthMode ? preview.width() : preview.height());
        // Drawn at the screen's pixel density, as the composed preview is; the thin picture's
        // would take 800 MB at two pixels a point.
        if (preview.height() < 5000) {
            const QImage sharp = canvas->framedPreview().image(ratio);
            QCOMPARE(canvas->grab().toImage().convertToFormat(sharp.format()), sharp);
        }
        const QImage small = canvas->framedPreview().image();
        const QRect inner = QRect(QPoint(), preview).adjusted(frame, frame, -frame, -frame);
        if (frame > 0) QCOMPARE(small.pixel(0, 0), kFrame);
        if (frame > 0) QCOMPARE(small.pixel(inner.bottomRight() + QPoint(1, 1)), kFrame);
        const QSize source = canvas->picture()->size();
        for (int corner = 0; corner < 4 && !inner.isEmpty(); ++corner) {
            const int x = corner % 2, y = corner / 2;
            QCOMPARE(
                channels(small.pixel(x ? inner.right() : inner.left(),
                                     y ? inner.bottom() : inner.top())),
                channels(quarterAt(source, {x * (source.width() - 1), y * (source.height() - 1)})));
        }
    }

    // Stored on its side, so that it is scaled as stored, not squashed and stretched back.
    void aOnePixelLineStaysOneDevicePixelWide() {
        QImage lined(720, 480, QImage::Format_RGB32);
        lined.fill(Qt::white);
        QPainter(&lined).fillRect(360, 0, 1, 480, Qt::black);
        writeBytes(path("lined.jpg"),
                   jpegWithOrientation(lined.transformed(QTransform().rotate(-90)), 6));
        paint(path("lined.jpg"), "w360");
        const QImage shown = canvas->grab().toImage();
        int marked = 0;
        for (int x = 0; x < shown.width(); ++x) marked += qGray(shown.pixel(x, 100)) < 250;
        QCOMPARE(marked, 1);
    }

    void aRepaintOrAReturnToAPictureDecodesNothing() {
        QVERIFY(quarters({640, 480}).save(path("other.png")));
        paint(photo, "w360");
        const int decodes = Picture::decodeCount();
        for (const QString& file : {photo, path("other.png"), photo}) paint(file, "w360");
        QCOMPARE(Picture::decodeCount(), decodes + 1);
        QVERIFY(quarters({1200, 800}).save(photo));  // changed on disk: decoded anew
        paint(photo, "w360");
        QCOMPARE(Picture::decodeCount(), decodes + 2);
    }

    // Selections one after another, the neighbours to read ahead after a colon, each taking its
    // layout step (and with a plus, until its decode has begun); at a dot every decode ends and the
    // count starts. The last selection shows, and the decodes after the dot are at most as many as
    // given.
    void showsTheLastSelectionAndReadsAhead_data() {
        QTest::addColumn<QString>("size");
        QTest::addColumn<QStringList>("steps");
        QTest::addColumn<int>("decodes");
        for (const char* name : {"up.png", "down.png", "left.png", "fresh.png"})
            QVERIFY(quarters({640, 480}).save(path(name)));
        QImage slow(4000, 3000, QImage::Format_RGB32);
        slow.fill(Qt::black);
        for (const char* name : {"slow1.bmp", "slow2.bmp", "slow3.bmp"})
            QVERIFY(slow.save(path(name)));
        // Two slow decodes run and their results come late; the third is replaced before it starts.
        QTest::newRow("results left behind")
            << "w360" << QStringList{".", "slow1.bmp+", "slow2.bmp+", "slow3.bmp", "fresh.png"}
            << 3;
        QTest::newRow("read ahead down and up")
            << "w360" << QStringList{"photo.png:down.png,up.png", ".", "up.png", "down.png"} << 0;
        // Each neighbour alone fits beside the shown preview in memory, both do not (at this size
        // in the window, for this pixel ratio): the next is read ahead, and nothing pushes out the
        // shown one or the next.
        const QString crowded = ratio > 1 ? "w1600" : "w6000";
        QTest::newRow("the shown one stays")
            << crowded << QStringList{"photo.png:down.png,up.png", ".", "photo.png"} << 0;
        QTest::newRow("the next one stays")
            << crowded << QStringList{"photo.png:down.png,up.png", ".", "down.png"} << 0;
    }
    void showsTheLastSelectionAndReadsAhead() {
        QFETCH(QString, size);
        QFETCH(QStringList, steps);
        QFETCH(int, decodes);
        paint(path("left.png"), size);
        int before = Picture::decodeCount();
        for (const QString& step : steps) {
            if (step == ".") {
                QTRY_VERIFY_WITH_TIMEOUT(!canvas->decoding(), 60000);
                before = Picture::decodeCount();
                continue;
            }
            QStringList neighbours;
            for (const QString& name : step.section(':', 1).split(',', Qt::SkipEmptyParts))
                neighbours << path(name);
            const QString name = step.section(':', 0, 0);
            const int started = Picture::decodeCount();
            canvas->showImage(path(name.chopped(name.endsWith('+'))), neighbours);
            QCoreApplication::processEvents();
            while (name.endsWith('+') && Picture::decodeCount() == started)
                QCoreApplication::processEvents();
        }
        QTRY_VERIFY_WITH_TIMEOUT(!canvas->decoding(), 60000);
        QCOMPARE(canvas->picture()->path(), path(steps.last()));
        QCOMPARE(canvas->grab({10, 10, 1, 1}).toImage().pixel(0, 0), quarterAt({2, 2}, {0, 0}));
        QVERIFY2(Picture::decodeCount() - before <= decodes,
                 qPrintable(QString::number(Picture::decodeCount() - before)));
    }

    // Typed, then committed by Return ("\r") or else by leaving the field: the field's text and
    // the size kept.
    void committingMendsTheSizeField() {
        QStringList committed;
        for (const QString typed : {"0", "12.7", "ab", "9999", "0\r"}) {
            wanted->selectAll();
            QTest::keyClicks(wanted, typed);
            QFocusEvent lost(QEvent::FocusOut);
            if (!typed.endsWith('\r')) QCoreApplication::sendEvent(wanted, &lost);
            committed << wanted->text() + " " +
                             QString::number(App::instance()->preferences().previewSize);
        }
        QCOMPARE(committed.join(", "), "1 1, 12.7 12, 1 1, 9999 9999, 1 1");
    }

    void followsTheMainWindowFromItsOpening() {
        App* app = App::instance();
        app->start();
        MainWindow* main = app->mainWindow();
        QTRY_VERIFY(!main->imageCanvas()->decoding());
        // The field's first text falls to the slider's single position; the placeholder shows.
        QCOMPARE(main->findChild<QLineEdit*>("previewSizeField")->text(), QString("360"));
        QCOMPARE(app->preferences().previewSize, 360);
        QCOMPARE(main->imageCanvas()->picture(), pictures::placeholder());
        QCOMPARE(main->imageCanvas()->geometry(), QRect(245, 74, 360, 240));
        // Icons are drawn for the screen's density, not scaled up from a smaller one.
        const auto* help = main->findChild<QToolButton*>("helpButton");
        QCOMPARE(help->icon().pixmap(help->iconSize(), ratio).size(), help->iconSize() * ratio);

        // The height button repaints at once.
        main->findChild<QRadioButton*>("byHeightButton")->click();
        QTRY_VERIFY(!main->imageCanvas()->decoding());
        QCOMPARE(main->imageCanvas()->size(), QSize(540, 360));
    }
};

VELMORA_TEST_MAIN(PreviewTest)
#include "tst_preview.moc"
