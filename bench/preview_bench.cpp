// Times the preview: selecting an image until its canvas has painted it, for a camera-sized and a
// screen-sized JPEG, against djpeg decoding the large file at the same scale in the same run, and
// a repaint of an unchanged selection. Then the same camera JPEG on a screen of two device pixels
// a point, upright and with EXIF orientation 6; arrowing down through a folder of camera JPEGs at
// a steady pace, the time from each key to its preview and the longest the window's event loop
// stood still; and pictures of 100 megapixels in formats that cannot decode at a smaller scale,
// each in a process of its own so that its peak memory shows. Prints figures; checks nothing.
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLinearGradient>
#include <QPainter>
#include <QProcess>
#include <QStandardPaths>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <cstdio>

#include "app/app.h"
#include "mainwindow/mainwindow.h"
#include "median.h"
#include "preview/imagecanvas.h"
#include "support/testpictures.h"

namespace {

constexpr int kRuns = 9;

// The canvas's paints of a preview that is there, not still being decoded.
struct ShownPaints : QObject {
    const ImageCanvas* canvas = nullptr;
    int paints = 0;
    bool eventFilter(QObject*, QEvent* event) override {
        paints += event->type() == QEvent::Paint && !canvas->previewPending();
        return false;
    }
};

// The longest time the event loop went without turning, seen by a timer that asks every
// millisecond.
struct StallProbe {
    QTimer timer;
    QElapsedTimer clock;
    double longest = 0;
    StallProbe() {
        timer.setTimerType(Qt::PreciseTimer);
        QObject::connect(&timer, &QTimer::timeout, &timer, [this] {
            longest = std::max(longest, clock.nsecsElapsed() / 1e6);
            clock.restart();
        });
        restart();
        timer.start(1);
    }
    void restart() {
        longest = 0;
        clock.start();
    }
};

void runEvents() {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

// The main window with a folder of pictures dropped on it.
struct Bench {
    MainWindow* window = nullptr;
    ImageCanvas* canvas = nullptr;
    ShownPaints shown;

    explicit Bench(const QString& folder) {
        App::instance()->start();
        window = App::instance()->mainWindow();
        canvas = window->imageCanvas();
        shown.canvas = canvas;
        canvas->installEventFilter(&shown);
        App::instance()->gallery().addImagesOf(folder);
        settle();
    }

    // Runs events until the canvas has painted its preview again; the paint itself runs inside.
    void settle() {
        const int before = shown.paints;
        while (shown.paints == before) runEvents();
    }
    // Runs events until nothing is decoded any more, the neighbours read ahead included.
    void idle() {
        while (canvas->decoding()) runEvents();
    }

    // Selecting the row of `file` in the list, from a window with nothing to do until its
    // preview has painted; milliseconds. What it reads ahead is done when this returns.
    double select(const QString& file) {
        ImageCatalogue& rows = App::instance()->gallery().images();
        int row = 0;
        while (rows.cell(row, CatalogueRow::FileName) != QFileInfo(file).fileName()) ++row;
        idle();
        QElapsedTimer clock;
        clock.start();
        rows.selectRow(row);
        settle();
        const double time = clock.nsecsElapsed() / 1e6;
        idle();
        return time;
    }

    // Repaints asked for with nothing changed: the median in milliseconds, and the decodes.
    void reportRepaints(const char* what) {
        QList<double> times;
        idle();
        const int decodes = Picture::decodeCount();
        for (int i = 0; i < kRuns; ++i) {
            QElapsedTimer clock;
            clock.start();
            canvas->Invalidate();
            settle();
            times << clock.nsecsElapsed() / 1e6;
        }
        std::printf("Repaint of the unchanged %s: median %.3f ms, %d decodes\n", what,
                    median(times), Picture::decodeCount() - decodes);
    }
};

// `count` copies in a row of the list.
QStringList writeCopies(const QDir& dir, const QString& name, const QByteArray& bytes, int count) {
    QStringList files;
    for (int i = 0; i < count; ++i) {
        files << dir.filePath(name + QStringLiteral("-%1.jpg").arg(i, 2, 10, QChar('0')));
        QFile file(files.last());
        if (file.open(QIODevice::WriteOnly)) file.write(bytes);
    }
    return files;
}

// Copies, so that every timed selection meets a file it has not decoded before; every other
// one of a row of copies, the first left out, so that none was read ahead as the neighbour of
// another or of the row shown first.
QStringList writeCopies(const QDir& dir, const QString& name, const QByteArray& bytes) {
    QStringList files;
    const QStringList all = writeCopies(dir, name, bytes, 2 * kRuns);
    for (int i = 1; i < all.size(); i += 2) files << all[i];
    return files;
}

QByteArray jpeg(const QImage& image) {
    return jpegWithOrientation(image, 1);
}

double djpegTime(const QString& file, const char* scale) {
    QElapsedTimer clock;
    clock.start();
    QProcess::execute(QStringLiteral("djpeg"), {"-scale", scale, "-outfile", "/dev/null", file});
    return clock.nsecsElapsed() / 1e6;
}

void report(const char* what, const QList<double>& times) {
    std::printf("%s: median %.3f ms (min %.3f, max %.3f)\n", what, median(times),
                *std::min_element(times.begin(), times.end()),
                *std::max_element(times.begin(), times.end()));
}

double residentMegabytes() {
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly)) return 0;
    for (QByteArray line = status.readLine(); !line.isEmpty(); line = status.readLine())
        if (line.startsWith("VmRSS:")) return line.mid(6).trimmed().split(' ')[0].toDouble() / 1024;
    return 0;
}

