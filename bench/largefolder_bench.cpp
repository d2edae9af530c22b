// Times a gallery of many small images in the main window, step by step: dropping the folder,
// stepping down 1,000 rows with the arrow key, writing the page, selecting all rows and removing
// them all with "-". Each step is set against reading the headers of the same files with
// QImageReader in the same run, and the whole is run for 2,500 and for 10,000 files, so that
// a step that grows faster than the folder shows. Then the folder of 10,000 gets a page that
// names every file in reverse order with a caption, and the drop that reopens it (answered Yes)
// is set against the plain drop. Prints figures; checks nothing.
#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>
#include <cstdio>
#include <ctime>
#include <map>

#include "mainwindow/mainwindow.h"
#include "median.h"
#include "support/dropfiles.h"
#include "support/pagebytes.h"
#include "support/testenvironment.h"
#include "support/testpictures.h"

namespace {

constexpr int kRounds = 3;
constexpr int kArrowSteps = 1000;

enum Step { Intake, Arrows, Write, SelectAll, RemoveAll, StepCount };
const char* const kStepNames[StepCount] = {"drop the folder", "1,000 x down arrow",
                                           "write the page", "select all (Ctrl+A)",
                                           "remove all with -"};

// Writes the bytes of one small PNG `count` times, under names of a few kinds.
void makeFolder(const QString& folder, int count) {
    QBuffer png;
    png.open(QIODevice::WriteOnly);
    photoLike(QSize(16, 12), 3).save(&png, "PNG");
    const QStringList prefixes = {"IMG_", "beach ", "Dune-", "été_"};
    QDir().mkpath(folder);
    for (int i = 0; i < count; ++i) {
        QFile file(QDir(folder).filePath(prefixes[i % prefixes.size()] + QString::number(i) +
                                         (i % 3 ? ".png" : ".PNG")));
        if (file.open(QIODevice::WriteOnly)) file.write(png.data());
    }
}

QStringList filesOf(const QString& folder) {
    QStringList paths;
    for (const QString& name : QDir(folder).entryList(QDir::Files))
        paths << QDir(folder).filePath(name);
    return paths;
}

// The processor time of this thread, in milliseconds: other work on the machine then hardly
// moves the figures.
double threadMilliseconds() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return now.tv_sec * 1e3 + now.tv_nsec / 1e6;
}

template <class Work>
double milliseconds(Work work) {
    const double start = threadMilliseconds();
    work();
    return threadMilliseconds() - start;
}

double statAll(const QStringList& paths) {
    qint64 bytes = 0;
    const double ms = milliseconds([&] {
        for (const QString& path : paths) bytes += QFileInfo(path).size();
    });
    return bytes > 0 ? ms : 0;
}

double readHeaders(const QStringList& paths) {
    int width = 0;
    const double ms = milliseconds([&] {
        for (const QString& path : paths) width += QImageReader(path).size().width();
    });
    return width > 0 ? ms : 0;
}

// One pass of every step on a fresh main window; milliseconds per step.
QList<double> runSteps(const QString& folder, int count) {
    App::instance()->start();
    MainWindow* window = App::instance()->mainWindow();
    auto* list = window->findChild<QWidget*>("imageList");
    ImageCatalogue& catalogue = App::instance()->gallery().images();
    QCoreApplication::processEvents();
    QList<double> times(StepCount);

    times[Intake] = milliseconds([&] {
        dropOn(window, {QUrl::fromLocalFile(folder)});
        QCoreApplication::processEvents();
    });
    if (catalogue.imageCount() != count)
        std::printf("  (expected %d rows, got %d)\n", count, catalogue.imageCount());

    // Each press is followed by its repaint, as when the user holds the key down.
    times[Arrows] = milliseconds([&] {
        for (int step = 0; step < kArrowSteps; ++step) {
            QTest::keyClick(list, Qt::Key_Down);
            QCoreApplication::processEvents();
        }
    });
    if (catalogue.selectedRow() != kArrowSteps)
        std::printf("  (expected row %d selected, got %d)\n", kArrowSteps, catalogue.selectedRow());

    times[Write] = milliseconds([&] {
        window->findChild<QPushButton*>("writePageButton")->click();
        QCoreApplication::processEvents();
    });
    QFile::remove(QDir(folder).filePath("index.html"));

    times[SelectAll] = milliseconds([&] {
        QTest::keyClick(list, Qt::Key_A, Qt::ControlModifier);
        QCoreApplication::processEvents();
    });
    if (catalogue.selectedCount() != count)
        std::printf("  (expected %d rows selected, got %d)\n", count, catalogue.selectedCount());

    TestEnvironment::dialogs().answers.enqueue(true);
    times[RemoveAll] = milliseconds([&] {
        window->findChild<QPushButton*>("removeImagesButton")->click();
        QCoreApplication::processEvents();
    });
    if (catalogue.imageCount() != 0)
        std::printf("  (expected no rows left, got %d)\n", catalogue.imageCount());

    delete window;
    TestEnvironment::dialogs().clear();
    TestEnvironment::desktop().clear();
    return times;
}

