#include <sys/stat.h>

#include <QAbstractButton>
#include <QClipboard>
#include <QComboBox>
#include <QDrag>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QTimer>
#include <filesystem>
#include <iostream>
#include <sstream>

#include "app/commandline.h"
#include "auxwindows/helpwindow.h"
#include "mainwindow/catalogueview.h"
#include "mainwindow/mainmenubar.h"
#include "mainwindow/mainwindow.h"
#include "platform/nativename.h"
#include "platform/sharedwindow.h"
#include "platform/specialfolders.h"
#include "preferences/preferenceswindow.h"
#include "preview/imagecanvas.h"
#include "support/dropfiles.h"
#include "support/pagebytes.h"
#include "support/testenvironment.h"
#include "support/testpictures.h"

namespace {
const QString kAsked = QStringLiteral(
    "This folder already has the gallery page \"trip.html\". Restore its captions, order and "
    "settings?");
const QStringList kRestored = {"d.png|Dunes", "a.png|Start & <end>", "b.png|", "c.jpg|x"};
const QStringList kPlain = {"a.png|", "b.png|", "c.jpg|", "d.png|"};
const QString kLatin1 = nativeName::fromBytes("caf\xe9");  // a folder's name that is not UTF-8

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

struct CapturedErrors {
    std::ostringstream text;
    std::streambuf* saved = std::cerr.rdbuf(text.rdbuf());
    ~CapturedErrors() { std::cerr.rdbuf(saved); }
};

// Opens the list's drop handler to the test, for the drop that the window system delivers.
struct DroppableView : CatalogueView {
    using CatalogueView::dropEvent;
};
}  // namespace

// The main window driven as its user drives it: menus, buttons, the list, the keyboard, and
// every road by which a folder comes in, with a gallery page of ours offered to be reopened.
class MainWindowTest : public QObject {
    Q_OBJECT
    QTemporaryDir dir;
    const QString trip = dir.filePath("Trip");
    QByteArray written;
    MainWindow* window = nullptr;
    ImageCatalogue* catalogue = nullptr;
    RecordingDialogs& dialogs = TestEnvironment::dialogs();
    Gallery& gallery = App::instance()->gallery();
    MainMenuBar& menus = App::instance()->menuBar();

