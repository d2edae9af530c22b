// Times the preview: selecting an image until its canvas has painted, for a camera-sized and a
// screen-sized JPEG, against djpeg decoding the large file at 1/8 scale in the same run, and a
// repaint of an unchanged selection. Prints figures; checks nothing.
#include <QDir>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QProcess>
#include <QRadioButton>
#include <QRandomGenerator>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <functional>

#include "app/app.h"
#include "preview/imagecanvas.h"

namespace {

constexpr int kRuns = 9;

// Noise over gradients and shapes, so that the encoder has real detail to deal with.
QImage photoLike(QSize size, quint32 seed) {
    QRandomGenerator random(seed);
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        QRgb* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < size.width(); ++x) {
            const int noise = random.bounded(96);
            line[x] = qRgb((x * 200 / size.width() + noise) & 255,
                           (y * 200 / size.height() + noise) & 255,
                           ((x + y) * 120 / (size.width() + size.height()) + 2 * noise) & 255);
        }
    }
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    for (int i = 0; i < 300; ++i) {
        painter.setBrush(QColor::fromRgb(random.generate()));
        painter.setPen(QPen(QColor::fromRgb(random.generate()), random.bounded(1, 12)));
        const QRect shape(random.bounded(size.width()), random.bounded(size.height()),
                          random.bounded(size.width() / 6), random.bounded(size.height() / 6));
        if (i % 2)
            painter.drawEllipse(shape);
        else
            painter.drawRect(shape);
    }
    return image;
}

double median(QList<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

// Counts the paints of one widget.
class PaintCounter : public QObject {
public:
    int paints = 0;
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) ++paints;
        return false;
    }
};

struct Bench {
    QWidget window;
    QLineEdit* resizedWidth = new QLineEdit(QStringLiteral("360"), &window);
    QRadioButton* byWidth = new QRadioButton(&window);
    QWidget* wRect = new QWidget(&window);
    QWidget* hRect = new QWidget(&window);
    QLabel* info = new QLabel(&window);
    ImageCanvas* canvas = new ImageCanvas(&window);
    PaintCounter counter;

    Bench() {
        window.resize(820, 680);
        canvas->setGeometry(245, 74, 360, 240);
        byWidth->setChecked(true);
        canvas->bind({resizedWidth, byWidth, wRect, hRect, info});
        canvas->installEventFilter(&counter);
        window.show();
        settle();
    }

    // Runs events until the canvas has painted again; the paint itself runs inside.
    void settle() {
        const int before = counter.paints;
        while (counter.paints == before) QCoreApplication::processEvents();
    }

    // What a selection in the list does, then the wait for its paint; milliseconds.
    double select(const QString& file) {
        QElapsedTimer clock;
        clock.start();
        App::instance()->opf = file;
        App::instance()->op = Picture::open(file);
        canvas->Invalidate();
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
    QStandardPaths::setTestModeEnabled(true);
    App app(argc, argv);
    QTemporaryDir temporary;
    const QDir dir(temporary.path());

    std::printf("Generating the pictures...\n");
    const QStringList screen = writeCopies(dir, "screen", photoLike({2048, 1365}, 1));
    const QStringList camera = writeCopies(dir, "camera", photoLike({6000, 4000}, 2));
    std::printf("2048 x 1365: %lld bytes, 6000 x 4000: %lld bytes\n",
                static_cast<long long>(QFileInfo(screen.first()).size()),
                static_cast<long long>(QFileInfo(camera.first()).size()));

    Bench bench;
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

    const QString tiny = dir.filePath("tiny.jpg");
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
