#include <QAction>
#include <QClipboard>
#include <QComboBox>
#include <QDrag>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>
#include <QWheelEvent>

#include "auxwindows/velmorahelp.h"
#include "mainwindow/catalogueview.h"
#include "mainwindow/mainmenubar.h"
#include "mainwindow/windowmain.h"
#include "platform/sharedwindow.h"
#include "preferences/windowpreferences.h"
#include "support/testenvironment.h"

namespace {
const QString kNoFolderMessage = QStringLiteral(
    "Oooops...\rIn order to create the page with the galley, you must first add the folder with "
    "the images you have carefully chosen.");

// Opens the list's drop handler to the test, for the drop that the window system delivers.
struct DroppableView : CatalogueView {
    using CatalogueView::dropEvent;
};
}  // namespace

class MainWindowTest : public QObject {
    Q_OBJECT
    QTemporaryDir pages;
    WindowMain* window = nullptr;
    ImageCatalogue* catalogue = nullptr;
    RecordingDialogs& dialogs = TestEnvironment::dialogs();
    MainMenuBar& menus = App::instance()->menuBar();

    template <class W = QWidget>
    W* control(const char* name) const {
        return window->findChild<W*>(name);
    }
    // A row for each letter, named by it and captioned with it and "!".
    void fill(const QString& letters) {
        for (const QChar letter : letters) {
            catalogue->AddRow(letter);
            catalogue->setCell(catalogue->LastIndex(), 1, letter);
            catalogue->setCell(catalogue->LastIndex(), 7, letter + QString("!"));
        }
        window->updateTheList();
    }
    void select(const QList<int>& rows) {
        catalogue->setListIndex(-1);
        for (int row : rows)
            catalogue->selectionModel()->select(
                catalogue->index(row, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
    // Each row as its file name and caption.
    QString rows() const {
        QStringList cells;
        for (int row = 0; row < catalogue->ListCount(); ++row)
            cells << catalogue->Cell(row, 1) + ":" + catalogue->Cell(row, 7);
        return cells.join(' ');
    }

private slots:
    void initTestCase() {
        // Before there is a main window, Save has nothing to write from.
        menus.Save->trigger();
        App::instance()->saveAll();
        QCOMPARE(dialogs.beeps, 1);
        App::instance()->start();
        window = App::instance()->windowMain();
        catalogue = &window->catalogue();
        control<QLineEdit>("galleryPath")->setText(pages.path() + "/");
    }
    void init() {
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window));
        catalogue->DeleteAllRows();
        catalogue->setRenameFlag("no");
        dialogs.clear();
        TestEnvironment::desktop().clear();
    }

    void theWindowStartsAsDesigned() {
        QCOMPARE(window->windowTitle(), QString("Velmora"));
        QCOMPARE(control("centralwidget")->size(), QSize(820, 680));
        QCOMPARE(window->minimumSize(), window->maximumSize());
        QVERIFY(!window->windowFlags().testFlag(Qt::WindowFullscreenButtonHint));
        QCOMPARE(control("BevelButton2")->geometry(), QRect(743, -11, 53, 64));
        QVERIFY(!control("TextFieldRenamed")->isVisibleTo(window));
        // The preview runs under every other control, the start text over it.
        const auto stack =
            control("centralwidget")->findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
        QCOMPARE(stack.first()->objectName() + stack.last()->objectName(), "ImageCanvasinfo");
        // The group box's large font stays with its caption.
        QCOMPARE(control("GroupBox1")->font().pixelSize(), 16);
        QWidget* caption = control("imgCaption");
        QCOMPARE(caption->font().pointSizeF(), QApplication::font(caption).pointSizeF());

        for (const char* name : {"bgColot", "txtColor", "capColor"}) {
            QCOMPARE(control<QComboBox>(name)->count(), 148);
            QCOMPARE(control<QComboBox>(name)->itemText(55), QString("Grey"));
        }
        const GallerySettings defaults = {pages.path() + "/",
                                          "index.html",
                                          App::instance()->shortName + "'s photo gallery",
                                          {},
                                          {},
                                          "Black",
                                          "White",
                                          "White",
                                          true};
        QVERIFY(window->gallerySettings() == defaults);
        QVERIFY(!existingInstance<WindowPreferences>());
    }

    void thePreferencesAtStartIfAskedAndTheHelpOnItsButton() {
        App::instance()->openPrefs = "yes";
        WindowMain other;
        other.Event_Open();
        App::instance()->openPrefs.clear();
        QCOMPARE(existingInstance<WindowPreferences>()->parentWidget(), &other);

        control<QToolButton>("BevelButton2")->click();
        VelmoraHelp* help = existingInstance<VelmoraHelp>();
        QVERIFY(help && help->isVisible());
        QCOMPARE(help->parentWidget(), window);
        QCOMPARE(help->windowTitle(), QString("Velmora - Help"));
        help->close();
    }

    // The menu bar as the user reads it, then the items kept out of it; and what is enabled.
    void theMenusHoldTheirItemsAndFollowTheRowsAndTheRenameFlag() {
        QStringList tree;
        const auto add = [&tree](const QAction* item) {
            tree << (item->isSeparator() ? "-" : item->text() + " " + item->shortcut().toString());
        };
        for (const QAction* menu : window->menuBar()->actions()) {
            add(menu);
            for (const QAction* item : menu->menu()->actions()) add(item);
        }
        for (const QAction* item : window->actions()) add(item);
        QCOMPARE(tree.join('|'),
                 "&File |Open Folder... Ctrl+O|About Velmora |Write the gallery page Ctrl+S|"
                 "&Quit Ctrl+Q|&Edit |&Undo Ctrl+Z|-|Cu&t Ctrl+X|&Copy Ctrl+C|&Paste Ctrl+V|"
                 "&Delete |-|Select &All Ctrl+A|Rename All images... Ctrl+R|"
                 "Restore original file names... Ctrl+Shift+R|Preferences... Ctrl+K");

        QVERIFY(!menus.Save->isEnabled() && !menus.Rename->isEnabled());
        QVERIFY(!menus.RestoreNames->isEnabled() && menus.About->isEnabled());
        fill("a");
        catalogue->setListIndex(-1);
        QVERIFY(menus.Save->isEnabled() && menus.Rename->isEnabled());
        catalogue->setRenameFlag("yes");
        QVERIFY(menus.RestoreNames->isEnabled());
        // The hidden item answers its shortcut.
        catalogue->setCell(0, 0, "renamed");
        QTest::keyClick(window, Qt::Key_R, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(catalogue->Cell(0, 0), QString("a"));
        QVERIFY(!menus.RestoreNames->isEnabled());
        catalogue->DeleteAllRows();
        catalogue->setRenameFlag("yes");
        QVERIFY(!menus.Save->isEnabled() && menus.RestoreNames->isEnabled());
    }

    // The button wants a selected row; the menu item, even with its enabling stale, any row.
    void theButtonWantsASelectionAndTheMenuAnyRow() {
        auto* button = control<QPushButton>("BevelButton1");
        button->click();
        App::instance()->_Save_Action(0);
        QCOMPARE(dialogs.beeps, 2);
        QCOMPARE(dialogs.messages, QStringList({kNoFolderMessage}));

        fill("a");
        catalogue->setListIndex(-1);
        button->click();
        QCOMPARE(dialogs.messages.size(), 2);
        QVERIFY(TestEnvironment::desktop().launched.isEmpty());
        menus.Save->trigger();
        QCOMPARE(TestEnvironment::desktop().launched, QStringList({pages.filePath("index.html")}));
        catalogue->setListIndex(0);
        button->click();
        QCOMPARE(TestEnvironment::desktop().launched.size(), 2);
        QCOMPARE(dialogs.messages.size(), 2);
    }

    void theCaptionFieldEditsTheSelectedRowOnly() {
        fill("abc");
        auto* caption = control<QLineEdit>("imgCaption");
        catalogue->setListIndex(1);
        QCOMPARE(caption->text(), QString("b!"));
        // Of several selected rows the first takes the text; without a selection none does.
        select({2, 0});
        QCOMPARE(caption->text(), QString("a!"));
        QTest::keyClicks(caption, "?");
        catalogue->setListIndex(-1);
        caption->setText("nobody's");
        QCOMPARE(rows(), "a:a!? b:b! c:c!");
    }

    // Unasked, a button only beeps; answered No, its question changes nothing.
    void bothButtonsAskBeforeTakingRowsOut() {
        const QString clear = "Clear\n\nAre you sure to clear the image's list?";
        const QString one =
            "Remove image/s\n\nAre you sure to remove from the list the selected image?";
        const QString three =
            "Clear\n\nAre you sure to remove the 3 selected images from the list?";
        const std::tuple<const char*, QString, QList<int>, QString, QString, QString> cases[] = {
            {"clearBtn", "", {}, "", "", ""},
            {"clearBtn", "ab", {1}, clear, "", "Empty list"},
            {"clearBtn1", "abc", {}, "", "a:a! b:b! c:c!", ""},
            {"clearBtn1", "abc", {1}, one, "a:a! c:c!", "2 images"},
            {"clearBtn1", "abcdef", {1, 3, 4}, three, "a:a! c:c! f:f!", "3 images"},
        };
        for (const auto& [button, letters, selected, question, kept, count] : cases) {
            init();
            fill(letters);
            select(selected);
            catalogue->setRenameFlag("yes");
            const QString before = rows();
            control<QPushButton>(button)->click();
            QCOMPARE(rows(), before);
            QCOMPARE(dialogs.beeps, question.isEmpty() ? 1 : 0);
            QCOMPARE(dialogs.questions.size(), question.isEmpty() ? 0 : 1);
            if (question.isEmpty()) continue;
            QCOMPARE(dialogs.questions.first().text, question);
            QCOMPARE(dialogs.questions.first().buttons, 36);
            QCOMPARE(dialogs.questions.first().title, QString());

            dialogs.answers.enqueue(kAnswerYes);
            control<QPushButton>(button)->click();
            QCOMPARE(rows(), kept);
            QCOMPARE(control<QLabel>("imgCount")->text(), count);
            QVERIFY(App::instance()->opf.isEmpty());
            QVERIFY(!menus.RestoreNames->isEnabled());
            QCOMPARE(catalogue->ListIndex() >= 0, !kept.isEmpty());
        }
        QCOMPARE(control<QLabel>("info")->text(),
                 "To start, simply Drag and Drag  a folder of chosen images onto this "
                 "window.\nPlease take note: the images have to be already resized.");
    }

    // Dropped in the lower half of a row the rows go after it; in the upper half, before it.
    void draggedRowsMoveWithTheirCaptionsIntoThePage() {
        // The rows dragged, the row dropped on (-1: below the rows), in which half, the new order.
        const std::tuple<QList<int>, int, bool, QString> cases[] = {
            {{0, 1}, 2, true, "cabd"}, {{3}, 0, false, "dabc"}, {{0, 2}, -1, false, "bdac"}};
        for (const auto& [dragged, onto, lowerHalf, order] : cases) {
            init();
            fill("abcd");
            auto* list = control<CatalogueView>("Listbox1");
            QWidget* port = list->viewport();
            select(dragged);
            // The mouse starts the list's own drag; this platform ends it at once, so the drop that
            // ends a real drag is handed to the list as the window system would.
            const QPoint from = list->visualRect(catalogue->index(dragged.first(), 0)).center();
            QTest::mousePress(port, Qt::LeftButton, {}, from);
            QTest::mouseMove(port, from + QPoint(0, 3));
            QTest::mouseMove(port, from + QPoint(0, 30));
            const std::unique_ptr<QDrag> drag(list->findChild<QDrag*>());
            QVERIFY(drag);
            const QRect row = list->visualRect(catalogue->index(onto, 0));
            const QPoint at = onto < 0 ? QPoint(5, port->height() - 2)
                                       : QPoint(5, lowerHalf ? row.bottom() - 1 : row.top() + 1);
            QDropEvent drop(at, Qt::MoveAction, drag->mimeData(), Qt::LeftButton, Qt::NoModifier);
            (list->*&DroppableView::dropEvent)(&drop);
            // A drop taken as a move would make the list remove its dragged rows after it.
            QVERIFY(!drop.isAccepted());
            QTest::mouseRelease(port, Qt::LeftButton, {}, at);

            QStringList expected;
            for (const QChar letter : order) expected << letter + QString(":") + letter + "!";
            QCOMPARE(rows(), expected.join(' '));
            menus.Save->trigger();
            const auto page = readGalleryPageFile(pages.filePath("index.html"));
            QVERIFY(page);
            QStringList slides;
            for (const auto& [name, caption] : page->page.slides) slides << name + ":" + caption;
            QCOMPARE(slides, expected);
        }
    }

    // Ctrl+A selects every row; no key and no wheel brings the hidden columns into view.
    void theListSelectsAllAndNeverScrollsSideways() {
        fill("abc");
        auto* list = control<CatalogueView>("Listbox1");
        list->setFocus();
        QTest::keyClick(list, Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(catalogue->SelCount(), 3);
        for (Qt::Key key : {Qt::Key_Home, Qt::Key_Right, Qt::Key_End, Qt::Key_Right})
            QTest::keyClick(list, key);
        const QPointF inside(5, 5);
        QWheelEvent wheel(inside, list->viewport()->mapToGlobal(inside), {}, QPoint(-120, 0),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(list->viewport(), &wheel);
        QCOMPARE(list->horizontalHeader()->offset(), 0);
        // End goes to the last row, in the one column in sight.
        QCOMPARE(list->currentIndex(), catalogue->index(2, 0));
    }

    // Each case: the focused control, what is typed, whether all is selected, the clipboard.
    void theEditItemsFollowTheFocusAndTheClipboard() {
        const std::tuple<const char*, const char*, bool, const char*, const char*> cases[] = {
            {"Listbox1", "", false, "x", "Select All"},
            {"galleryFileName", "", false, "x", "Paste, Select All"},
            {"galleryFileName", "", false, "", "Select All"},
            {"galleryFileName", "", true, "x", "Cut, Copy, Paste, Delete, Select All"},
            {"galleryTitle", "a", false, "x", "Undo, Paste, Select All"},
            {"galleryPath", "", true, "x", "Copy, Select All"},
            {"bgColot", "", false, "x", ""},
        };
        fill("abc");
        for (const auto& [focused, typed, selectAll, clipboard, enabled] : cases) {
            QGuiApplication::clipboard()->setText(clipboard);
            QWidget* target = control(focused);
            target->setFocus();
            QTest::keyClicks(target, typed);
            if (selectAll) menus.EditSelectAll->trigger();
            QStringList items = {focused};
            for (const QAction* item : menus.EditMenu->actions())
                if (!item->isSeparator() && item->isEnabled()) items << item->text().remove('&');
            QCOMPARE(items.join(", "), QString(focused) + (*enabled ? ", " : "") + enabled);
            menus.EditUndo->trigger();  // takes back what was typed, if anything
            if (auto* field = qobject_cast<QLineEdit*>(target)) QVERIFY(!field->isUndoAvailable());
        }
    }

    // Last: closing ends the program.
    void closingIsNeverRefused() {
        fill("a");
        QVERIFY(window->close());
        QVERIFY(dialogs.questions.isEmpty());
    }
};

VELMORA_TEST_MAIN(MainWindowTest)
#include "tst_mainwindow.moc"