// Runs this program again with `arguments`, on a screen of `ratio` device pixels a point.
void runChild(const QStringList& arguments, const char* ratio = "1") {
    QProcess child;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_SCALE_FACTOR"), QString::fromLatin1(ratio));
    child.setProcessEnvironment(environment);
    child.setProcessChannelMode(QProcess::ForwardedChannels);
    std::fflush(stdout);  // the child's lines come after this process's
    child.start(QCoreApplication::applicationFilePath(), arguments);
    child.waitForFinished(-1);
}

// The camera JPEG as stored upright and as stored sideways with orientation 6, selected on a
// screen of two device pixels a point, against djpeg at the scale the preview decodes at.
void cameraAtRatio2(const QString& folder) {
    Bench bench(folder);
    std::printf("\nOn a screen of %.0f device pixels a point, a 360 point wide preview:\n",
                bench.canvas->devicePixelRatioF());
    QList<double> upright, upright8, upright4, turned, turned4;
    const QStringList straights = QDir(folder).entryList({"upright-*"});
    const QStringList turnedOnes = QDir(folder).entryList({"turned-*"});
    for (int i = 0; i < kRuns; ++i) {
        // Every other copy: see writeCopies().
        const QString straight = QDir(folder).filePath(straights.value(2 * i + 1));
        const QString sideways = QDir(folder).filePath(turnedOnes.value(2 * i + 1));
        upright << bench.select(straight);
        upright8 << djpegTime(straight, "1/8");
        upright4 << djpegTime(straight, "1/4");
        turned << bench.select(sideways);
        turned4 << djpegTime(sideways, "1/4");
    }
    report("First paint of a 6000 x 4000 JPEG (720 x 480 device pixels, decoded at 1/8)", upright);
    report("djpeg -scale 1/8 of the same file", upright8);
    report("djpeg -scale 1/4 of the same file", upright4);
    std::printf("First paint / djpeg 1/8: %.2f, / djpeg 1/4: %.2f\n",
                median(upright) / median(upright8), median(upright) / median(upright4));
    report("First paint of the same JPEG with orientation 6 (720 x 1080, decoded at 1/4)", turned);
    report("djpeg -scale 1/4 of the same file", turned4);
    std::printf("First paint / djpeg 1/4: %.2f\n", median(turned) / median(turned4));
    bench.reportRepaints("sideways selection");
}

// Arrowing down the list of `folder` at one key each 200 ms, from its first row: the time from
// each key to its preview on screen, and the longest the event loop stood still meanwhile.
void arrowing(const QString& folder) {
    Bench bench(folder);
    bench.idle();
    auto* list = bench.window->findChild<QAbstractItemView*>(QStringLiteral("imageList"));
    const ImageCatalogue& rows = App::instance()->gallery().images();
    QList<double> times;
    StallProbe probe;
    QElapsedTimer pace;
    pace.start();
    for (int row = 1; row < rows.imageCount(); ++row) {
        while (pace.elapsed() < row * 200) runEvents();
        QElapsedTimer clock;
        clock.start();
        QTest::keyClick(list, Qt::Key_Down);
        bench.settle();
        times << clock.nsecsElapsed() / 1e6;
        if (bench.canvas->imagePath() != rows.cell(row, CatalogueRow::Path)) {
            std::printf("Arrowing: the key did not reach row %d\n", row);
            return;
        }
    }
    std::printf(
        "Arrowing down %lld photos of 6000 x 4000, a key each 200 ms: key to preview median "
        "%.1f ms, 95th percentile %.1f ms; longest event-loop stall %.1f ms\n",
        static_cast<long long>(rows.imageCount()), median(times), percentile(times, 0.95),
        probe.longest);
}

// Selecting the large picture of `folder`, then its small one: time, peak and what remains.
void largePicture(const QString& folder, const QString& name) {
    Bench bench(folder);
    const double before = residentMegabytes();
    const PeakMemory peak;
    StallProbe probe;
    const double time = bench.select(QDir(folder).filePath(name));
    const double stall = probe.longest;
    const double peakMegabytes = peak.megabytes();
    const bool shown = bench.window->imageCanvas()->size() == QSize(360, 360);
    bench.select(QDir(folder).filePath(QStringLiteral("0-small.jpg")));
    std::printf(
        "%-10s first paint %6.1f ms, longest stall %5.1f ms, %s, peak +%5.1f MB, after another "
        "row +%5.1f MB\n",
        qPrintable(name), time, stall, shown ? "previewed" : "NOT PREVIEWED", peakMegabytes,
        residentMegabytes() - before);
}

