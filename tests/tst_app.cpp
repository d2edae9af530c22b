#include <QDir>
#include <QFile>
#include <QTest>
#include <stdexcept>

#include "app/app.h"
#include "platform/specialfolders.h"
#include "support/testenvironment.h"

namespace {
// Throws from its event handler, as a fault deep in a handler would.
class FaultyObject : public QObject {
public:
    bool event(QEvent* event) override {
        if (event->type() == QEvent::User) throw std::runtime_error("the disk went away");
        return QObject::event(event);
    }
};
}  // namespace

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

    void closingDeletesTheLeftoverOnTheDesktopOnly() {
        const QString desktop = SpecialFolder::Desktop();
        QVERIFY(desktop.startsWith(TestEnvironment::home()));
        App::instance()->Event_Close();  // nothing there: nothing happens

        QFile leftover(desktop + "/.foo.jpg");
        QVERIFY(leftover.open(QIODevice::WriteOnly));
        leftover.close();
        QFile keep(desktop + "/foo.jpg");
        QVERIFY(keep.open(QIODevice::WriteOnly));
        keep.close();
        App::instance()->Event_Close();
        QVERIFY(!QFile::exists(desktop + "/.foo.jpg"));
        QVERIFY(QFile::exists(desktop + "/foo.jpg"));
    }

    void aFaultInAHandlerIsShownAndTheProgramGoesOn() {
        FaultyObject faulty;
        QEvent event(QEvent::User);
        QCoreApplication::sendEvent(&faulty, &event);
        QCOMPARE(TestEnvironment::dialogs().messages.size(), 1);
        QVERIFY(TestEnvironment::dialogs().messages.first().contains("the disk went away"));
    }
};

VELMORA_TEST_MAIN(AppTest)
#include "tst_app.moc"