// A drop of `folder` on a fresh main window that reopens the page there; milliseconds.
double reopenDrop(const QString& folder, int count) {
    App::instance()->start();
    MainWindow* window = App::instance()->mainWindow();
    QCoreApplication::processEvents();
    TestEnvironment::dialogs().answers.enqueue(true);
    const double ms = milliseconds([&] {
        dropOn(window, {QUrl::fromLocalFile(folder)});
        QCoreApplication::processEvents();
    });
    const ImageCatalogue& catalogue = App::instance()->gallery().images();
    if (catalogue.imageCount() != count ||
        catalogue.cell(0, CatalogueRow::Caption) != QStringLiteral("Caption 0"))
        std::printf("  (the page was not restored)\n");
    // The rows outlive the window, in the application's gallery: the next round starts empty.
    App::instance()->gallery().clear();
    delete window;
    TestEnvironment::dialogs().clear();
    return ms;
}

// Writes a page for every file of `folder` in reverse order, each with a caption.
void writeReversedPage(const QString& folder) {
    GalleryPage page;
    page.settings = {{},
                     {},
                     QStringLiteral("Many"),
                     {},
                     {},
                     QStringLiteral("Navy"),
                     QStringLiteral("White"),
                     QStringLiteral("Gold"),
                     false};
    const QStringList paths = filesOf(folder);
    for (qsizetype i = paths.size() - 1; i >= 0; --i)
        page.slides.append(
            {QFileInfo(paths[i]).fileName(), QStringLiteral("Caption %1").arg(page.slides.size())});
    QFile file(QDir(folder).filePath(QStringLiteral("index.html")));
    if (file.open(QIODevice::WriteOnly)) file.write(pageBytes(page));
}

struct Figures {
    double stat = 0, headers = 0;
    QList<double> steps;
};

Figures measure(const QString& folder, int count) {
    const QStringList paths = filesOf(folder);
    readHeaders(paths);  // every run below meets a warm file cache
    QList<double> stats, headers;
    QList<QList<double>> perStep(StepCount);
    for (int round = 0; round < kRounds; ++round) {
        stats << statAll(paths);
        headers << readHeaders(paths);
        const QList<double> times = runSteps(folder, count);
        for (int step = 0; step < StepCount; ++step) perStep[step] << times[step];
    }
    Figures figures{median(stats), median(headers), {}};
    for (const QList<double>& times : perStep) figures.steps << median(times);

    std::printf("%d files\n", count);
    std::printf("  %-22s %9.1f ms\n", "baseline: stat each", figures.stat);
    std::printf("  %-22s %9.1f ms   (ratio 1)\n", "baseline: read headers", figures.headers);
    for (int step = 0; step < StepCount; ++step)
        std::printf("  %-22s %9.1f ms   ratio %7.2f\n", kStepNames[step], figures.steps[step],
                    figures.steps[step] / figures.headers);
    return figures;
}

}  // namespace

int main(int argc, char** argv) {
    TestEnvironment environment;
    App app(argc, argv);
    QTemporaryDir dir;
    const std::map<int, QString> folders = {{2500, dir.filePath("quarter")},
                                            {10000, dir.filePath("full")}};
    for (const auto& [count, folder] : folders) makeFolder(folder, count);

    std::printf(
        "Many small images in the main window (offscreen, warm file cache, processor time, "
        "median of %d)\n",
        kRounds);
    std::map<int, Figures> figures;
    for (const auto& [count, folder] : folders) figures[count] = measure(folder, count);

    const QString& full = folders.at(10000);
    writeReversedPage(full);
    QList<double> reopens;
    for (int round = 0; round < kRounds; ++round) reopens << reopenDrop(full, 10000);
    QFile::remove(QDir(full).filePath(QStringLiteral("index.html")));
    const double plain = figures[10000].steps[Intake];
    const double reopen = median(reopens);
    std::printf("reopening a page of 10,000 images (answered Yes)\n");
    std::printf("  %-22s %9.1f ms\n", "plain drop", plain);
    std::printf("  %-22s %9.1f ms   adds %.2f x the plain drop\n", "drop that reopens", reopen,
                (reopen - plain) / plain);

    // Linear work grows 4 times from 2,500 to 10,000 files, quadratic work 16 times; the 1,000
    // arrow presses stay the same work unless a press costs more in a longer list.
    std::printf("growth from 2,500 to 10,000 files\n");
    std::printf("  %-22s %9.1f x\n", "read headers",
                figures[10000].headers / figures[2500].headers);
    for (int step = 0; step < StepCount; ++step)
        std::printf("  %-22s %9.1f x\n", kStepNames[step],
                    figures[10000].steps[step] / figures[2500].steps[step]);
    return 0;
}
