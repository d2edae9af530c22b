#include <QAction>
#include <QClipboard>
#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>
#include <QTableView>
#include <QTest>
#include <QWheelEvent>

#include "mainwindow/mainmenubar.h"
#include "mainwindow/windowmain.h"
#include "support/testenvironment.h"

class EditItemsTest : public QObject {
    Q_OBJECT
    WindowMain* window = nullptr;
    MainMenuBar& menus = App::instance()->menuBar();

    template <class W = QWidget>
    W* control(const char* name) const {
        return window->findChild<W*>(name);
    }
    QString enabledItems() const {
        QStringList names;
        for (const QAction* item : menus.EditMenu->actions())
            if (!item->isSeparator() && item->isEnabled()) names << item->text().remove('&');
        return names.join(", ");
    }

private slots:
    void initTestCase() {
        App::instance()->start();
        window = App::instance()->windowMain();
        for (const char* name : {"a", "b", "c"}) window->catalogue().AddRow(name);
        window->updateTheList();
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window));
    }

    void selectAllOnTheFocusedListSelectsEveryRow() {
        auto* list = control("Listbox1");
        list->setFocus();
        QTest::keyClick(list, Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(window->catalogue().SelCount(), 3);
    }

    void theItemsFollowTheFocusAndTheClipboard_data() {
        QTest::addColumn<QByteArray>("focused");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<bool>("selectAll");
        QTest::addColumn<QString>("clipboard");
        QTest::addColumn<QString>("enabled");
        const auto row = [](const char* name, const char* focused, const char* typed,
                            bool selectAll, const char* clipboard, const char* enabled) {
            QTest::newRow(name) << QByteArray(focused) << QString(typed) << selectAll
                                << QString(clipboard) << QString(enabled);
        };
        row("list", "Listbox1", "", false, "x", "Select All");
        row("field", "galleryFileName", "", false, "x", "Paste, Select All");
        row("empty clipboard", "galleryFileName", "", false, "", "Select All");
        row("selected", "galleryFileName", "", true, "x", "Cut, Copy, Paste, Delete, Select All");
        row("typed", "galleryTitle", "a", false, "x", "Undo, Paste, Select All");
        row("read-only", "galleryPath", "", true, "x", "Copy, Select All");
        row("popup", "bgColot", "", false, "x", "");
    }
    void theItemsFollowTheFocusAndTheClipboard() {
        QFETCH(QByteArray, focused);
        QFETCH(QString, typed);
        QFETCH(bool, selectAll);
        QFETCH(QString, clipboard);
        QGuiApplication::clipboard()->setText(clipboard);
        QWidget* target = control(focused);
        target->setFocus();
        QTest::keyClicks(target, typed);
        if (selectAll) menus.EditSelectAll->trigger();
        QTEST(enabledItems(), "enabled");
        menus.EditUndo->trigger();  // takes back what was typed, if anything
        if (auto* field = qobject_cast<QLineEdit*>(target)) QVERIFY(!field->isUndoAvailable());
    }

    void theListNeverScrollsSideways() {
        auto* list = control<QTableView>("Listbox1");
        list->setFocus();
        for (Qt::Key key : {Qt::Key_Home, Qt::Key_Right, Qt::Key_End, Qt::Key_Right})
            QTest::keyClick(list, key);
        const QPointF inside(5, 5);
        QWheelEvent wheel(inside, list->viewport()->mapToGlobal(inside), {}, QPoint(-120, 0),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(list->viewport(), &wheel);
        QCOMPARE(list->horizontalScrollBar()->value(), 0);
        QCOMPARE(list->horizontalHeader()->offset(), 0);
        // End goes to the last row, in the one column in sight.
        QCOMPARE(list->currentIndex(), list->model()->index(2, 0));
    }
};

VELMORA_TEST_MAIN(EditItemsTest)
#include "tst_edititems.moc"