    template <class W = QWidget>
    W* control(const char* name) const {
        return window->findChild<W*>(name);
    }
    // A row for each letter, its file named by it and captioned with it and "!".
    void fill(const QString& letters) {
        for (const QChar letter : letters) {
            CatalogueRow row;
            row.pictureName = row.originalName = row.imagePath = letter;
            row.caption = letter + QString("!");
            catalogue->addRow(row);
        }
        App::instance()->gallery().updateList();
    }
    static QString enabled(const QList<QAction*>& items) {
        QStringList texts;
        for (const QAction* item : items)
            if (!item->isSeparator() && item->isEnabled()) texts << item->text().remove('&');
        return texts.join(", ");
    }
    QStringList rows(const ImageCatalogue* of = nullptr) const {
        of = of ? of : catalogue;
        QStringList cells;
        for (int row = 0; row < of->imageCount(); ++row)
            cells << of->cell(row, CatalogueRow::FileName) + "|" +
                         of->cell(row, CatalogueRow::Caption);
        return cells;
    }
    // Hands `item`, in the test folder, over by `road`: a drop, the folder chooser of Ctrl+O, the
    // command line, or the desktop's open event.
    void hand(const QString& road, const QString& item) {
        QFileOpenEvent open(dir.filePath(item));
        if (road == "drop") dropOn(window, {QUrl::fromLocalFile(dir.filePath(item))});
        if (road == "Ctrl+O") dialogs.folders.enqueue(dir.filePath(item));
        if (road == "Ctrl+O") QTest::keyClick(window, Qt::Key_O, Qt::ControlModifier);
        QByteArray program = "velmora", argument = nativeName::toBytes(item);
        char* argv[] = {program.data(), argument.data()};
        if (road == "argument")
            App::instance()->openFolder(readCommandLine(nativeName::fromArguments(2, argv)).folder);
        if (road == "event") QCoreApplication::sendEvent(App::instance(), &open);
        QCoreApplication::processEvents();
        // The offscreen platform leaves no window active once the progress window has hidden.
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window));
    }
    static QString kept() {
        return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + "/kept work";
    }
    static QByteArray bytesOf(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    QByteArray savedTrip() const {
        menus.writePageItem->trigger();
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
    void initTestCase() {
        // Before there is a main window, Save has nothing to write from.
        menus.writePageItem->trigger();
        QCOMPARE(dialogs.beeps, 1);
        App::instance()->start();
        window = App::instance()->mainWindow();
        catalogue = &gallery.images();
        // Every start begins from the same settings.
        const GallerySettings start = gallery.settings();
        QCOMPARE(
            start.pageFileName + start.backgroundColour + start.titleColour + start.captionColour,
            "index.htmlBlackWhiteWhite");
        QCOMPARE(start.headTitle, QDir(TestEnvironment::home()).dirName() + "'s photo gallery");
        QVERIFY(start.fullWidth && (start.title + start.subtitle).isEmpty());
        QVERIFY(!existingInstance<PreferencesWindow>());
        // The trip's gallery, made the usual way: rows moved, captions typed, settings chosen.
        writeImages(trip, {"b.png", "a.png", "c.jpg", "d.png"});
        writeImages(dir.filePath("Foreign"), {"z.png"});
        writeImages(dir.filePath("Odd"), {"a.png", "d.tif"});  // PNG pictures both
        for (const char* name : {"b.ppm", "c.xpm"})
            QVERIFY(QImage(4, 3, QImage::Format_RGB32).save(dir.filePath("Odd/") + name));
        writeFile(dir.filePath("Foreign/index.html"), "<html><div id='simpleCarousel'></html>");
        QVERIFY(::mkdir(nativeName::toBytes(dir.filePath(kLatin1)).constData(), 0700) == 0);
        writeBytes(dir.filePath(kLatin1 + "/z.png"),
                   encoded(QImage(4, 3, QImage::Format_RGB32), "PNG"));
        hand("drop", "Trip");
        catalogue->moveRowsTo({3}, 0);
        for (const auto& [row, caption] : {std::pair{0, "Dunes"}, {1, "Start & <end>"}, {3, "x"}})
            catalogue->setCell(row, CatalogueRow::Caption, caption);
        control<QLineEdit>("pageFileNameField")->setText("trip.html");
        control<QComboBox>("backgroundColourBox")->setCurrentText("Navy");
        control<QAbstractButton>("fullWidthCheckBox")->setChecked(false);
        written = savedTrip();
        QVERIFY(QDir::setCurrent(dir.path()));  // where relative arguments start from
    }
    // Qt cannot reach a name that is not UTF-8 to remove it.
    void cleanupTestCase() {
        std::filesystem::remove_all(nativeName::toBytes(dir.filePath(kLatin1)).toStdString());
    }
    void init() {
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window));
        catalogue->removeAll();
        catalogue->setRenamed(false);
        control<QLineEdit>("folderField")->setText(dir.path() + "/");
        control<QLineEdit>("pageFileNameField")->setText("index.html");
        control<QComboBox>("backgroundColourBox")->setCurrentIndex(0);
        dialogs.clear();
        TestEnvironment::desktop().clear();
        QVERIFY(QDir(kept()).removeRecursively());
    }
    void theWindowHasItsSizeAndOpensItsSheets() {
        QCOMPARE(control("centralwidget")->size(), QSize(820, 680));
        QCOMPARE(window->minimumSize(), window->maximumSize());
        QVERIFY(!window->windowFlags().testFlag(Qt::WindowFullscreenButtonHint));
        control<QAbstractButton>("helpButton")->click();
        HelpWindow* help = existingInstance<HelpWindow>();
        QVERIFY(help && help->isVisible() && help->parentWidget() == window);
        QCOMPARE(window->windowTitle() + " / " + help->windowTitle(), "Velmora / Velmora - Help");
        help->close();
        App::instance()->preferences().openAtStart = true;
        Gallery another;
        MainWindow other(another, App::instance()->preferences(), menus);
        other.fillFromPreferences();
        App::instance()->preferences().openAtStart = false;
        QCOMPARE(existingInstance<PreferencesWindow>()->parentWidget(), &other);
    }
    // The menu bar as the user reads it, then the items kept out of it; and what is enabled.
    void theMenusHoldTheirItemsAndFollowTheRowsAndTheRenameFlag() {
        QList<QAction*> items;
        for (QAction* menu : window->menuBar()->actions()) items << menu << menu->menu()->actions();
        QStringList tree;
        for (const QAction* item : items + window->actions())
            tree << (item->isSeparator() ? "-" : item->text() + " " + item->shortcut().toString());
        QCOMPARE(tree.join('|'),
                 "&File |Open Folder... Ctrl+O|About Velmora |Write the gallery page Ctrl+S|"
                 "&Quit Ctrl+Q|&Edit |&Undo Ctrl+Z|-|Cu&t Ctrl+X|&Copy Ctrl+C|&Paste Ctrl+V|"
                 "&Delete |-|Select &All Ctrl+A|Rename All images... Ctrl+R|"
                 "Restore original file names... Ctrl+Shift+R|Preferences... Ctrl+K");
        const QList<QAction*> file = menus.fileMenu->actions() + menus.hiddenItems();
        QCOMPARE(enabled(file), "Open Folder..., About Velmora, Quit, Preferences...");
        fill("a");
        catalogue->selectRow(-1);
        catalogue->setRenamed(true);
        QCOMPARE(enabled(file),
                 "Open Folder..., About Velmora, Write the gallery page, Quit, "
                 "Rename All images..., Restore original file names..., Preferences...");
        catalogue->setCell(0, CatalogueRow::ListName,
                           "renamed");  // the hidden item answers its shortcut
        QTest::keyClick(window, Qt::Key_R, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(catalogue->cell(0, CatalogueRow::ListName) + " " +
                     (catalogue->renamed() ? "yes" : "no"),
                 "a no");
        catalogue->removeAll();
        catalogue->setRenamed(true);
        QCOMPARE(
            enabled(file),
            "Open Folder..., About Velmora, Quit, Restore original file names..., Preferences...");
    }
    // The button wants a selected row; the menu item, even with its enabling stale, any row. A
    // fault in a handler is shown and the program goes on (the tests after this one).
    void theButtonWantsASelectionAndTheMenuAnyRow() {
        auto* button = control<QAbstractButton>("writePageButton");
        RecordingDesktop& desktop = TestEnvironment::desktop();
        button->click();
        App::instance()->writePage();
        QCOMPARE(dialogs.beeps, 2);
        fill("a");
        catalogue->selectRow(-1);
        button->click();
        menus.writePageItem->trigger();
        QCOMPARE(desktop.launched, QStringList({dir.filePath("index.html")}));
        desktop.launches = false;  // no browser starts: where the page is is told
        menus.writePageItem->trigger();
        // Opening the written page fails deep in the button's handler; a timer throws anything.
        desktop.onLaunch = [](const QString&) { throw std::runtime_error("no browser <here>"); };
        catalogue->selectRow(0);
        QTest::mouseClick(button, Qt::LeftButton);
        QTimer::singleShot(0, [] { throw 42; });
        const QString oops =
            "Oooops...\rIn order to create the page with the galley, you must first add the folder "
            "with the images you have carefully chosen.";
        const QString shown = "Velmora ran into an unexpected error and carried on.";
        const QString browserless =
            "The gallery page was written, but no web browser could be "
            "started to show it. It is here:\r" +
            dir.filePath("index.html");
        QTRY_COMPARE(dialogs.messages,
                     QStringList({oops, oops, browserless, shown + "\rno browser <here>", shown}));
    }
    // Unasked, a button only beeps; answered No, its question changes nothing.
    void bothButtonsAskBeforeTakingRowsOut() {
        const QString clear = "Clear\n\nAre you sure to clear the image's list?";
        const QString one =
            "Remove image/s\n\nAre you sure to remove from the list the selected image?";
        // Each case: the button, the rows, the one selected, the question, what stays (counted).
        const std::tuple<const char*, QString, int, QString, QString> cases[] = {
            {"clearListButton", "", -1, "", ""},
            {"clearListButton", "ab", 1, clear, "Empty list"},
            {"removeImagesButton", "abc", -1, "", ""},
            {"removeImagesButton", "abc", 0, one, "b|b! c|c! 2 images"},
        };
        for (const auto& [button, letters, selected, question, kept] : cases) {
            init();
            fill(letters);
            catalogue->selectRow(selected);
            catalogue->setRenamed(true);
            const QStringList before = rows();
            control<QAbstractButton>(button)->click();
            QCOMPARE(rows(), before);
            QCOMPARE(dialogs.beeps, question.isEmpty() ? 1 : 0);
            QCOMPARE(dialogs.questions.size(), question.isEmpty() ? 0 : 1);
            if (question.isEmpty()) continue;
            QCOMPARE(dialogs.questions.first(), question);
            dialogs.answers.enqueue(true);
            control<QAbstractButton>(button)->click();
            QCOMPARE((rows() << control<QLabel>("imageCountLabel")->text()).join(' '), kept);
            QVERIFY(window->imageCanvas()->imagePath().isEmpty() &&
                    !menus.restoreNamesItem->isEnabled());
            QCOMPARE(catalogue->selectedRow() >= 0, catalogue->imageCount() > 0);
        }
        QCOMPARE(control<QLabel>("infoLabel")->text(),
                 "To start, simply Drag and Drag  a folder of chosen images onto this "
                 "window.\nPlease take note: the images have to be already resized.");
    }
    // Dragged rows move with their captions, into the page too; Ctrl+A selects every row; no key
    // and no wheel brings the hidden columns into view.
    void theListMovesDraggedRowsAndNeverScrollsSideways() {
        // The rows dragged, the drop in row heights (2.9: at the foot of row 2), the new order.
        const std::tuple<QList<int>, double, QString> cases[] = {
            {{0, 1}, 2.9, "c|c! a|a! b|b! d|d!"},
            {{3}, 0.1, "d|d! a|a! b|b! c|c!"},
            {{0, 2}, 5, "b|b! d|d! a|a! c|c!"}};
        auto* list = control<CatalogueView>("imageList");
        QWidget* port = list->viewport();
        for (const auto& [dragged, rowHeights, order] : cases) {
            init();
            fill("abcd");
            catalogue->selectRow(-1);
            for (int row : dragged)
                list->selectionModel()->select(
                    catalogue->index(row, 0),
                    QItemSelectionModel::Select | QItemSelectionModel::Rows);
            // The mouse starts the list's own drag; this platform leaves out the drop that ends it.
            const QPoint from = list->visualRect(catalogue->index(dragged.first(), 0)).center();
            QTest::mousePress(port, Qt::LeftButton, {}, from);
            QTest::mouseMove(port, from + QPoint(0, 3));
            QTest::mouseMove(port, from + QPoint(0, 30));
            const std::unique_ptr<QDrag> drag(list->findChild<QDrag*>());
            QVERIFY(drag);
            const QPoint at(5, qRound(list->rowHeight(0) * rowHeights));
            QDropEvent drop(at, Qt::MoveAction, drag->mimeData(), Qt::LeftButton, Qt::NoModifier);
            (list->*&DroppableView::dropEvent)(&drop);
            // A drop taken as a move would make the list remove its dragged rows after it.
            QVERIFY(!drop.isAccepted());
            QTest::mouseRelease(port, Qt::LeftButton, {}, at);
            QCOMPARE(rows().join(' '), order);
            menus.writePageItem->trigger();
            const auto page = readGalleryPageFile(dir.filePath("index.html"));
            QVERIFY(page);
            QStringList slides;
            for (const auto& [name, caption] : page->page.slides) slides << name + "|" + *caption;
            QCOMPARE(slides.join(' '), order);
        }
        list->setFocus();
        QTest::keyClick(list, Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(catalogue->selectedCount(), 4);
        for (Qt::Key key : {Qt::Key_Home, Qt::Key_Right, Qt::Key_End, Qt::Key_Right})
            QTest::keyClick(list, key);
        const QPointF inside(5, 5);
        QWheelEvent wheel(inside, list->viewport()->mapToGlobal(inside), {}, QPoint(-120, 0),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(list->viewport(), &wheel);
        QCOMPARE(list->horizontalHeader()->offset(), 0);
        QCOMPARE(list->currentIndex(), catalogue->index(3, 0));
    }
    // Each case: the focused control, what is typed, whether all is selected, the clipboard.
    void theEditItemsFollowTheFocusAndTheClipboard() {
        const std::tuple<const char*, const char*, bool, const char*, const char*> cases[] = {
            {"imageList", "", false, "x", "Select All"},
            {"pageFileNameField", "", false, "x", "Paste, Select All"},
            {"pageFileNameField", "", false, "", "Select All"},
            {"pageFileNameField", "", true, "x", "Cut, Copy, Paste, Delete, Select All"},
            {"titleField", "a", false, "x", "Undo, Paste, Select All"},
            {"folderField", "", true, "x", "Copy, Select All"},
            {"backgroundColourBox", "", false, "x", ""},
        };
        fill("abc");
        for (const auto& [focused, typed, selectAll, clipboard, items] : cases) {
            QGuiApplication::clipboard()->setText(clipboard);
            QWidget* target = control(focused);
            target->setFocus();
            QTest::keyClicks(target, typed);
            if (selectAll) menus.selectAllItem->trigger();
            QCOMPARE(focused + (": " + enabled(menus.editMenu->actions())),
                     focused + (": " + QString(items)));
            menus.undoItem->trigger();  // takes back what was typed, if anything
            if (auto* field = qobject_cast<QLineEdit*>(target)) QVERIFY(!field->isUndoAvailable());
        }
    }
    // Each case: how the items come in, the answers to the questions asked (upper case: to restore
    // the page; lower case: to start a new gallery rather than add) and the rows; no rows: the item
    // is refused with a word.
    void aFolderOnAnEmptyListOffersItsPage() {
        const QStringList z = {"z.png|"};
        const std::tuple<const char*, QString, QString, QStringList> cases[] = {
            {"drop", "Trip", "Y", kRestored},
            {"drop", "Trip", "N", kPlain},
            {"drop", "Trip/trip.html", "", kRestored},
            {"drop", "Foreign Trip", "n", z + kPlain},
            {"drop", "Foreign Trip/trip.html", "y", kRestored},
            {"drop", "Trip Foreign", "Ny", z},
            {"drop", "Foreign", "", z},  // another program's page
            {"drop", "Foreign Foreign", "", z + z},
            {"argument", "Trip", "Y", kRestored},
            {"argument", "Trip/", "N", kPlain},
            {"argument", "gone", "", {}},
            {"argument", kLatin1, "", z},
            {"event", "Trip", "N", kPlain},
            {"event", "Trip/a.png", "", {}},
            {"Ctrl+O", "Foreign Trip", "yY", kRestored},
        };
        CapturedErrors quiet;  // a second folder ends the run
        QCOMPARE(readCommandLine({"velmora", "Trip", "more"}).exitCode, 1);
        for (const auto& [road, items, answers, expected] : cases) {
            init();
            for (const QChar answer : answers) dialogs.answers.enqueue(answer.toLower() == 'y');
            CapturedErrors errors;
            for (const QString& item : items.split(' ')) hand(road, item);
            QCOMPARE(dialogs.questions.size(), answers.size());
            for (int i = 0; i < answers.size(); ++i)
                QCOMPARE(dialogs.questions[i] == kAsked, answers[i].isUpper());
            QCOMPARE(rows(), expected);
            QVERIFY(dialogs.messages.isEmpty());
            const QString error = QString::fromStdString(errors.text.str());
            QVERIFY(expected.isEmpty() ? error.contains(items + "\": not an existing folder")
                                       : error.isEmpty());
            if (expected.isEmpty()) continue;
            // The page goes to the folder wherever the program was started.
            QVERIFY(QDir::isAbsolutePath(gallery.settings().folder));
            if (expected != kRestored) continue;
            QCOMPARE(control<QLineEdit>("captionField")->text(), "Dunes");
            QCOMPARE(gallery.settings().pageFileName, "trip.html");
            QCOMPARE(savedTrip(), written);
        }
    }
    // Another program's page is replaced only when the user agrees; a page not written says why.
    void writingAsksBeforeReplacingAnotherPageAndTellsWhyNot() {
        hand("drop", "Foreign");
        menus.writePageItem->trigger();
        control<QLineEdit>("pageFileNameField")->setText("../x.html");
        menus.writePageItem->trigger();
        QCOMPARE(dialogs.questions.size(), 1);
        QCOMPARE(dialogs.questions[0],
                 "index.html already exists and was not written by Velmora. Replace it?");
        QCOMPARE(dialogs.messages.size(), 1);
        QVERIFY(dialogs.messages[0].startsWith(
            "The gallery page could not be written.\rThe page name must be a plain file name"));
        QVERIFY(TestEnvironment::desktop().launched.isEmpty());
    }
    // No page is written with images it cannot show unless the user agrees, nor over a page of ours
    // that holds another gallery's captions.
    void writingAsksFirstWhatThePageWouldLose() {
        const QString unshown =
            "2 images will not show in web browsers: b.ppm, c.xpm\r\rWrite the "
            "page anyway?";
        const QString elsewhere =
            "1 images are not in the gallery's folder, so the page could not "
            "show them:\r" +
            dir.filePath("Foreign/z.png") +
            "\r\rTake them out of the list and write the page without them?";
        const QString ours =
            "\"index.html\" is the page of a gallery that was not reopened here: "
            "writing replaces it, and its captions are lost.\r\rReplace it?";
        writeImages(dir.filePath("Other"), {"o.png"});
        writeFile(dir.filePath("Other/index.html"), pageBytes({{}, {{"o.png", "Theirs"}}}));
        // Each case: the folders handed, the answers when handing them and when writing, the
        // page's name, the question the write asks, the files the page shows (none: no page).
        const std::tuple<QString, QString, QString, QString, QString> cases[] = {
            {"Odd", "N", "index.html", unshown, ""},
            {"Odd", "Y", "index.html", unshown, "a.png b.ppm c.xpm d.tif"},
            {"Foreign Trip", "nN", "new.html", elsewhere, ""},
            {"Foreign Trip", "nY", "new.html", elsewhere, "a.png b.png c.jpg d.png"},
            {"Other", "NN", "index.html", ours, ""},
        };
        for (const auto& [folders, answers, name, question, shown] : cases) {
            init();
            for (const QChar answer : answers) dialogs.answers.enqueue(answer.toLower() == 'y');
            for (const QString& folder : folders.split(' ')) hand("drop", folder);
            control<QLineEdit>("pageFileNameField")->setText(name);
            const QString path = gallery.settings().folder + name;
            const QByteArray before = bytesOf(path);
            menus.writePageItem->trigger();
            QCOMPARE(dialogs.questions.value(answers.size() - 1), question);
            QStringList slides;
            for (const PageSlide& slide :
                 readGalleryPage(bytesOf(path)).value_or(GalleryPage()).slides)
                slides << slide.fileName;
            QVERIFY(shown.isEmpty() ? bytesOf(path) == before : slides.join(' ') == shown);
        }
    }
    // Unwritten work is kept in the program's own folder within a second, and offered back at the
    // next start or when its folder is opened; a written page or an emptied list ends it.
    void unwrittenWorkSurvivesTheWindow() {
        const QStringList edited = {"d.png|", "a.png|One", "b.png|Two", "c.jpg|"};
        // Each case: what ends the work, where it is offered, the answer, the rows then.
        const std::tuple<QString, QString, QString, QStringList> cases[] = {
            {"", "start", "Y", edited},
            {"", "open", "Y", edited},
            {"", "start", "N", {}},
            {"written", "start", "", {}},
            {"cleared", "start", "", {}}};
        for (const auto& [end, offer, answer, expected] : cases) {
            init();
            hand("drop", "Trip");  // not restored
            auto* field = control<QLineEdit>("captionField");
            QTest::keyClicks(field, "One");
            QTest::keyClick(field, Qt::Key_Down);
            QTest::keyClicks(field, "Two");
            catalogue->moveRowsTo({3}, 0);
            control<QLineEdit>("titleField")->setText("Holiday");
            QTRY_COMPARE(QDir(kept()).entryList(QDir::Files).size(), 1);
            if (end == "written") menus.writePageItem->trigger();
            dialogs.answers.enqueue(true);
            if (end == "cleared") control<QAbstractButton>("clearListButton")->click();
            QTRY_COMPARE(QDir(kept()).entryList(QDir::Files).size(), end.isEmpty() ? 1 : 0);
            // The next start, in another window.
            Gallery next;
            MainWindow window(next, App::instance()->preferences(), menus);
            dialogs.clear();
            dialogs.answers.enqueue(answer == "Y");
            offer == "start" ? next.offerKeptWork() : next.openFolder(trip);
            QCOMPARE(dialogs.questions.size(), answer.size());
            QCOMPARE(rows(&next.images()), expected);
            QCOMPARE(next.settings() == gallery.settings(), !expected.isEmpty());
            QCOMPARE(QDir(kept()).entryList(QDir::Files).size(), expected.isEmpty() ? 0 : 1);
        }
    }
    // Of several pages the newest of ours counts; gone images are named, new ones follow.
    void imagesGoneAndAddedSinceTheNewestPage() {
        const QString later = dir.filePath("Later");
        writeImages(later, {"e.png", "c.jpg", "0.png", "b.png", "cafe\u0301.png"});
        // The caption colour is none of the popups'; the page holds no folder or file name.
        GalleryPage page{
            {later + "/", "trip.html", "Tom & Jerry's", "<b>", "x", "Navy", "Gold", "#f00"}, {}};
        page.settings.selfContained = true;
        for (int i = 1; i <= 12; ++i) page.slides.append({QString("gone %1.jpg").arg(i), "old"});
        page.slides.insert(3, {"b.png", ""});
        page.slides.insert(3, {"c.jpg", "Cliffs"});
        page.slides.insert(5, {"caf\u00e9.png", "Terrace"});  // composed, the file decomposed
        writeFile(later + "/trip.html", pageBytes(page), 30);
        GalleryPage older = page;
        older.settings.title = "An older page";
        writeFile(later + "/older.htm", pageBytes(older), 60);
        dialogs.answers.enqueue(true);
        hand("drop", "Later");
        QCOMPARE(dialogs.questions.first(), kAsked);
        QCOMPARE(rows(), QStringList({"c.jpg|Cliffs", "b.png|", "cafe\u0301.png|Terrace", "0.png|",
                                      "e.png|"}));
        page.settings.captionColour = "White";  // left as it was
        QVERIFY(gallery.settings() == page.settings);
        QStringList told = {"12 images of the page are no longer in the folder."};
        for (int i = 1; i <= 10; ++i) told << QString("gone %1.jpg").arg(i);
        told << "and 2 more";
        QCOMPARE(dialogs.messages, QStringList({told.join('\r')}));
    }
    // Tab leaves the list, and goes round the visible controls in the order of the design.
    void aKeyboardAloneCaptionsImagesAndWritesThePage() {
        hand("drop", "Trip");  // answered No
        control("imageList")->setFocus();
        QStringList visited;
        QVERIFY(tabTo("selfContainedCheckBox", visited));
        const bool selfContained = !gallery.settings().selfContained;  // Space turns it over
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
        QVERIFY(tabTo("captionField", visited));
        // Type, Down, type: the caption field keeps the focus, and the ends of the list hold.
        auto* field = control<QLineEdit>("captionField");
        const std::pair<QList<Qt::Key>, const char*> steps[] = {
            {{}, "First"},
            {{Qt::Key_Down, Qt::Key_Up, Qt::Key_Up, Qt::Key_Down}, "Second"},
            {{Qt::Key_Down, Qt::Key_Down, Qt::Key_Down}, "Last"}};
        for (const auto& [keys, typed] : steps) {
            for (const Qt::Key key : keys) QTest::keyClick(field, key);
            QTest::keyClicks(field, typed);
        }
        QCOMPARE(QApplication::focusWidget(), field);
        QTest::keyClick(field, Qt::Key_S, Qt::ControlModifier);
        QVERIFY(tabTo("imageList", visited));
        visited.removeDuplicates();
        QCOMPARE(visited.join(' '),
                 "imageList clearListButton removeImagesButton pageFileNameField headTitleField "
                 "titleField "
                 "subtitleField fullWidthCheckBox selfContainedCheckBox backgroundColourBox "
                 "titleColourBox "
                 "captionColourBox captionField "
                 "writePageButton helpButton folderField");
        const auto page = readGalleryPageFile(trip + "/index.html");
        QVERIFY(page);
        QCOMPARE(page->page.slides,
                 QList<PageSlide>(
                     {{"a.png", "First"}, {"b.png", "Second"}, {"c.jpg", ""}, {"d.png", "Last"}}));
        QCOMPARE(page->page.settings.selfContained, selfContained);
    }
    // Last: closing is never refused. It takes the program's own leftover off the Desktop, never a
    // picture of the user's, and nothing from a home folder that stands in for the Desktop (as
    // xdg-user-dirs sets it up where there is none).
    void closingIsNeverRefusedAndTidiesTheDesktop() {
        fill("a");
        QVERIFY(window->close());
        QVERIFY(dialogs.questions.isEmpty());
        const QDir desktop(SpecialFolder::Desktop());
        QVERIFY(desktop.path().startsWith(TestEnvironment::home()));
        for (const bool desktopIsHome : {false, true}) {
            if (desktopIsHome)
                QVERIFY(QDir(desktop).removeRecursively() &&
                        QFile::link(TestEnvironment::home(), desktop.path()));
            for (const char* name : {".foo.jpg", "foo.jpg"}) writeFile(desktop.filePath(name), {});
            App::instance()->removeDesktopLeftover();
            QCOMPARE(QFile::exists(desktop.filePath(".foo.jpg")), desktopIsHome);
            QVERIFY(QFile::exists(desktop.filePath("foo.jpg")));
        }
        QVERIFY(QFile::remove(desktop.path()) && QDir().mkpath(desktop.path()));
    }
};

VELMORA_TEST_MAIN(MainWindowTest)
#include "tst_mainwindow.moc"
