#include <sys/resource.h>

#include <QDir>
#include <QDirIterator>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>
#include <csignal>

#include "support/pagebytes.h"
#include "support/testenvironment.h"

namespace {

// How the question about replacing is answered, where it is asked.
constexpr int kYes = 1, kNo = 2;

// A page file on a full disk: its writes take nothing or, as some full disks do, report success
// for bytes that never arrive.
struct FullDiskPageFile : QFile {
    explicit FullDiskPageFile(bool silent) : silent(silent) {}
    qint64 writeData(const char*, qint64 length) override { return silent ? length : 0; }
    bool silent;
};

void writeFile(const QString& path, const QByteArray& content) {
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
}

// Every file below `folder`, hidden ones included, with its content (read through links).
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

}  // namespace

class GalleryWriterTest : public QObject {
    Q_OBJECT
private slots:
    void theWholePage() {
        // Written out by hand from the page's layout, for three rows with markup in the texts.
        QFile file(QStringLiteral(VELMORA_EXPECTED_DIR "/three-rows-full-width.html"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray expected = file.readAll();
        const std::optional<GalleryPage> gallery = readGalleryPage(expected);
        QVERIFY(gallery && gallery->slides.size() == 3);
        QCOMPARE(pageBytes(*gallery), expected);
        // Line ends changed on the way read the same; a page cut short, a slide without its
        // caption or another program's page is no page of ours.
        QVERIFY(readGalleryPage(QByteArray(expected).replace("\n", "\r\n")) == gallery);
        // Read in time however many '&' a title holds (this one would take hours if the reader
        // looked for each one's end through the rest of the line).
        const QByteArray ampersands(8 << 20, '&');
        QCOMPARE(readGalleryPage(QByteArray(expected).replace("<title>", "<title>" + ampersands))
                     ->settings.headTitle.size(),
                 gallery->settings.headTitle.size() + ampersands.size());
        const qsizetype lastCaption = expected.lastIndexOf("\t<div class='carousel-caption");
        const qsizetype lineEnd = expected.indexOf('\n', lastCaption) + 1;
        for (const QByteArray& other :
             {QByteArray(), expected.first(expected.size() - 20),
              QByteArray(expected).replace("</title>", ""),
              QByteArray(expected).remove(lastCaption, lineEnd - lastCaption),
              QByteArray(expected).replace("simpleCarousel", "x")})
            QVERIFY(!readGalleryPage(other));
    }

    void theSelfContainedPageReadsBack() {
        GalleryPage gallery{{{},
                             {},
                             "Tom & <Jerry>",
                             "It's \"ours\"",
                             "a; b",
                             "black",
                             "Light Gray",
                             "yellow",
                             false,
                             true},
                            {{"b 1.jpg", "<b>bold</b> & 'quoted' --captions:x"},
                             {"é #%?.png", ""},
                             {"&amp;.webp", "Ünï ☃"}}};
        const QByteArray page = pageBytes(gallery);
        QCOMPARE(readGalleryPage(page), gallery);
        gallery.settings.fullWidth = true;
        QCOMPARE(readGalleryPage(pageBytes(gallery)), gallery);
        // Cut short, or its opening or a slide's caption changed, it is no page of ours.
        for (const QByteArray& other :
             {page.first(page.size() - 20), QByteArray(page).replace("data-velmora", "data-x"),
              QByteArray(page).replace("<figcaption aria-hidden='true'>Ünï", "<p>Ünï")})
            QVERIFY(!readGalleryPage(other));
    }

    void onlyThePageIsWrittenAndOnlyInItsFolder_data() {
        QTest::addColumn<QString>("situation");  // what is there before the save
        QTest::addColumn<QString>("pageName");
        QTest::addColumn<int>("answer");    // to the question about replacing; 0 for no question
        QTest::addColumn<QString>("told");  // a part of the message; empty for none
        const QString ours = "our page", page = "index.html", plain = "must be a plain file name";
        QTest::newRow("new page") << "nothing" << page << 0 << "";
        QTest::newRow("our earlier page") << ours << page << 0 << "";
        QTest::newRow("our earlier self-contained page")
            << "our self-contained page" << page << 0 << "";
        QTest::newRow("self-contained page, new") << "nothing, self-contained" << page << 0 << "";
        QTest::newRow("hand-made page, No") << "hand-made page" << page << kNo << "";
        QTest::newRow("hand-made page, Yes") << "hand-made page" << page << kYes << "";
        QTest::newRow("link swapped in while asked")
            << "hand-made page, then a link" << page << kYes << "is a link";
        QTest::newRow("link swapped in before the write")
            << "our page, then a link" << page << 0 << "";
        QTest::newRow("link out") << "link to ../outside.html" << page << 0
                                  << "\"index.html\" in the gallery's folder is a link";
        QTest::newRow("picture") << ours << "a.png" << 0
                                 << "\"a.png\" in the gallery's folder is a picture";
        QTest::newRow("text") << "text" << page << 0 << "is not a web page";
        QTest::newRow("parent") << ours << "../x.html" << 0 << plain;
        QTest::newRow("null") << ours << QString("a") + QChar(0) + ".html" << 0 << plain;
        QTest::newRow("empty") << ours << "" << 0 << plain;
        QTest::newRow("disk fills") << "disk fills" << page << 0 << "The disk is full.\r";
        QTest::newRow("bytes lost") << "bytes lost" << page << 0 << "The disk is full.\r";
        QTest::newRow("size limit") << "size limit" << page << 0 << ": File too large\r";
        QTest::newRow("folder gone") << "folder gone" << page << 0 << "no longer exists.\r";
        QTest::newRow("no folder yet") << "no folder" << page << 0 << "no folder for the page yet";
        QTest::newRow("folder is a file") << "folder is a file" << page << 0 << "not a folder.\r";
    }
    void onlyThePageIsWrittenAndOnlyInItsFolder() {
        QFETCH(QString, situation);
        QFETCH(QString, pageName);
        QFETCH(int, answer);
        QFETCH(QString, told);
        QTemporaryDir root;
        const QString folder = root.filePath("Trip"), page = folder + "/index.html";
        const QByteArray handMade = "<!DOCTYPE html>\n<p>Mine</p>\n";
        QVERIFY(QDir().mkpath(folder));
        QImage(16, 8, QImage::Format_RGB32).save(folder + "/a.png");
        writeFile(root.filePath("outside.html"), handMade);
        GalleryPage gallery{{folder + "/", "index.html", {}, "Earlier", {}, {}, {}, {}},
                            {{"a.png", ""}}};
        gallery.settings.selfContained = situation == "our self-contained page";
        writeFile(page, pageBytes(gallery));
        GallerySettings& settings = gallery.settings;
        settings.selfContained = situation.endsWith("self-contained");
        settings.title = "Now";
        settings.pageFileName = pageName;

        FileFactory makeFile;
        const auto linkOut = [&] {
            QFile::remove(page);
            QFile::link(root.filePath("outside.html"), page);
        };
        if (situation.startsWith("link to ")) {
            linkOut();
        } else if (situation == "our page, then a link") {
            makeFile = [&] { return linkOut(), std::make_unique<QFile>(); };
        } else if (situation.startsWith("nothing")) {
            QVERIFY(QFile::remove(page));
        } else if (situation.startsWith("hand-made page") || situation == "text") {
            writeFile(page, situation == "text" ? "Film, batteries.\n" : handMade);
        } else if (situation == "disk fills" || situation == "bytes lost") {
            makeFile = [silent = situation == "bytes lost"] {
                return std::make_unique<FullDiskPageFile>(silent);
            };
        } else if (situation == "folder gone") {
            QVERIFY(QDir(folder).removeRecursively());
        } else if (situation == "folder is a file" || situation == "no folder") {
            settings.folder =
                situation == "no folder" ? "Please add the image's folder..." : folder + "/a.png/";
        }
        const bool written = told.isEmpty() && answer != kNo;
        QMap<QString, QByteArray> expected = filesUnder(root.path());
        if (written) expected[page] = pageBytes(gallery);

        rlimit limit{};
        getrlimit(RLIMIT_FSIZE, &limit);
        const rlimit small{situation == "size limit" ? 1000 : limit.rlim_cur, limit.rlim_max};
        std::signal(SIGXFSZ, SIG_IGN);
        setrlimit(RLIMIT_FSIZE, &small);
        QStringList asked;
        const auto mayReplace = [&](const QString& name) {
            asked << name;
            if (situation.endsWith("then a link")) linkOut();  // while the user is asked
            return answer == kYes;
        };
        const PageWriteResult result =
            saveGalleryPage(settings, "1 image", rowsOf(gallery), makeFile, mayReplace);
        setrlimit(RLIMIT_FSIZE, &limit);

        QCOMPARE(asked, QStringList(answer ? 1 : 0, "index.html"));
        QVERIFY2(result.error.contains(told) && result.error.isEmpty() == told.isEmpty(),
                 qPrintable(result.error));
        QCOMPARE(result.ok, written);
        // Every picture, every file outside and any earlier page byte for byte; no temporary
        // file, no file of another name.
        QCOMPARE(filesUnder(root.path()), expected);
    }
};

VELMORA_TEST_MAIN(GalleryWriterTest)
#include "tst_gallerywriter.moc"
