#include <sys/resource.h>

#include <QBuffer>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QImage>
#include <QSaveFile>
#include <QTemporaryDir>
#include <QTest>
#include <csignal>

#include "page/gallerywriter.h"
#include "page/pagetext.h"
#include "platform/nativename.h"
#include "support/testenvironment.h"

namespace {

// The page for the three rows below, written out by hand from the page's layout, is kept in
// tests/expected.
QByteArray expectedPage() {
    QFile file(QStringLiteral(VELMORA_EXPECTED_DIR "/three-rows-full-width.html"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

CatalogueRow rowOf(const QString& name, const QString& caption = {}, const QString& path = {}) {
    CatalogueRow row;
    row.originalName = name;
    row.caption = caption;
    row.imagePath = path;
    return row;
}

QList<CatalogueRow> threeRows() {
    return {rowOf("sunset over sea.jpg", "<b>Golden</b> hour"), rowOf("Café Zürich.png"),
            rowOf("IMG_2.gif", "Last one")};
}

GallerySettings settingsIn(const QString& folder, bool fullWidth) {
    return {folder + "/",   "index.html", "Ada's <em>photo</em> gallery",
            "Summer & sea", "",           "Black",
            "White",        "Gold",       fullWidth};
}

QByteArray pageFor(const GallerySettings& settings, const QString& countText,
                   const QList<CatalogueRow>& rows) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    return writeGalleryPage(buffer, settings, countText, rows) ? buffer.data() : QByteArray();
}

// A page file on a full disk: its writes take nothing or, as some full disks do, report success
// for bytes that never arrive.
class FullDiskPageFile : public QSaveFile {
public:
    FullDiskPageFile(const QString& path, bool silent) : QSaveFile(path), silent_(silent) {}

protected:
    qint64 writeData(const char*, qint64 length) override { return silent_ ? length : 0; }

private:
    bool silent_;
};

void writeFile(const QString& path, const QByteArray& content) {
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
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
    void init() {
        TestEnvironment::dialogs().clear();
        TestEnvironment::desktop().clear();
    }

    void theWholePage() {
        QCOMPARE(pageFor(settingsIn("/trip", true), "3 images", threeRows()), expectedPage());
    }

    void fileNamesBecomeAddressesThatLeadBackToThem_data() {
        QTest::addColumn<QByteArray>("name");  // as the file system holds it
        QTest::addColumn<QString>("address");
        QTest::newRow("blanks and letters")
            << QByteArray("Café Zürich 1.png") << "Café Zürich 1.png";
        QTest::newRow("other scripts") << QByteArray("🌅 夜明け.png") << "🌅 夜明け.png";
        QTest::newRow("apostrophe") << QByteArray("Bob's photo.png") << "Bob%27s photo.png";
        QTest::newRow("fragment, query") << QByteArray("a#b?.png") << "a%23b%3F.png";
        QTest::newRow("escapes") << QByteArray("50%20off.png") << "50%2520off.png";
        QTest::newRow("reference") << QByteArray("a&amp;b.png") << "a%26amp;b.png";
        QTest::newRow("scheme") << QByteArray("c:d.png") << "c%3Ad.png";
        QTest::newRow("backslash") << QByteArray("back\\slash.png") << "back%5Cslash.png";
        QTest::newRow("markup") << QByteArray("<i \">.png") << "%3Ci %22%3E.png";
        QTest::newRow("blanks at the ends") << QByteArray(" a b ") << "%20a b%20";
        QTest::newRow("controls") << QByteArray("tab\tline\xc2\x85.png") << "tab%09line%C2%85.png";
        QTest::newRow("Latin-1") << QByteArray("caf\xe9.png") << "caf%E9.png";
        QTest::newRow("encoded surrogate") << QByteArray("\xed\xa0\x80.png") << "%ED%A0%80.png";
        QTest::newRow("cut short") << QByteArray("\xe2\x82.png") << "%E2%82.png";
    }
    void fileNamesBecomeAddressesThatLeadBackToThem() {
        QFETCH(QByteArray, name);
        QFETCH(QString, address);
        const QString listed = nativeName::fromBytes(name);
        QCOMPARE(nativeName::toBytes(listed), name);
        QCOMPARE(pageText::addressOfFileName(listed), address);
        QCOMPARE(pageText::addressOfFileBytes(name), address);
        QCOMPARE(pageText::fileBytesOfAddress(address), name);
        QCOMPARE(pageText::fileNameOfAddress(address), listed);
    }

    void onlyThePageIsWrittenAndOnlyInItsFolder_data() {
        QTest::addColumn<QString>("situation");  // what is there before the save
        QTest::addColumn<QString>("pageName");
        QTest::addColumn<int>("answer");    // to the question about replacing; 0 for no question
        QTest::addColumn<QString>("told");  // a part of the message; empty for none
        const QString ours = "our page", page = "index.html", plain = "must be a plain file name";
        QTest::newRow("new page") << "nothing" << page << 0 << "";
        QTest::newRow("our earlier page") << ours << page << 0 << "";
        QTest::newRow("hand-made page, No") << "hand-made page" << page << kAnswerNo << "";
        QTest::newRow("hand-made page, Yes") << "hand-made page" << page << kAnswerYes << "";
        QTest::newRow("link to a picture")
            << "link to a.png" << page << 0 << "\"index.html\" in the gallery's folder is a link";
        QTest::newRow("link out") << "link to ../outside.html" << page << 0 << "is a link";
        QTest::newRow("picture as page")
            << "picture" << page << 0 << "\"index.html\" in the gallery's folder is a picture";
        QTest::newRow("page named as the picture") << ours << "a.png" << 0 << "is a picture";
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
        QVERIFY(QDir().mkpath(folder));
        QImage(16, 8, QImage::Format_RGB32).save(folder + "/a.png");
        const QByteArray handMade = "<!DOCTYPE html>\n<p>Mine</p>\n";
        writeFile(root.filePath("outside.html"), handMade);
        const QList<CatalogueRow> rows{rowOf("a.png", "", folder + "/a.png")};
        GallerySettings settings = settingsIn(folder, true);
        settings.galleryTitle = "Earlier";
        QVERIFY(saveGalleryPage(settings, "1 image", rows).ok);
        settings.galleryTitle = "Now";
        settings.galleryFileName = pageName;

        PageFileFactory makeFile;
        if (situation.startsWith("link to ")) {
            QVERIFY(QFile::remove(page));
            QVERIFY(QFile::link(QDir(folder).absoluteFilePath(situation.mid(8)), page));
        } else if (situation == "nothing" || situation == "picture") {
            QVERIFY(QFile::remove(page));
            if (situation == "picture") QVERIFY(QFile::copy(folder + "/a.png", page));
        } else if (situation == "hand-made page" || situation == "text") {
            writeFile(page, situation == "text" ? "Film, batteries.\n" : handMade);
        } else if (situation == "disk fills" || situation == "bytes lost") {
            makeFile = [silent = situation == "bytes lost"](const QString& path) {
                return std::make_unique<FullDiskPageFile>(path, silent);
            };
        } else if (situation == "folder gone") {
            QVERIFY(QDir(folder).removeRecursively());
        } else if (situation == "folder is a file" || situation == "no folder") {
            settings.galleryPath =
                situation == "no folder" ? "Please add the image's folder..." : folder + "/a.png/";
        }
        if (answer != 0) TestEnvironment::dialogs().answers.enqueue(answer);
        const bool written = told.isEmpty() && answer != kAnswerNo;
        QMap<QString, QByteArray> expected = filesUnder(root.path());
        if (written) expected[page] = pageFor(settings, "1 image", rows);

        rlimit limit{};
        getrlimit(RLIMIT_FSIZE, &limit);
        const rlimit small{situation == "size limit" ? 1000 : limit.rlim_cur, limit.rlim_max};
        std::signal(SIGXFSZ, SIG_IGN);
        setrlimit(RLIMIT_FSIZE, &small);
        publishGalleryPage(settings, "1 image", rows, makeFile);
        setrlimit(RLIMIT_FSIZE, &limit);

        const RecordingDialogs& dialogs = TestEnvironment::dialogs();
        QCOMPARE(dialogs.questions.size(), answer != 0 ? 1 : 0);
        if (answer != 0) {
            QCOMPARE(dialogs.questions[0].text,
                     "index.html already exists and was not written by Velmora. Replace it?");
            QCOMPARE(dialogs.questions[0].buttons, 36);
        }
        QCOMPARE(dialogs.messages.size(), told.isEmpty() ? 0 : 1);
        if (!told.isEmpty())
            QVERIFY2(dialogs.messages[0].startsWith("The gallery page could not be written.\r") &&
                         dialogs.messages[0].contains(told),
                     qPrintable(dialogs.messages[0]));
        QCOMPARE(TestEnvironment::desktop().launched, written ? QStringList{page} : QStringList());
        // Every picture, every file outside and any earlier page byte for byte; no temporary
        // file, no file of another name.
        QCOMPARE(filesUnder(root.path()), expected);
    }
};

VELMORA_TEST_MAIN(GalleryWriterTest)
#include "tst_gallerywriter.moc"
