#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

#include "mainwindow/mainmenubar.h"
#include "mainwindow/windowmain.h"
#include "support/dropfiles.h"
#include "support/pagebytes.h"
#include "support/testenvironment.h"

namespace {
const QString kAsked = QStringLiteral(
    "This folder already has the gallery page \"trip.html\". Restore its captions, order and "
    "settings?");
const QStringList kRestored = {"d.png|Dunes", "a.png|Start & <end>", "b.png|", "c.jpg|x"};

// Names and texts that an encoding has to get right.
GalleryPage gallery(int slides, bool fullWidth) {
    const QStringList names = {"été à Nice.jpg", "100% & more's #1?.png", " lead, trail .gif",
                               "日本.jpeg", "a\"b<c>\\d.png"};
    const QStringList captions = {"<b>bold</b> & <i>it</i>", "&amp; stays &amp;", "",
                                  "'one' \"two\" &#65;", "</h5></div>"};
    GalleryPage page{
        {{}, {}, "Tom & Jerry's <a>", "&lt;b&gt;", {}, "Navy", "Gold", "Red", fullWidth}, {}};
    for (int i = 0; i < slides; ++i)
        page.slides.append({QString::number(i) + names[i % 5], captions[i % 5]});
    return page;
}

void writeFile(const QString& path, const QByteArray& bytes, int secondsAgo = 0) {
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush());
    file.setFileTime(QDateTime::currentDateTime().addSecs(-secondsAgo),
                     QFileDevice::FileModificationTime);
}

void writeImages(const QString& folder, const QStringList& names) {
    QDir().mkpath(folder);
    QImage image(4, 3, QImage::Format_RGB32);
    for (const QString& name : names) QVERIFY(image.save(folder + "/" + name, "PNG"));
}

QByteArray withoutLine(QByteArray page, const QByteArray& holding) {
    const qsizetype start = page.lastIndexOf('\n', page.indexOf(holding)) + 1;
    return page.remove(start, page.indexOf('\n', start) + 1 - start);
}
}  // namespace
Q_DECLARE_METATYPE(GalleryPage)

class ReopenTest : public QObject {
    Q_OBJECT
    QTemporaryDir dir;
    const QString trip = dir.filePath("Trip");
    QByteArray written;
    WindowMain* window = nullptr;
    ImageCatalogue* catalogue = nullptr;
    RecordingDialogs& dialogs = TestEnvironment::dialogs();
    MainMenuBar& menus = App::instance()->menuBar();

    template <class W = QWidget>
    W* control(const char* name) const {
        return window->findChild<W*>(name);
    }
    void drop(const QString& item) {
        dropOn(window, {QUrl::fromLocalFile(item)});
        // The offscreen platform leaves no window active once the progress window has hidden.
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window));
    }
    QStringList rows() const {
        QStringList cells;
        for (int row = 0; row < catalogue->ListCount(); ++row)
            cells << catalogue->Cell(row, 1) + "|" + catalogue->Cell(row, 7);
        return cells;
    }
    QByteArray savedTrip() const {
        menus.Save->trigger();
        QFile page(trip + "/trip.html");
        return page.open(QIODevice::ReadOnly) ? page.readAll() : QByteArray();
    }
    // Presses Tab until `name` has the focus; false as soon as a control off the window has it.
    bool tabTo(const char* name, QStringList& visited) {
        for (int presses = 0; presses < 20; ++presses) {
            QWidget* at = QApplication::focusWidget();
            if (at->mapTo(window, at->rect().bottomRight()).x() >= window->width()) return false;
            visited << at->objectName();
            if (at->objectName() == name) return true;
            QTest::keyClick(at, Qt::Key_Tab);
        }
        return false;
    }

