#include <QDir>
#include <QFile>
#include <QLayout>
#include <QMainWindow>
#include <QTest>

#include "app/app.h"
#include "auxwindows/windowabout.h"
#include "mainwindow/windowmain.h"
#include "platform/sharedwindow.h"
#include "platform/specialfolders.h"
#include "support/testenvironment.h"

namespace {
QString preferenceFile() {
    return QDir(SpecialFolder::Preferences()).filePath("Corvane4.prefs");
}
void writePreferenceFile(const QByteArray& content) {
    QDir().mkpath(SpecialFolder::Preferences());
    QFile file(preferenceFile());
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(content);
}
// The size of the main window's control area, below the menu bar.
QSize controlArea() {
    return App::instance()->windowMain()->centralWidget()->size();
}
}  // namespace

class PreferenceFileTest : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() {
        App::instance()->start();
        // The main window is fixed in size; free it, so that the size asked for shows.
        QMainWindow* window = App::instance()->windowMain();
        window->layout()->setSizeConstraint(QLayout::SetNoConstraint);
        for (QWidget* widget : {static_cast<QWidget*>(window), window->centralWidget()}) {
            widget->setMinimumSize(0, 0);
            widget->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
        }
    }

    void withoutAFileTheDefaultsComeAndTheAboutWindowShows() {
        QFile::remove(preferenceFile());
        App::instance()->loadPrefs();
        const App* app = App::instance();
        QCOMPARE(QStringList({QString::number(app->lastSize), QString::number(app->imageQuality),
                              app->imageFormat, app->savePath, app->openPrefs}),
                 QStringList({"720", "80", "PNG", "Desktop", "yes"}));
        QVERIFY(existingInstance<WindowAbout>() && existingInstance<WindowAbout>()->isVisible());
        existingInstance<WindowAbout>()->close();
    }

    void whatIsSavedIsReadBack() {
        App* app = App::instance();
        app->lastSize = 1024;
        app->imageQuality = 50;
        app->imageFormat = "JPEG";
        app->savePath = "Pictures";
        app->openPrefs = "no";
        app->mainWinWidth = 1000;
        app->mainWinHeight = 700;
        app->SavePrefs();
        QFile file(preferenceFile());
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(),
                 "# Corvanes version\n4.0\n# Last resize dimension, image quality, image format, "
                 "save path, opend prefs on startup\n1024,50,JPEG,Pictures,no\n"
                 "# Main Window width and height\n1000,700\n# EOF\n");
        app->lastSize = app->imageQuality = 0;
        app->imageFormat = app->savePath = app->openPrefs = QString();
        app->loadPrefs();
        QCOMPARE(QStringList({QString::number(app->lastSize), QString::number(app->imageQuality),
                              app->imageFormat, app->savePath, app->openPrefs}),
                 QStringList({"1024", "50", "JPEG", "Pictures", "no"}));
        QCOMPARE(controlArea(), QSize(1000, 700));
    }

    void damagedFilesAreReadAsFarAsTheyGo_data() {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<int>("lastSize");
        QTest::addColumn<QString>("savePath");
        QTest::addColumn<QSize>("area");
        QTest::newRow("ends after line 4") << QByteArray("#\n4.0\n#\n640,80,PNG,Desktop,yes") << 640
                                           << "Desktop" << QSize(980, 560);
        QTest::newRow("zero size") << QByteArray("#\n4.0\n#\n800,80,PNG,Documents,yes\n#\n0,0\n")
                                   << 800 << "Documents" << QSize(980, 560);
        QTest::newRow("words for numbers, CRLF")
            << QByteArray("#\r\n4.0\r\n#\r\nwide,80,PNG,Pictures,no\r\n#\r\n1100.9,x\r\n") << 0
            << "Pictures" << QSize(1100, 560);
        const char bytes[] = "\xff\xfe\x00\n\x80\n\n7\xc3(,\x01,PNG\n\n\x00\x00,\xff";
        QTest::newRow("any bytes")
            << QByteArray(bytes, sizeof bytes - 1) << 7 << "" << QSize(980, 560);
        QTest::newRow("empty") << QByteArray() << 0 << "" << QSize(980, 560);
        QTest::newRow("cut inside line 2")
            << QByteArray("# Corvanes version\n4.") << 0 << "" << QSize(980, 560);
        QTest::newRow("cut inside line 6")
            << QByteArray("#\n4.0\n#\n512,80,PNG,Movies,no\n#\n1200,") << 512 << "Movies"
            << QSize(1200, 560);
        // Lines of 16 MB, one of them 16 million fields long.
        QTest::newRow("very long lines")
            << "#\n4.0\n#\n" + QByteArray(16 << 20, 'x') + ",80,PNG,Pictures,no\n#\n1024" +
                   QByteArray(16 << 20, ',') + "\n# EOF\n"
            << 0 << "Pictures" << QSize(1024, 560);
        QTest::newRow("numbers out of range") << QByteArray(
                                                     "#\n4.0\n#\n1e300,-1e300,PNG,Desktop,yes\n#\n"
                                                     "99999999999999999999,-7\n")
                                              << 2147483647 << "Desktop" << QSize();
    }
    void damagedFilesAreReadAsFarAsTheyGo() {
        QFETCH(QByteArray, content);
        writePreferenceFile(content);
        App::instance()->windowMain()->resize(500, 400);
        App::instance()->loadPrefs();
        QTEST(App::instance()->lastSize, "lastSize");
        QTEST(App::instance()->savePath, "savePath");
        QFETCH(QSize, area);
        if (area.isValid()) QCOMPARE(controlArea(), area);
    }
};

VELMORA_TEST_MAIN(PreferenceFileTest)
#include "tst_preferencefile.moc"
