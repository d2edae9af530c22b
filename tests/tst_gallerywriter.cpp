#include <sys/resource.h>

#include <QBuffer>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QImage>
#include <QSaveFile>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>
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
    settings.bgColor = "Black";
    settings.textColor = "White";
    settings.captionColor = "Gold";
    settings.fullPageWidth = fullWidth;
    return settings;
}

QByteArray pageFor(const GallerySettings& settings, const QString& countText,
                   const QList<CatalogueRow>& rows) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    return writeGalleryPage(buffer, settings, countText, rows) ? buffer.data() : QByteArray();
}

// A page file on a disk that fills up after its first kilobyte: the write stops short there or,
// as some full disks do, reports success for bytes that never arrive.
class FullDiskPageFile : public QSaveFile {
public:
    FullDiskPageFile(const QString& path, bool silent) : QSaveFile(path), silent_(silent) {}

protected:
    qint64 writeData(const char* data, qint64 length) override {
        const qint64 fits = std::clamp<qint64>(kRoom - written_, 0, length);
        if (fits > 0) written_ += QSaveFile::writeData(data, fits);
        return silent_ ? length : fits;
    }

private:
    static constexpr qint64 kRoom = 1024;
    bool silent_;
    qint64 written_ = 0;
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

enum Situation {
    Nothing,
    OurPage,
    HandMadePage,
    LinkToPicture,
    LinkOutOfTheFolder,
    PictureAsPage,
    TextAsPage,
    DiskFills,
    DiskLosesBytes,
    SizeLimit,
    FolderGone,
    FolderIsAFile
};

}  // namespace

class GalleryWriterTest : public QObject {
    Q_OBJECT
private slots:
    void init() {
        TestEnvironment::dialogs().clear();
        TestEnvironment::desktop().clear();
    }

