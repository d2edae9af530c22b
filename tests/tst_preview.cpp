#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include "mainwindow/windowmain.h"
#include "platform/slider.h"
#include "preview/imagecanvas.h"
#include "preview/sizecontrols.h"
#include "resources/namedpictures.h"
#include "support/testenvironment.h"

namespace {
const QRgb kLeft = qRgb(20, 40, 200), kRight = qRgb(30, 180, 60), kFrame = qRgb(200, 30, 30);
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
}  // namespace

// The canvas and the size controls on stand-ins for the main window's controls, with a slider
// wide enough to hand every number back unchanged; then the real window.
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

    void paint(const QString& file, bool widthMode, const QString& size, int frame = 0) {
        App::instance()->opf = file;
        App::instance()->frameWidth = frame;
        (widthMode ? byWidth : byHeight)->setChecked(true);
        wanted->setText(size);
        canvas->Invalidate();
        QCoreApplication::processEvents();
    }

private slots:
    void initTestCase() {
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
        const QImage small = App::instance()->opSmall;
        QCOMPARE(canvas->grab().toImage().convertToFormat(small.format()), small);
        QCOMPARE(small.size(), preview);
        if (frame > 0) QCOMPARE(small.pixel(0, 0), kFrame);
        if (frame > 0) QCOMPARE(small.pixel(inner.bottomRight() + QPoint(1, 1)), kFrame);
        if (!inner.isEmpty()) QCOMPARE(small.pixel(inner.topLeft()), kLeft);
        if (!inner.isEmpty()) QCOMPARE(small.pixel(inner.bottomRight()), kRight);
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
            QVERIFY(wRect->isVisibleTo(&window) && !hRect->isVisibleTo(&window));  // as before
            QCOMPARE(info->text(), kReady);
            QCOMPARE(App::instance()->opSmall, small);
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
