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
    QStringList enabledItems() const {
        QStringList names;
        for (const QAction* item : menus.EditMenu->actions())
            if (!item->isSeparator() && item->isEnabled()) names << item->objectName();
        return names;
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

    void theItemsActOnTheFocusedControl() {
        auto* list = control("Listbox1");
        list->setFocus();
        QTest::keyClick(list, Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(window->catalogue().SelCount(), 3);

        auto* field = control<QLineEdit>("galleryFileName");
        field->setFocus();
        menus.EditSelectAll->trigger();
        menus.EditCut->trigger();
        QCOMPARE(field->text(), QString());
        QCOMPARE(QGuiApplication::clipboard()->text(), QString("index.html"));
        menus.EditUndo->trigger();
        QCOMPARE(field->text(), QString("index.html"));
    }

    void theItemsFollowTheFocusAndTheClipboard_data() {
        QTest::addColumn<QByteArray>("focused");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<bool>("selectAll");
        QTest::addColumn<QString>("clipboard");
        QTest::addColumn<QStringList>("enabled");
        const QString some = QStringLiteral("pasted");
        QTest::newRow("list") << QByteArray("Listbox1") << "" << false << some
                              << QStringList{"EditSelectAll"};
        QTest::newRow("field") << QByteArray("galleryFileName") << "" << false << some
                               << QStringList{"EditPaste", "EditSelectAll"};
        QTest::newRow("empty clipboard")
            << QByteArray("galleryFileName") << "" << false << "" << QStringList{"EditSelectAll"};
        QTest::newRow("selected text")
            << QByteArray("galleryFileName") << "" << true << some
            << QStringList{"EditCut", "EditCopy", "EditPaste", "EditClear", "EditSelectAll"};
        QTest::newRow("typed") << QByteArray("galleryTitle") << "x" << false << some
                               << QStringList{"EditUndo", "EditPaste", "EditSelectAll"};
        QTest::newRow("read-only") << QByteArray("galleryPath") << "" << true << some
                                   << QStringList{"EditCopy", "EditSelectAll"};
        QTest::newRow("popup") << QByteArray("bgColot") << "" << false << some << QStringList{};
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
        if (selectAll) qobject_cast<QLineEdit*>(target)->selectAll();
        QTEST(enabledItems(), "enabled");
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
