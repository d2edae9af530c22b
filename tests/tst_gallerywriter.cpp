#include <sys/resource.h>

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
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

    void aFailedWriteTellsWhyAndLeavesNothingBehind() {
        QTemporaryDir folder;
        GallerySettings settings = settingsIn(folder.path() + "/gone", true);
        publishGalleryPage(settings, "3 images", threeRows());
        QVERIFY(TestEnvironment::desktop().launched.isEmpty());
        QCOMPARE(TestEnvironment::dialogs().messages.size(), 1);
        const QString message = TestEnvironment::dialogs().messages.first();
        QVERIFY(message.startsWith("The gallery page could not be written.\r" + folder.path() +
                                   "/gone/index.html\r"));
        QVERIFY(message.size() > message.lastIndexOf('\r') + 1);  // the system's reason follows
        QVERIFY(!QFileInfo::exists(folder.path() + "/gone"));

        // A rewrite that fails half-way (the file size limit stands in for a full disk) keeps
        // the earlier page exactly as it was.
        settings = settingsIn(folder.path(), true);
        publishGalleryPage(settings, "3 images", threeRows());
        const QByteArray earlier = readFile(folder.path() + "/index.html");
        settings.galleryTitle = "Never written";
        rlimit limit{};
        getrlimit(RLIMIT_FSIZE, &limit);
        const rlimit small{1000, limit.rlim_max};
        std::signal(SIGXFSZ, SIG_IGN);
        setrlimit(RLIMIT_FSIZE, &small);
        const PageWriteResult result = saveGalleryPage(settings, "3 images", threeRows());
        setrlimit(RLIMIT_FSIZE, &limit);
        QVERIFY(!result.ok);
        QVERIFY(!result.error.isEmpty());
        QCOMPARE(readFile(folder.path() + "/index.html"), earlier);
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden),
                 QStringList({"index.html"}));
    }
};

VELMORA_TEST_MAIN(GalleryWriterTest)
#include "tst_gallerywriter.moc"