    void theWholePageInBothWidthModes() {
        QCOMPARE(pageFor(settingsIn("/trip", true), "3 images", threeRows()), expectedPage());

        // Without full width the page gains exactly the container's two lines.
        QByteArray withMargins = expectedPage();
        withMargins.replace("<body style='background-color:Black;'>\n",
                            "<body style='background-color:Black;'>\n<div class='container'>\n");
        withMargins.replace("  </a>\n\n</div>\n</div>\n</body>",
                            "  </a>\n\n</div>\n</div>\n</div>\n</body>");
        QCOMPARE(pageFor(settingsIn("/trip", false), "3 images", threeRows()), withMargins);
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
        QTest::addColumn<int>("situation");
        QTest::addColumn<QString>("pageName");
        QTest::addColumn<int>("answer");  // to the question about replacing; 0 for no question
        QTest::addColumn<bool>("written");
        QTest::addColumn<QString>("told");  // a part of the message; empty for none
        const QString page = "index.html";
        QTest::newRow("new page") << int(Nothing) << page << 0 << true << "";
        QTest::newRow("our earlier page") << int(OurPage) << page << 0 << true << "";
        QTest::newRow("hand-made, No") << int(HandMadePage) << page << kAnswerNo << false << "";
        QTest::newRow("hand-made, Yes") << int(HandMadePage) << page << kAnswerYes << true << "";
        QTest::newRow("link to a picture") << int(LinkToPicture) << page << 0 << false
                                           << "\"index.html\" in the gallery's folder is a link";
        QTest::newRow("link out") << int(LinkOutOfTheFolder) << page << 0 << false << "is a link";
        QTest::newRow("picture as page") << int(PictureAsPage) << page << 0 << false
                                         << "\"index.html\" in the gallery's folder is a picture";
        QTest::newRow("page as picture") << int(OurPage) << "a.png" << 0 << false << "is a picture";
        QTest::newRow("text file") << int(TextAsPage) << page << 0 << false << "not a web page";
        const QString plainName = "The page name must be a plain file name";
        QTest::newRow("parent") << int(OurPage) << "../x.html" << 0 << false << plainName;
        QTest::newRow("null") << int(OurPage) << QString("a") + QChar(0) + ".html" << 0 << false
                              << plainName;
        QTest::newRow("dot") << int(OurPage) << "." << 0 << false << plainName;
        QTest::newRow("empty") << int(OurPage) << "" << 0 << false << plainName;
        QTest::newRow("disk fills")
            << int(DiskFills) << page << 0 << false << "The disk is full.\r";
        QTest::newRow("bytes lost")
            << int(DiskLosesBytes) << page << 0 << false << "The disk is full.\r";
        QTest::newRow("size limit") << int(SizeLimit) << page << 0 << false << "File too large";
        QTest::newRow("folder gone")
            << int(FolderGone) << page << 0 << false << "The folder no longer exists.\r";
        QTest::newRow("folder is a file")
            << int(FolderIsAFile) << page << 0 << false << "is a file, not a folder.\r";
    }
    void onlyThePageIsWrittenAndOnlyInItsFolder() {
        QFETCH(int, situation);
        QFETCH(QString, pageName);
        QFETCH(int, answer);
        QFETCH(bool, written);
        QFETCH(QString, told);
        QTemporaryDir root;
        const QString folder = root.filePath("Trip");
        const QString page = folder + "/index.html";
        QVERIFY(QDir().mkpath(folder));
        QImage(16, 8, QImage::Format_RGB32).save(folder + "/a.png");
        const QByteArray handMade = "<!DOCTYPE html>\n<p>Mine</p>\n";
        writeFile(root.filePath("outside.html"), handMade);
        QList<CatalogueRow> rows(1);
        rows[0].originalName = "a.png";
        rows[0].imagePath = folder + "/a.png";
        GallerySettings settings = settingsIn(folder, true);
        settings.galleryTitle = "Earlier";
        QVERIFY(saveGalleryPage(settings, "1 image", rows).ok);
        settings.galleryTitle = "Now";
        settings.galleryFileName = pageName;

        PageFileFactory makeFile;
        switch (Situation(situation)) {
            case Nothing:
                QVERIFY(QFile::remove(page));
                break;
            case HandMadePage:
                writeFile(page, handMade);
                break;
            case LinkToPicture:
            case LinkOutOfTheFolder:
                QVERIFY(QFile::remove(page));
                QVERIFY(QFile::link(
                    situation == LinkToPicture ? folder + "/a.png" : root.filePath("outside.html"),
                    page));
                break;
            case PictureAsPage:
                QVERIFY(QFile::remove(page) && QFile::copy(folder + "/a.png", page));
                break;
            case TextAsPage:
                writeFile(page, "Film, batteries.\n");
                break;
            case DiskFills:
            case DiskLosesBytes:
                makeFile = [situation](const QString& path) {
                    return std::make_unique<FullDiskPageFile>(path, situation == DiskLosesBytes);
                };
                break;
            case FolderGone:
                QVERIFY(QDir(folder).removeRecursively());
                break;
            case FolderIsAFile:
                settings.galleryPath = folder + "/a.png/";
                break;
            case OurPage:
            case SizeLimit:
                break;
        }
        if (answer != 0) TestEnvironment::dialogs().answers.enqueue(answer);
        QMap<QString, QByteArray> expected = filesUnder(root.path());
        if (written) expected[page] = pageFor(settings, "1 image", rows);

        rlimit limit{};
        getrlimit(RLIMIT_FSIZE, &limit);
        if (situation == SizeLimit) {
            std::signal(SIGXFSZ, SIG_IGN);
            const rlimit small{1000, limit.rlim_max};
            setrlimit(RLIMIT_FSIZE, &small);
        }
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
        if (!told.isEmpty()) {
            const QString& message = dialogs.messages[0];
            QVERIFY2(message.startsWith("The gallery page could not be written.\r") &&
                         message.contains(told),
                     qPrintable(message));
        }
        QCOMPARE(TestEnvironment::desktop().launched, written ? QStringList{page} : QStringList());
        // Every picture, every file outside and any earlier page byte for byte; no temporary
        // file, no file of another name.
        QCOMPARE(filesUnder(root.path()), expected);
    }
};

VELMORA_TEST_MAIN(GalleryWriterTest)
#include "tst_gallerywriter.moc"
