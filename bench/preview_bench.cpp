// Times the preview: selecting an image until its canvas has painted, for a camera-sized and a
// screen-sized JPEG, against djpeg decoding the large file at 1/8 scale in the same run, and a
// repaint of an unchanged selection. Prints figures; checks nothing.
#include <QDir>
#include <QElapsedTimer>
#include <QPainter>
#include <QProcess>
#include <QRandomGenerator>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>

#include "app/app.h"
#include "mainwindow/windowmain.h"
#include "preview/imagecanvas.h"
#include "support/photolike.h"

namespace {

constexpr int kRuns = 9;

// The main window with a folder of pictures dropped on it.
struct Bench {
    WindowMain* window = nullptr;
    ImageCanvas* canvas = nullptr;
    PaintCounter counter;

    explicit Bench(const QString& folder) {
        App::instance()->start();
        window = App::instance()->windowMain();
        canvas = window->imageCanvas();
        canvas->installEventFilter(&counter);
        window->older(folder);
        settle();
    }

    // Runs events until the canvas has painted again; the paint itself runs inside.
    void settle() {
        const int before = counter.paints;
        while (counter.paints == before) QCoreApplication::processEvents();
    }

    // Selecting the row of `file` in the list, until its paint has run; milliseconds.
    double select(const QString& file) {
        ImageCatalogue& rows = window->catalogue();
        int row = 0;
        while (rows.Cell(row, 1) != QFileInfo(file).fileName()) ++row;
        QElapsedTimer clock;
        clock.start();
        rows.setListIndex(row);
        settle();
        return clock.nsecsElapsed() / 1e6;
    }

    // A repaint asked for with nothing changed; milliseconds.
    double repaint() {
        QElapsedTimer clock;
        clock.start();
        canvas->Invalidate();
        settle();
        return clock.nsecsElapsed() / 1e6;
    }
};

// Copies, so that every timed selection meets a file it has not decoded before.
QStringList writeCopies(const QDir& dir, const QString& name, const QImage& image) {
    const QString first = dir.filePath(name + "-0.jpg");
    image.save(first, "JPEG", 90);
    QStringList files{first};
    for (int i = 1; i < kRuns; ++i) {
        files << dir.filePath(name + "-" + QString::number(i) + ".jpg");
        QFile::copy(first, files.last());
    }
    return files;
}

double djpegTime(const QString& file) {
    QElapsedTimer clock;
    clock.start();
    QProcess::execute(QStringLiteral("djpeg"), {"-scale", "1/8", "-outfile", "/dev/null", file});
    return clock.nsecsElapsed() / 1e6;
}

void report(const char* what, const QList<double>& times) {
    std::printf("%s: median %.3f ms (min %.3f, max %.3f)\n", what, median(times),
                *std::min_element(times.begin(), times.end()),
                *std::max_element(times.begin(), times.end()));
}

}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    // A home of its own, so that the window's start neither reads nor writes the user's files.
    QTemporaryDir home;
    qputenv("HOME", home.path().toLocal8Bit());
    QStandardPaths::setTestModeEnabled(true);
    App app(argc, argv);
    QTemporaryDir temporary;
    QTemporaryDir tinyFolder;
    const QDir dir(temporary.path());

    std::printf("Generating the pictures...\n");
    const QStringList screen = writeCopies(dir, "screen", photoLike({2048, 1365}, 1));
    const QStringList camera = writeCopies(dir, "camera", photoLike({6000, 4000}, 2));
    std::printf("2048 x 1365: %lld bytes, 6000 x 4000: %lld bytes\n",
                static_cast<long long>(QFileInfo(screen.first()).size()),
                static_cast<long long>(QFileInfo(camera.first()).size()));

    // The first row is shown as the folder comes in; it is none of the timed files.
    photoLike({640, 480}, 4).save(dir.filePath("0-first.jpg"), "JPEG", 90);
    Bench bench(dir.path());
    QList<double> screenTimes;
    for (const QString& file : screen) screenTimes << bench.select(file);
    report("First paint of a selected 2048 x 1365 JPEG", screenTimes);

    // Taken in turns, so that a busy moment of the machine falls on both alike.
    QList<double> cameraTimes;
    QList<double> djpegTimes;
    for (const QString& file : camera) {
        cameraTimes << bench.select(file);
        djpegTimes << djpegTime(file);
    }
    report("First paint of a selected 6000 x 4000 JPEG", cameraTimes);
    report("djpeg -scale 1/8 of the same file", djpegTimes);
    std::printf("First paint / djpeg: %.2f\n", median(cameraTimes) / median(djpegTimes));

    const QString tiny = QDir(tinyFolder.path()).filePath("tiny.jpg");
    photoLike({16, 16}, 3).save(tiny, "JPEG", 90);
    QList<double> startTimes;
    for (int i = 0; i < kRuns; ++i) startTimes << djpegTime(tiny);
    report("djpeg of a 16 x 16 JPEG (the cost of starting it)", startTimes);

    QList<double> repaints;
    const int decodes = Picture::decodeCount();
    for (int i = 0; i < kRuns; ++i) repaints << bench.repaint();
    report("Repaint of the unchanged 6000 x 4000 selection", repaints);
    std::printf("Decodes during those repaints: %d\n", Picture::decodeCount() - decodes);

    return 0;
}
