// Times dropping a folder of camera-sized JPEGs on the main window, per file, against reading
// the first 64 KiB of each of the same files in the same run, and reports the peak memory of the
// process. One folder holds photos stored sideways with an EXIF orientation tag, as phones store
// portrait shots, one photos described in XMP by a photo manager. Also times reading every row's
// caption from its file, as writing the page does. Prints figures; checks nothing.
//
// The folders are written by a child run of this program, so that the pictures it encodes do not
// count in this process's peak memory.
#include <sys/resource.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QUrl>
#include <algorithm>
#include <cstdio>

#include "app/app.h"
#include "mainwindow/mainwindow.h"
#include "median.h"
#include "support/dropfiles.h"
#include "support/testpictures.h"

namespace {

constexpr int kRounds = 7;
constexpr qint64 kHeaderBytes = 64 * 1024;

// Fills `folder` with `count` JPEGs of `size` tagged with EXIF `orientation`, and `described` in
// XMP: copies of four different pictures.
int makeFolder(const QString& folder, int count, QSize size, int orientation, bool described) {
    QDir().mkpath(folder);
    QStringList originals;
    for (int i = 0; i < 4; ++i) {
        originals << QDir(folder).filePath(
            QStringLiteral("photo_%1.jpg").arg(i + 1, 4, 10, QChar('0')));
        QFile file(originals.last());
        if (!file.open(QIODevice::WriteOnly) ||
            file.write(jpegWithOrientation(photoLike(size, 7 + i), orientation)) <= 0)
            return 1;
        file.close();
        if (described)
            describe(originals.last(),
                     {{"Xmp.dc.description",
                       QStringLiteral("lang=x-default The harbour at dawn, %1").arg(i)}});
    }
    for (int i = 4; i < count; ++i) {
        const QString copy =
            QDir(folder).filePath(QStringLiteral("photo_%1.jpg").arg(i + 1, 4, 10, QChar('0')));
        if (!QFile::copy(originals[i % 4], copy)) return 1;
    }
    return 0;
}

double peakMegabytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024.0;
}

// Milliseconds to read the first 64 KiB of every file in `folder`.
double rawRead(const QString& folder) {
    const QStringList names = QDir(folder).entryList(QDir::Files);
    QByteArray buffer(kHeaderBytes, Qt::Uninitialized);
    QElapsedTimer timer;
    timer.start();
    for (const QString& name : names) {
        QFile file(QDir(folder).filePath(name));
        if (file.open(QIODevice::ReadOnly)) file.read(buffer.data(), kHeaderBytes);
    }
    return timer.nsecsElapsed() / 1e6;
}

struct Timing {
    double drop = 0;      // milliseconds for dropping the folder on the window
    double captions = 0;  // and for reading the captions of every row from their files after it
};

// Drops `folder` on a fresh main window, through its drop events.
Timing drop(const QString& folder, int expectedRows) {
    Gallery gallery;
    MainWindow window(gallery, App::instance()->preferences(), App::instance()->menuBar());
    window.fillFromPreferences();
    window.show();
    QCoreApplication::processEvents();
    QElapsedTimer timer;
    timer.start();
    dropOn(&window, {QUrl::fromLocalFile(folder)});
    Timing timing;
    timing.drop = timer.nsecsElapsed() / 1e6;
    if (gallery.images().imageCount() != expectedRows)
        std::printf("  (expected %d rows, got %d)\n", expectedRows, gallery.images().imageCount());
    QCoreApplication::processEvents();  // the preview of the first row
    timer.restart();
    gallery.images().rows();
    timing.captions = timer.nsecsElapsed() / 1e6;
    return timing;
}

void measure(const char* title, const QString& folder, int count) {
    rawRead(folder);  // both runs below read a warm cache
    QList<double> raw, dropped, captions;
    for (int round = 0; round < kRounds; ++round) {
        raw << rawRead(folder);
        const Timing timing = drop(folder, count);
        dropped << timing.drop;
        captions << timing.captions;
    }
    const double rawMs = median(raw), dropMs = median(dropped), captionMs = median(captions);
    std::printf("%s: %d files\n", title, count);
    std::printf("  drop        %8.1f ms  %6.3f ms/file\n", dropMs, dropMs / count);
    std::printf("  64 KiB read %8.1f ms  %6.3f ms/file\n", rawMs, rawMs / count);
    std::printf("  ratio       %8.2f\n", dropMs / rawMs);
    std::printf("  captions    %8.1f ms  %6.3f ms/file, read for the page\n", captionMs,
                captionMs / count);
    std::printf("  peak memory %8.1f MB so far\n", peakMegabytes());
}

}  // namespace

int main(int argc, char** argv) {
    if (argc == 7 && QByteArray(argv[1]) == "--make-folder") {
        QGuiApplication generator(argc, argv);
        const QStringList size = QString::fromLocal8Bit(argv[4]).split('x');
        return makeFolder(QString::fromLocal8Bit(argv[2]), QByteArray(argv[3]).toInt(),
                          QSize(size[0].toInt(), size[1].toInt()), QByteArray(argv[5]).toInt(),
                          QByteArray(argv[6]) == "described");
    }
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QTemporaryDir dir;
    struct Folder {
        const char* title;
        QString path;
        int count;
        const char* size;
        const char* orientation;
        const char* description;
    };
    const QList<Folder> folders = {
        {"small JPEGs, 640 x 427", dir.filePath("small"), 200, "640x427", "1", "-"},
        {"camera JPEGs, 2048 x 1365", dir.filePath("few"), 200, "2048x1365", "1", "-"},
        {"camera JPEGs, 2048 x 1365", dir.filePath("many"), 2000, "2048x1365", "1", "-"},
        {"phone JPEGs stored sideways (EXIF orientation 6), 2048 x 1365", dir.filePath("phone"),
         2000, "2048x1365", "6", "-"},
        {"camera JPEGs described in XMP, 2048 x 1365", dir.filePath("described"), 2000, "2048x1365",
         "1", "described"},
    };
    for (const Folder& folder : folders) {
        if (QProcess::execute(QString::fromLocal8Bit(argv[0]),
                              {"--make-folder", folder.path, QString::number(folder.count),
                               folder.size, folder.orientation, folder.description}) != 0) {
            std::printf("could not write %s\n", qPrintable(folder.path));
            return 1;
        }
    }

    App app(argc, argv);
    // A folder of folders adds nothing: what remains is the fixed cost of a drop, mostly
    // bringing the progress window on screen.
    QList<double> empty;
    for (int round = 0; round < kRounds; ++round) empty << drop(dir.path(), 0).drop;
    std::printf("Drop of a folder on the main window (offscreen, warm file cache, median of %d)\n",
                kRounds);
    std::printf("drop adding nothing: %.1f ms\n", median(empty));
    std::printf("peak memory with a window and an empty drop: %.1f MB\n", peakMegabytes());
    for (const Folder& folder : folders) measure(folder.title, folder.path, folder.count);
    return 0;
}
