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
    void openingNamesTheUserAndClosingTidiesTheDesktop_data() {
        QTest::addColumn<bool>("desktopIsHome");
        QTest::newRow("a Desktop folder") << false;
        // As xdg-user-dirs sets it up where the Desktop folder is missing.
        QTest::newRow("the home folder as the Desktop") << true;
    }
    void openingNamesTheUserAndClosingTidiesTheDesktop() {
        QFETCH(bool, desktopIsHome);
        App::instance()->Event_Open();
        QCOMPARE(App::instance()->shortName, QDir(TestEnvironment::home()).dirName());

        // Only the program's own leftover goes, never a picture of the user's, and nothing at all
        // from the home folder.
        const QDir desktop(SpecialFolder::Desktop());
        QVERIFY(desktop.path().startsWith(TestEnvironment::home()));
        if (desktopIsHome)
            QVERIFY(QDir(desktop).removeRecursively() &&
                    QFile::link(TestEnvironment::home(), desktop.path()));
        App::instance()->Event_Close();  // nothing there: nothing happens
        for (const char* name : {".foo.jpg", "foo.jpg"}) {
            QFile file(desktop.filePath(name));
            QVERIFY(file.open(QIODevice::WriteOnly));
        }
        App::instance()->Event_Close();
        QCOMPARE(QFile::exists(desktop.filePath(".foo.jpg")), desktopIsHome);
        QVERIFY(QFile::remove(desktop.filePath("foo.jpg")));
        if (desktopIsHome)
            QVERIFY(QFile::remove(desktop.filePath(".foo.jpg")) && QFile::remove(desktop.path()) &&
                    QDir().mkpath(desktop.path()));
    }

    void aFaultInAnyHandlerIsShownAndTheProgramGoesOn() {
        App::instance()->start();
        WindowMain* window = App::instance()->windowMain();
        QVERIFY(QTest::qWaitForWindowExposed(window));
        window->catalogue().AddRow("dune");
        window->catalogue().setCell(0, 1, "dune.png");
        window->updateTheList();
        QTemporaryDir folder;
        window->findChild<QLineEdit*>("galleryPath")->setText(folder.path() + "/");
        auto* createPage = window->findChild<QPushButton*>("BevelButton1");
        RecordingDialogs& dialogs = TestEnvironment::dialogs();
        RecordingDesktop& desktop = TestEnvironment::desktop();
        const QString shown = "Velmora ran into an unexpected error and carried on.";

        // Deep inside the button's handler, opening the written page fails.
        desktop.onLaunch = [](const QString&) { throw std::runtime_error("no browser <here>"); };
        QTest::mouseClick(createPage, Qt::LeftButton);
        QCOMPARE(dialogs.messages, QStringList({shown + "\rno browser <here>"}));

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
        QCOMPARE(dialogs.messages.last(), shown);

        // The program goes on: the button writes and opens the page again.
        desktop.onLaunch = nullptr;
        QTest::mouseClick(createPage, Qt::LeftButton);
        QCOMPARE(dialogs.messages.size(), 3);
        QCOMPARE(desktop.launched.last(), folder.filePath("index.html"));
        QVERIFY(QFile::exists(desktop.launched.last()));
    }
};

VELMORA_TEST_MAIN(AppTest)
#include "tst_app.moc"
