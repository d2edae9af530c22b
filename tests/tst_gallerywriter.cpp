#include <sys/resource.h>

#include <QDir>
#include <QDirIterator>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <csignal>

#include "gallery/gallery.h"
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

using Choice = std::function<void(GallerySettings&)>;

// The core's page at `path`, its folder reopened as its page left it, with `choose` made.
QByteArray corePage(const QString& path, const Choice& choose) {
    const QString folder = QFileInfo(path).path();
    Gallery gallery;
    const std::optional<GalleryPageFile> written = newestGalleryPageIn(folder);
    gallery.openFolder(written ? written->path : folder);  // a page handed over is reopened unasked
    GallerySettings settings = gallery.settings();
    choose(settings);
    return galleryPage(settings, gallery.images().countText(), gallery.images().rows());
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

    // With no display, the program writes the page the window would and nothing else, and says so.
    void theCommandLineWritesWithNoWindow() {
        QTemporaryDir root;
        for (const char* name : {"Plain/a.png", "Plain/b.png", "Paged/a.png", "Paged/b.png",
                                 "Paged/c.png", "Foreign/a.png", "Empty/"})
            QVERIFY(QDir().mkpath(QFileInfo(root.filePath(name)).path()) &&
                    (!name[6] || QImage(8, 4, QImage::Format_RGB32).save(root.filePath(name))));
        GalleryPage paged{{}, {{"c.png", "Sea"}, {"gone.png", "x"}, {"a.png", "Sky"}}};
        paged.settings.backgroundColour = "Navy";
        writeFile(root.filePath("Paged/index.html"), pageBytes(paged));
        writeFile(root.filePath("Foreign/index.html"), "<!DOCTYPE html>\n<p>Mine</p>\n");
        const Choice none = [](GallerySettings&) {};
        const QString help = "; see velmora --help\n";
        // Each case: the arguments, the page written and its settings, the start of standard
        // output, standard error, the exit status.
        const std::tuple<QString, QString, Choice, QString, QString, int> cases[] = {
            {"--write Plain", "Plain/index.html", none, "Plain/index.html: 2 images\n", "", 0},
            {"--write Paged", "Paged/index.html", none, "Paged/index.html: 3 images\n",
             "velmora: Paged: left out, no longer in the folder: gone.png\n", 0},
            {"--write Foreign Empty gone Plain/", "Plain/index.html", none,
             "Plain/index.html: 2 images\n",
             "velmora: Foreign: index.html already exists and was not written by Velmora; "
             "--replace replaces it\nvelmora: Empty: no pictures in the folder; no page "
             "written\nvelmora: gone: not an existing folder\n",
             2},
            {"--write --replace Foreign", "Foreign/index.html", none,
             "Foreign/index.html: 1 image\n", "", 0},
            {"--write --page a.png Plain", "", none, "",
             "velmora: Plain: \"a.png\" in the gallery's folder is a picture. Velmora never writes "
             "over a picture; please choose another page name.\n",
             2},
            {"--write --page=t.html --title=T --background=navy --margins --self-contained Plain",
             "Plain/t.html",
             [](GallerySettings& s) {
                 s.pageFileName = "t.html", s.title = "T", s.backgroundColour = "Navy";
                 s.fullWidth = false, s.selfContained = true;
             },
             "Plain/t.html: 2 images\n", "", 0},
            {"--write --caption-colour=Mauve Plain", "", none, "",
             "velmora: \"Mauve\" is not one of the colour names Velmora offers" + help, 1},
            {"--title=T Plain", "", none, "", "velmora: --title goes with --write" + help, 1},
            {"--version", "", none, "Velmora ", "", 0},
            {"--help", "", none, "Usage: ", "", 0},
        };
        QProcess velmora;
        velmora.setWorkingDirectory(root.path());
        const QStringList noDisplay = {"-u", "DISPLAY",         "-u",           "WAYLAND_DISPLAY",
                                       "-u", "QT_QPA_PLATFORM", VELMORA_PROGRAM};
        for (const auto& [arguments, page, choose, out, errors, status] : cases) {
            QMap<QString, QByteArray> expected = filesUnder(root.path());
            if (!page.isEmpty())
                expected[root.filePath(page)] = corePage(root.filePath(page), choose);
            velmora.start("env", noDisplay + arguments.split(' '));
            QVERIFY(velmora.waitForFinished());
            QVERIFY(velmora.readAllStandardOutput().startsWith(out.toUtf8()));
            QCOMPARE(velmora.readAllStandardError(), errors.toUtf8());
            QCOMPARE(velmora.exitStatus() == QProcess::NormalExit ? velmora.exitCode() : -1,
                     status);
            QCOMPARE(filesUnder(root.path()), expected);
        }
    }
};

VELMORA_TEST_MAIN(GalleryWriterTest)
#include "tst_gallerywriter.moc"
