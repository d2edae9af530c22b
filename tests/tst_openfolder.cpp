#include <QCheckBox>
#include <QComboBox>
#include <QFileOpenEvent>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>
#include <iostream>
#include <sstream>

#include "app/commandline.h"
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
const QStringList kPlain = {"a.png|", "b.png|", "c.jpg|", "d.png|"};

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

// Standard error, caught while this lives.
struct CapturedErrors {
    std::ostringstream text;
    std::streambuf* saved = std::cerr.rdbuf(text.rdbuf());
    ~CapturedErrors() { std::cerr.rdbuf(saved); }
};
}  // namespace
Q_DECLARE_METATYPE(GalleryPage)

// Every road by which a folder comes in (a drop, Open Folder, the command line, the desktop's open
// event) and what it finds there: a gallery page of ours is offered to be reopened.
class OpenFolderTest : public QObject {
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
    // Hands `item`, relative to the test folder, over by `road`: a drop unless "argument" or
    // "event".
    void hand(const QString& road, const QString& item) {
        if (road == "argument") {
            App::instance()->openFolder(readCommandLine({"velmora", item}).folder);
        } else if (road == "event") {
            QFileOpenEvent open(dir.filePath(item));
            QCoreApplication::sendEvent(App::instance(), &open);
        } else {
            dropOn(window, {QUrl::fromLocalFile(dir.filePath(item))});
        }
        QCoreApplication::processEvents();
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
        hand("drop", "Trip");
        catalogue->moveRowsTo({3}, 0);
        for (const auto& [row, caption] : {std::pair{0, "Dunes"}, {1, "Start & <end>"}, {3, "x"}})
            catalogue->setCell(row, 7, caption);
        control<QLineEdit>("galleryFileName")->setText("trip.html");
        control<QComboBox>("bgColot")->setCurrentText("Navy");
        control<QCheckBox>("CheckBoxFullScreen")->setChecked(false);
        written = savedTrip();
        // Relative arguments are relative to where the program was started.
        QVERIFY(QDir::setCurrent(dir.path()));
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

    // An answer of 0: no question is expected. No rows: the item is refused with a word.
    void aFolderOnAnEmptyListOffersItsPage_data() {
        QTest::addColumn<QString>("road");
        QTest::addColumn<QStringList>("items");
        QTest::addColumn<int>("answer");
        QTest::addColumn<QStringList>("expected");
        const QStringList z = {"z.png|"};
        QTest::newRow("Yes") << "drop" << QStringList{"Trip"} << kAnswerYes << kRestored;
        QTest::newRow("No") << "drop" << QStringList{"Trip"} << kAnswerNo << kPlain;
        QTest::newRow("the page dropped")
            << "drop" << QStringList{"Trip/trip.html"} << 0 << kRestored;
        QTest::newRow("a filled list")
            << "drop" << QStringList{"Foreign", "Trip"} << 0 << z + kPlain;
        QTest::newRow("another program's page") << "drop" << QStringList{"Foreign"} << 0 << z;
        QTest::newRow("the same folder twice")
            << "drop" << QStringList{"Foreign", "Foreign"} << 0 << z + z;
        QTest::newRow("argument") << "argument" << QStringList{"Trip"} << kAnswerYes << kRestored;
        QTest::newRow("argument, slash")
            << "argument" << QStringList{"Trip/"} << kAnswerNo << kPlain;
        QTest::newRow("argument, missing")
            << "argument" << QStringList{"gone"} << 0 << QStringList();
        QTest::newRow("open event") << "event" << QStringList{"Trip"} << kAnswerNo << kPlain;
        QTest::newRow("open event, a picture")
            << "event" << QStringList{"Trip/a.png"} << 0 << QStringList();
    }
    void aFolderOnAnEmptyListOffersItsPage() {
        QFETCH(QString, road);
        QFETCH(QStringList, items);
        QFETCH(int, answer);
        QFETCH(QStringList, expected);
        if (answer) dialogs.answers.enqueue(answer);
        CapturedErrors errors;
        for (const QString& item : items) hand(road, item);
        QCOMPARE(dialogs.questions.size(), answer ? 1 : 0);
        QVERIFY(!answer ||
                (dialogs.questions[0].text == kAsked && dialogs.questions[0].buttons == 36));
        QCOMPARE(rows(), expected);
        QVERIFY(dialogs.messages.isEmpty());
        const QString error = QString::fromStdString(errors.text.str());
        QVERIFY2(expected.isEmpty() ? error.contains(items.first() + "\": not an existing folder")
                                    : error.isEmpty(),
                 qPrintable(error));
        if (expected.isEmpty()) return;
        QCOMPARE(catalogue->ListIndex(), 0);
        // The page goes to the folder wherever the program was started.
        QVERIFY(QDir::isAbsolutePath(window->gallerySettings().galleryPath));
        if (expected != kRestored) return;
        QCOMPARE(control<QLineEdit>("imgCaption")->text(), "Dunes");
        QCOMPARE(window->gallerySettings().galleryFileName, "trip.html");
        QCOMPARE(savedTrip(), written);
    }

    void aSecondFolderArgumentEndsTheRunWithAnError() {
        CapturedErrors errors;
        QCOMPARE(readCommandLine({"velmora", "Trip", "more"}).exitCode, 1);
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
        hand("drop", "Later");
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
        hand("drop", "Trip");  // answered No
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

VELMORA_TEST_MAIN(OpenFolderTest)
#include "tst_openfolder.moc"
