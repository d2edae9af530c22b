#include <QDir>
#include <QFileOpenEvent>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>
#include <iostream>
#include <sstream>

#include "app/app.h"
#include "app/commandline.h"
#include "mainwindow/windowmain.h"
#include "support/photolike.h"
#include "support/testenvironment.h"

namespace {
// Standard error, caught while this lives.
struct CapturedErrors {
    std::ostringstream text;
    std::streambuf* saved = std::cerr.rdbuf(text.rdbuf());
    ~CapturedErrors() { std::cerr.rdbuf(saved); }
};
}  // namespace

// A folder named on the command line, or handed over by the desktop as a file open event (a drop
// on the Dock icon), takes the road of a dropped folder.
class OpenFolderTest : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() {
        App::instance()->start();
        QVERIFY(QTest::qWaitForWindowExposed(App::instance()->windowMain()));
        QVERIFY(QDir(work.path()).mkdir("photos"));
        for (const char* name : {"photos/1.jpg", "photos/2.jpg", "photos/3.jpg"})
            QVERIFY(photoLike(QSize(64, 48), 7).save(work.filePath(name)));
        // Relative arguments are relative to where the program was started.
        QVERIFY(QDir::setCurrent(work.path()));
    }

    void aFolderIsTakenInAsIfDropped_data() {
        QTest::addColumn<QString>("given");
        QTest::addColumn<bool>("fromTheDesktop");
        QTest::addColumn<int>("rows");
        QTest::newRow("argument, relative") << "photos" << false << 3;
        QTest::newRow("argument, trailing slash") << "photos/" << false << 3;
        QTest::newRow("file open event") << "photos" << true << 3;
        QTest::newRow("argument, missing folder") << "gone" << false << 0;
        QTest::newRow("file open event, a picture") << "photos/1.jpg" << true << 0;
    }
    void aFolderIsTakenInAsIfDropped() {
        QFETCH(QString, given);
        QFETCH(bool, fromTheDesktop);
        QFETCH(int, rows);
        WindowMain* window = App::instance()->windowMain();
        window->catalogue().DeleteAllRows();
        auto* galleryPath = window->findChild<QLineEdit*>("galleryPath");
        galleryPath->clear();

        CapturedErrors errors;
        if (fromTheDesktop) {
            QFileOpenEvent event(work.filePath(given));
            QCoreApplication::sendEvent(App::instance(), &event);
        } else {
            App::instance()->openFolder(readCommandLine({"velmora", given}).folder);
        }
        QCoreApplication::processEvents();

        QCOMPARE(window->catalogue().ListCount(), rows);
        if (rows > 0) {
            QCOMPARE(galleryPath->text(), QDir::toNativeSeparators(work.filePath("photos")) + "/");
            QCOMPARE(errors.text.str(), std::string());
        } else {
            QCOMPARE(galleryPath->text(), QString());
            const QString message = QString::fromStdString(errors.text.str());
            QVERIFY2(message.contains(given + "\": not an existing folder"), qPrintable(message));
        }
    }

    void aSecondFolderEndsTheRunWithAnError() {
        CapturedErrors errors;
        QVERIFY(readCommandLine({"velmora", "photos", "more"}).exitCode == 1);
    }

private:
    QTemporaryDir work;
};

VELMORA_TEST_MAIN(OpenFolderTest)
#include "tst_openfolder.moc"
