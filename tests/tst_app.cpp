#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <stdexcept>

#include "app/app.h"
#include "mainwindow/windowmain.h"
#include "platform/specialfolders.h"
#include "support/testenvironment.h"

class AppTest : public QObject {
    Q_OBJECT
private slots:
    void startsWithTheFreshValues() {
        App* app = App::instance();
        QCOMPARE(app->applicationVersion(), QString("2.1"));
        QCOMPARE(app->lastSize, 0);
        QCOMPARE(app->openPrefs, QString());
        QCOMPARE(app->frameWidth, 0);
        QCOMPARE(app->bordColor, QColor(255, 255, 255));
        QVERIFY(app->opf.isEmpty());
        QVERIFY(!app->op);
    }

    void openTakesTheShortNameFromTheHomeFolder() {
        App::instance()->Event_Open();
        QCOMPARE(App::instance()->shortName, QDir(TestEnvironment::home()).dirName());
        QVERIFY(!App::instance()->Event_CancelClose());
    }

    void closingDeletesTheLeftoverOnTheDesktopOnly_data() {
        QTest::addColumn<bool>("desktopIsHome");
        QTest::newRow("a Desktop folder") << false;
        // As xdg-user-dirs sets it up where the Desktop folder is missing.
        QTest::newRow("the home folder as the Desktop") << true;
    }
    void closingDeletesTheLeftoverOnTheDesktopOnly() {
        QFETCH(bool, desktopIsHome);
        const QString desktop = SpecialFolder::Desktop();
        QVERIFY(desktop.startsWith(TestEnvironment::home()));
        if (desktopIsHome)
            QVERIFY(QDir(desktop).removeRecursively() &&
                    QFile::link(TestEnvironment::home(), desktop));
        App::instance()->Event_Close();  // nothing there: nothing happens

        for (const QString name : {"/.foo.jpg", "/foo.jpg"}) {
            QFile file(desktop + name);
            QVERIFY(file.open(QIODevice::WriteOnly));
        }
        App::instance()->Event_Close();
        QCOMPARE(QFile::exists(desktop + "/.foo.jpg"), desktopIsHome);
        QVERIFY(QFile::remove(desktop + "/foo.jpg"));
        if (desktopIsHome)
            QVERIFY(QFile::remove(desktop + "/.foo.jpg") && QFile::remove(desktop) &&
                    QDir().mkpath(desktop));
    }

    void aFaultInAnyHandlerIsShownAndTheProgramGoesOn() {
        App::instance()->start();
        WindowMain* window = App::instance()->windowMain();
        QVERIFY(QTest::qWaitForWindowExposed(window));
        ImageCatalogue& catalogue = window->catalogue();
        catalogue.AddRow("dune");
        catalogue.setCell(0, 1, "dune.png");
        catalogue.updateTheList();
        QTemporaryDir folder;
        window->findChild<QLineEdit*>("galleryPath")->setText(folder.path() + "/");
        auto* createPage = window->findChild<QPushButton*>("BevelButton1");
        RecordingDialogs& dialogs = TestEnvironment::dialogs();
        RecordingDesktop& desktop = TestEnvironment::desktop();

        // Deep inside the button's handler, opening the written page fails.
        desktop.onLaunch = [](const QString&) { throw std::runtime_error("no browser <here>"); };
        QTest::mouseClick(createPage, Qt::LeftButton);
        QCOMPARE(dialogs.messages.size(), 1);
        QVERIFY(dialogs.messages.last().endsWith("no browser <here>"));

        // The same fault from the menu's shortcut.
        QTest::keyClick(window, Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(dialogs.messages.size(), 2);

        // Whatever is thrown, from a timer too.
        bool timerRan = false;
        QTimer::singleShot(0, [&timerRan] {
            timerRan = true;
            throw 42;
        });
        QTRY_VERIFY(timerRan);
        QCOMPARE(dialogs.messages.size(), 3);

        // The program goes on: the button works again.
        desktop.onLaunch = nullptr;
        QTest::mouseClick(createPage, Qt::LeftButton);
        QCOMPARE(desktop.launched.size(), 3);
        QCOMPARE(dialogs.messages.size(), 3);
        QCOMPARE(desktop.launched.last(), folder.filePath("index.html"));
        QVERIFY(QFile::exists(desktop.launched.last()));
    }
};

VELMORA_TEST_MAIN(AppTest)
#include "tst_app.moc"
