#include <sys/resource.h>

#include <QBuffer>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QSaveFile>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>
#include <csignal>

#include "page/gallerywriter.h"
#include "support/testenvironment.h"

namespace {

// The page for the three rows below, written out by hand from the page's layout, is kept in
// tests/expected.
QString expectedPage() {
    QFile file(QStringLiteral(VELMORA_EXPECTED_DIR "/three-rows-full-width.html"));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QList<CatalogueRow> threeRows() {
    QList<CatalogueRow> rows(3);
    rows[0].originalName = "sunset over sea.jpg";
    rows[0].caption = "<b>Golden</b> hour";
    rows[1].originalName = "Café Zürich.png";
    rows[2].originalName = "IMG_2.gif";
    rows[2].caption = "Last one";
    return rows;
}

GallerySettings settingsIn(const QString& folder, bool fullWidth) {
    GallerySettings settings;
    settings.galleryPath = folder + "/";
    settings.galleryFileName = "index.html";
    settings.galleryHTMLtitle = "Ada's <em>photo</em> gallery";
    settings.galleryTitle = "Summer & sea";
    settings.gallerySubTitle = "";
    settings.bgColor = "Black";
    settings.textColor = "White";
    settings.captionColor = "Gold";
    settings.fullPageWidth = fullWidth;
    return settings;
}

QString pageFor(const GallerySettings& settings, const QString& countText,
                const QList<CatalogueRow>& rows) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    if (!writeGalleryPage(buffer, settings, countText, rows)) return {};
    return QString::fromUtf8(buffer.data());
}

enum class Failure { FolderGone, FolderIsAFile, WriteError, SilentLoss, SizeLimit };

// A page file on a device that runs out of room after its first kilobyte: its write fails with
// an error or, as some full disks do, reports success for bytes that never arrive.
class FailingPageFile : public QSaveFile {
public:
    FailingPageFile(const QString& path, Failure failure) : QSaveFile(path), failure_(failure) {}

protected:
    qint64 writeData(const char* data, qint64 length) override {
        const qint64 fits = std::clamp<qint64>(kRoom - written_, 0, length);
        if (fits > 0) written_ += QSaveFile::writeData(data, fits);
        if (fits == length || failure_ == Failure::SilentLoss) return length;
        setErrorString("No space left on device");
        return -1;
    }

private:
    static constexpr qint64 kRoom = 1024;
    Failure failure_;
    qint64 written_ = 0;
};

void writeFile(const QString& path, const QByteArray& content) {
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}

// Every file below `folder`, hidden ones included, with its content.
QMap<QString, QByteArray> filesUnder(const QString& folder) {
    QMap<QString, QByteArray> files;
    QDirIterator it(folder, QDir::Files | QDir::Hidden | QDir::System,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        QFile file(it.next());
        files[it.filePath()] = file.open(QIODevice::ReadOnly) ? file.readAll() : "(unreadable)";
    }
    return files;
}

QByteArray readFile(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace

class GalleryWriterTest : public QObject {
    Q_OBJECT
private slots:
    void init() {
        TestEnvironment::dialogs().clear();
        TestEnvironment::desktop().clear();
    }

    void theWholePageInBothWidthModes() {
        QTemporaryDir folder;
        QCOMPARE(pageFor(settingsIn(folder.path(), true), "3 images", threeRows()), expectedPage());

        // Without full width the page gains exactly the container's two lines.
        QString withMargins = expectedPage();
        withMargins.replace("<body style='background-color:Black;'>\n",
                            "<body style='background-color:Black;'>\n<div class='container'>\n");
        withMargins.replace("  </a>\n\n</div>\n</div>\n</body>",
                            "  </a>\n\n</div>\n</div>\n</div>\n</body>");
        QCOMPARE(pageFor(settingsIn(folder.path(), false), "3 images", threeRows()), withMargins);
    }

    void theCountTextDecidesHowManySlides() {
        QTemporaryDir folder;
        const GallerySettings settings = settingsIn(folder.path(), true);
        const QString two = pageFor(settings, "2 images", threeRows());
        QCOMPARE(two.count("<li data-target"), 2);
        QVERIFY(!two.contains("IMG_2.gif"));

        // "Empty list" counts as 0: no indicator and no further slide, but the first slide.
        const QString none = pageFor(settings, "Empty list", threeRows());
        QCOMPARE(none.count("<li data-target"), 0);
        QCOMPARE(none.count("<img src="), 1);
        QVERIFY(none.contains("<img src='sunset over sea.jpg'"));

        QList<CatalogueRow> one(1);
        one[0].originalName = "only.png";
        const QString single = pageFor(settings, "1 image", one);
        QCOMPARE(single.count("class='active'></li>"), 1);
        QCOMPARE(single.count("<img src="), 1);
        QCOMPARE(single.count("carousel-control-next"), 2);
        QVERIFY(!single.contains("<div class='carousel-item' data-interval"));
    }

    void savingWritesUtf8WithoutByteOrderMarkAndLaunchesThePage() {
        QTemporaryDir folder;
        publishGalleryPage(settingsIn(folder.path(), true), "3 images", threeRows());
        const QString path = folder.path() + "/index.html";
        QCOMPARE(TestEnvironment::desktop().launched, QStringList({path}));
        QVERIFY(TestEnvironment::dialogs().messages.isEmpty());
        const QByteArray bytes = readFile(path);
        QCOMPARE(bytes, expectedPage().toUtf8());
        QVERIFY(!bytes.startsWith("\xEF\xBB\xBF"));
        QVERIFY(!bytes.contains('\r'));

        // Writing again replaces the page and opens it again.
        GallerySettings changed = settingsIn(folder.path(), true);
        changed.galleryTitle = "Winter";
        publishGalleryPage(changed, "3 images", threeRows());
        QVERIFY(readFile(path).contains(">Winter</h1>"));
        QCOMPARE(TestEnvironment::desktop().launched.size(), 2);
    }

    void aFailedWriteTellsWhyAndLeavesEverythingAsItWas_data() {
        QTest::addColumn<int>("failure");
        QTest::newRow("folder deleted since the drop") << int(Failure::FolderGone);
        QTest::newRow("folder is a file") << int(Failure::FolderIsAFile);
        QTest::newRow("write fails midway") << int(Failure::WriteError);
        QTest::newRow("bytes lost without a word") << int(Failure::SilentLoss);
        QTest::newRow("file size limit") << int(Failure::SizeLimit);
    }
    void aFailedWriteTellsWhyAndLeavesEverythingAsItWas() {
        QFETCH(int, failure);
        QTemporaryDir root;
        GallerySettings settings = settingsIn(root.path(), true);
        publishGalleryPage(settings, "3 images", threeRows());  // the earlier page
        writeFile(root.filePath("notes.txt"), "Not a folder.\n");
        init();

        PageFileFactory makeFile;
        settings.galleryTitle = "Never written";
        switch (Failure(failure)) {
            case Failure::FolderGone:
                QVERIFY(QDir(root.path()).mkdir("Trip"));
                settings.galleryPath = root.filePath("Trip") + "/";
                QVERIFY(QDir(root.filePath("Trip")).removeRecursively());
                break;
            case Failure::FolderIsAFile:
                settings.galleryPath = root.filePath("notes.txt") + "/";
                break;
            case Failure::WriteError:
            case Failure::SilentLoss:
                makeFile = [failure](const QString& path) {
                    return std::make_unique<FailingPageFile>(path, Failure(failure));
                };
                break;
            case Failure::SizeLimit:
                break;
        }
        const QMap<QString, QByteArray> before = filesUnder(root.path());

        rlimit limit{};
        getrlimit(RLIMIT_FSIZE, &limit);
        if (Failure(failure) == Failure::SizeLimit) {
            std::signal(SIGXFSZ, SIG_IGN);
            const rlimit small{1000, limit.rlim_max};
            setrlimit(RLIMIT_FSIZE, &small);
        }
        publishGalleryPage(settings, "3 images", threeRows(), makeFile);
        setrlimit(RLIMIT_FSIZE, &limit);

        QVERIFY(TestEnvironment::desktop().launched.isEmpty());
        QCOMPARE(TestEnvironment::dialogs().messages.size(), 1);
        const QString message = TestEnvironment::dialogs().messages.first();
        const QString heading =
            "The gallery page could not be written.\r" + galleryPagePath(settings) + "\r";
        QVERIFY2(message.startsWith(heading), qPrintable(message));
        QVERIFY(message.size() > heading.size());  // the system's reason follows
        // The earlier page byte for byte, no temporary file, no folder made.
        QCOMPARE(filesUnder(root.path()), before);
    }
};

VELMORA_TEST_MAIN(GalleryWriterTest)
#include "tst_gallerywriter.moc"