// Pictures of 10000 x 10000 pixels, each in a folder with two small JPEGs: the first row is
// shown, the second read ahead, and the large picture is not.
QStringList writeLargePictures(const QDir& dir) {
    QImage image(10000, 10000, QImage::Format_RGB32);
    QLinearGradient gradient(0, 0, 10000, 10000);
    gradient.setColorAt(0, Qt::darkBlue);
    gradient.setColorAt(1, Qt::yellow);
    QPainter(&image).fillRect(image.rect(), gradient);
    QStringList folders;
    for (const char* format : {"tiff", "webp", "png", "bmp", "jpg"}) {
        folders << dir.filePath(format);
        QDir().mkpath(folders.last());
        image.save(QDir(folders.last()).filePath(QStringLiteral("large.") + format), nullptr,
                   format == QByteArray("webp") ? 100 : -1);
        for (const char* name : {"0-small.jpg", "1-small.jpg"})
            photoLike({640, 480}, 5).save(QDir(folders.last()).filePath(name));
    }
    return folders;
}

}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    // A home of its own, so that the window's start neither reads nor writes the user's files.
    QTemporaryDir home;
    qputenv("HOME", home.path().toLocal8Bit());
    QStandardPaths::setTestModeEnabled(true);
    App app(argc, argv);
    const QStringList arguments = app.arguments();
    if (arguments.size() == 3 && arguments[1] == "--ratio-2") {
        cameraAtRatio2(arguments[2]);
        return 0;
    }
    if (arguments.size() == 3 && arguments[1] == "--arrowing") {
        arrowing(arguments[2]);
        return 0;
    }
    if (arguments.size() == 4 && arguments[1] == "--large") {
        largePicture(arguments[2], arguments[3]);
        return 0;
    }

    QTemporaryDir temporary;
    QTemporaryDir tinyFolder;
    const QDir dir(temporary.path());
    std::printf("Generating the pictures...\n");
    const QImage cameraImage = photoLike({6000, 4000}, 2);
    const QStringList screen = writeCopies(dir, "screen", jpeg(photoLike({2048, 1365}, 1)));
    const QStringList camera = writeCopies(dir, "camera", jpeg(cameraImage));
    std::printf("2048 x 1365: %lld bytes, 6000 x 4000: %lld bytes\n",
                static_cast<long long>(QFileInfo(screen.first()).size()),
                static_cast<long long>(QFileInfo(camera.first()).size()));

    // The first row is shown as the folder comes in; it is none of the timed files.
    photoLike({640, 480}, 4).save(dir.filePath("0-first.jpg"), "JPEG", 90);
    {
        Bench bench(dir.path());
        QList<double> screenTimes;
        for (const QString& file : screen) screenTimes << bench.select(file);
        report("First paint of a selected 2048 x 1365 JPEG", screenTimes);

        // Taken in turns, so that a busy moment of the machine falls on both alike.
        QList<double> cameraTimes;
        QList<double> djpegTimes;
        for (const QString& file : camera) {
            cameraTimes << bench.select(file);
            djpegTimes << djpegTime(file, "1/8");
        }
        report("First paint of a selected 6000 x 4000 JPEG", cameraTimes);
        report("djpeg -scale 1/8 of the same file", djpegTimes);
        std::printf("First paint / djpeg: %.2f\n", median(cameraTimes) / median(djpegTimes));

        const QString tiny = QDir(tinyFolder.path()).filePath("tiny.jpg");
        photoLike({16, 16}, 3).save(tiny, "JPEG", 90);
        QList<double> startTimes;
        for (int i = 0; i < kRuns; ++i) startTimes << djpegTime(tiny, "1/8");
        report("djpeg of a 16 x 16 JPEG (the cost of starting it)", startTimes);
        bench.reportRepaints("6000 x 4000 selection");
    }

    QTemporaryDir ratio2;
    const QDir sideways(ratio2.path());
    writeCopies(sideways, "upright", jpeg(cameraImage));
    writeCopies(sideways, "turned", jpegWithOrientation(cameraImage, 6));
    photoLike({640, 480}, 4).save(sideways.filePath("0-first.jpg"), "JPEG", 90);
    runChild({"--ratio-2", sideways.path()}, "2");

    std::printf("\n");
    QTemporaryDir walk;
    writeCopies(QDir(walk.path()), "photo", jpeg(cameraImage), 50);
    runChild({"--arrowing", walk.path()});

    std::printf("\nPictures of 10000 x 10000 pixels, each selected in a process of its own:\n");
    QTemporaryDir large;
    for (const QString& folder : writeLargePictures(QDir(large.path()))) {
        const QString name = QDir(folder).entryList({"large.*"}).value(0);
        runChild({"--large", folder, name});
    }
    return 0;
}