private slots:
    // The trip's gallery, made the usual way: rows moved, captions typed, settings chosen.
    void initTestCase() {
        App::instance()->start();
        window = App::instance()->windowMain();
        catalogue = &window->catalogue();
        writeImages(trip, {"b.png", "a.png", "c.jpg", "d.png"});
        writeImages(dir.filePath("Foreign"), {"z.png"});
        writeFile(dir.filePath("Foreign/index.html"), "<html><div id='simpleCarousel'></html>");
        drop(trip);
        catalogue->moveRowsTo({3}, 0);
        for (const auto& [row, caption] : {std::pair{0, "Dunes"}, {1, "Start & <end>"}, {3, "x"}})
            catalogue->setCell(row, 7, caption);
        control<QLineEdit>("galleryFileName")->setText("trip.html");
        control<QComboBox>("bgColot")->setCurrentText("Navy");
        control<QCheckBox>("CheckBoxFullScreen")->setChecked(false);
        written = savedTrip();
    }
    void init() {
        catalogue->DeleteAllRows();
        control<QLineEdit>("galleryFileName")->setText("index.html");
        control<QComboBox>("bgColot")->setCurrentIndex(0);
        dialogs.clear();
    }

    void onlyTheWritersPagesReadBackWhole_data() {
        QTest::addColumn<QByteArray>("page");
        QTest::addColumn<GalleryPage>("expected");
        QTest::addColumn<bool>("read");
        const GalleryPage three = gallery(3, false);
        const QByteArray page = pageBytes(three);
        for (const GalleryPage& whole : {gallery(0, true), gallery(1, true), gallery(60, false)})
            QTest::addRow("%lld images", whole.slides.size()) << pageBytes(whole) << whole << true;
        QTest::newRow("CR LF line ends") << QByteArray(page).replace("\n", "\r\n") << three << true;
        QTest::newRow("nothing") << QByteArray() << three << false;
        QTest::newRow("cut short") << page.first(page.size() - 20) << three << false;
        QTest::newRow("id renamed")
            << QByteArray(page).replace("simpleCarousel", "x") << three << false;
        QTest::newRow("a caption gone") << withoutLine(page, "stays") << three << false;
        QTest::newRow("the title gone") << withoutLine(page, "<title>") << three << false;
    }
    void onlyTheWritersPagesReadBackWhole() {
        QFETCH(QByteArray, page);
        QFETCH(GalleryPage, expected);
        QFETCH(bool, read);
        const std::optional<GalleryPage> found = readGalleryPage(page);
        QCOMPARE(found.has_value(), read);
        QVERIFY(!read || *found == expected);
        QVERIFY(!read || pageBytes(*found) == pageBytes(expected));
    }

    // An answer of 0: no question is expected.
    void aFolderOnAnEmptyListOffersItsPage_data() {
        QTest::addColumn<QStringList>("dropped");
        QTest::addColumn<int>("answer");
        QTest::addColumn<QStringList>("expected");
        const QString foreign = dir.filePath("Foreign");
        const QStringList plain = {"a.png|", "b.png|", "c.jpg|", "d.png|"};
        QTest::newRow("Yes") << QStringList{trip} << kAnswerYes << kRestored;
        QTest::newRow("No") << QStringList{trip} << kAnswerNo << plain;
        QTest::newRow("the page dropped") << QStringList{trip + "/trip.html"} << 0 << kRestored;
        QTest::newRow("a filled list")
            << QStringList{foreign, trip} << 0 << QStringList{"z.png|"} + plain;
        QTest::newRow("another program's page")
            << QStringList{foreign} << 0 << QStringList{"z.png|"};
    }
    void aFolderOnAnEmptyListOffersItsPage() {
        QFETCH(QStringList, dropped);
        QFETCH(int, answer);
        QFETCH(QStringList, expected);
        if (answer) dialogs.answers.enqueue(answer);
        for (const QString& item : dropped) drop(item);
        QCOMPARE(dialogs.questions.size(), answer ? 1 : 0);
        QVERIFY(!answer ||
                (dialogs.questions[0].text == kAsked && dialogs.questions[0].buttons == 36));
        QCOMPARE(rows(), expected);
        QCOMPARE(catalogue->ListIndex(), 0);
        QVERIFY(dialogs.messages.isEmpty());
        if (expected != kRestored) return;
        QCOMPARE(control<QLineEdit>("imgCaption")->text(), "Dunes");
        QCOMPARE(window->gallerySettings().galleryFileName, "trip.html");
        QCOMPARE(savedTrip(), written);
    }

    // Of several pages the newest of ours counts; gone images are named, new ones follow.
    void imagesGoneAndAddedSinceTheNewestPage() {
        const QString later = dir.filePath("Later");
        writeImages(later, {"e.png", "c.jpg", "0.png", "b.png"});
        GalleryPage page = gallery(0, true);
        for (int i = 1; i <= 12; ++i) page.slides.append({QString("gone %1.jpg").arg(i), "old"});
        page.slides.insert(3, {"b.png", ""});
        page.slides.insert(3, {"c.jpg", "Cliffs"});
        page.settings.captionColor = "#f00";  // no colour of the popups
        writeFile(later + "/trip.html", pageBytes(page), 30);
        GalleryPage older = page;
        older.settings.galleryTitle = "An older page";
        writeFile(later + "/older.htm", pageBytes(older), 60);
        writeFile(later + "/notes.html", "<html><body>notes</body></html>");
        dialogs.answers.enqueue(kAnswerYes);
        drop(later);
        QCOMPARE(dialogs.questions.first().text, kAsked);
        QCOMPARE(rows(), QStringList({"c.jpg|Cliffs", "b.png|", "0.png|", "e.png|"}));
        page.settings.galleryPath = later + "/";
        page.settings.galleryFileName = "trip.html";
        page.settings.captionColor = "White";  // left as it was
        QVERIFY(window->gallerySettings() == page.settings);
        QStringList told = {"12 images of the page are no longer in the folder."};
        for (int i = 1; i <= 10; ++i) told << QString("gone %1.jpg").arg(i);
        QCOMPARE(dialogs.messages, QStringList({told.join('\r')}));
    }

    void openFolderTakesTheChosenFolderTheSameRoad() {
        QCOMPARE(menus.FileMenu->actions().first()->text(), "Open Folder...");
        menus.OpenFolder->trigger();  // the chooser is cancelled
        QCOMPARE(catalogue->ListCount(), 0);
        dialogs.folders.enqueue(trip);
        dialogs.answers.enqueue(kAnswerYes);
        QTest::keyClick(window, Qt::Key_O, Qt::ControlModifier);
        QCOMPARE(dialogs.folderChoosers, 2);
        QCOMPARE(rows(), kRestored);
    }

    // Tab leaves the list, and goes round the visible controls in the order of the design.
    void aKeyboardAloneCaptionsImagesAndWritesThePage() {
        drop(trip);  // answered No
        control("Listbox1")->setFocus();
        QStringList visited;
        QVERIFY(tabTo("imgCaption", visited));
        QTest::keyClicks(QApplication::focusWidget(), "First");
        QVERIFY(tabTo("Listbox1", visited));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
        QVERIFY(tabTo("imgCaption", visited));
        QTest::keyClicks(QApplication::focusWidget(), "Second");
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_S, Qt::ControlModifier);
        visited.removeDuplicates();
        QCOMPARE(visited.join(' '),
                 "Listbox1 clearBtn clearBtn1 galleryFileName galleryHTMLtitle "
                 "galleryTitle gallerySubTitle CheckBoxFullScreen bgColot "
                 "txtColor capColor imgCaption BevelButton1 BevelButton2 "
                 "galleryPath");
        const auto page = readGalleryPageFile(trip + "/index.html");
        QFile::remove(trip + "/index.html");
        QVERIFY(page);
        QCOMPARE(page->page.slides.first(2),
                 QList<PageSlide>({{"a.png", "First"}, {"b.png", "Second"}}));
    }
};

VELMORA_TEST_MAIN(ReopenTest)
#include "tst_reopen.moc"
