#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLayout>
#include <QRadioButton>
#include <QTest>

#include "app/app.h"
#include "auxwindows/windowabout.h"
#include "mainwindow/windowmain.h"
#include "platform/sharedwindow.h"
#include "platform/slider.h"
#include "platform/specialfolders.h"
#include "preferences/windowpreferences.h"
#include "preview/imagecanvas.h"
#include "support/photolike.h"
#include "support/testenvironment.h"

namespace {
template <class Control = QWidget>
Control* control(const char* name) {
    return existingInstance<WindowPreferences>()->findChild<Control*>(name);
}
void click(const char* name) {
    QTest::mouseClick(control(name), Qt::LeftButton);
}
bool checked(const char* name) {
    return control<QAbstractButton>(name)->isChecked();
}
QString labelText(const char* name) {
    return control<QLabel>(name)->text();
}
QComboBox* quality() {
    return control<QComboBox>("PopupMenuQuality");
}
int frameHeight() {
    return control("RectangleFrame")->height();
}
void deleteClosedWindows() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// The settings of App that the window shows and changes, and those the file holds.
QString windowSettings() {
    const App* app = App::instance();
    return QStringList{app->savePath,
                       app->imageFormat,
                       QString::number(app->imageQuality),
                       app->openPrefs,
                       QString::number(app->frameWidth),
                       app->bordColor.name()}
        .join('|');
}
QString fileSettings() {
    const App* app = App::instance();
    return QStringList{QString::number(app->lastSize), QString::number(app->imageQuality),
                       app->imageFormat, app->savePath, app->openPrefs}
        .join('|');
}
QString preferenceFile() {
    return QDir(SpecialFolder::Preferences()).filePath("Corvane4.prefs");
}
// The size of the main window's control area, below the menu bar.
QSize controlArea() {
    return App::instance()->windowMain()->centralWidget()->size();
}
}  // namespace

class PreferencesTest : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() {
        App::instance()->start();
        QVERIFY(QTest::qWaitForWindowExposed(App::instance()->windowMain()));
    }
    void cleanup() {
        if (existingInstance<WindowPreferences>()) existingInstance<WindowPreferences>()->close();
        deleteClosedWindows();
        TestEnvironment::dialogs().clear();
    }

    void theFirstOpeningShowsTheStartValuesOverTheMainWindow() {
        App::instance()->_Preferences_Action();
        QCOMPARE(existingInstance<WindowPreferences>()->parentWidget(),
                 App::instance()->windowMain());
        QCOMPARE(labelText("LabelPath"), "Default path ...");
        QVERIFY(checked("savePathButton_0") && checked("saveImageFormat_0"));
        QVERIFY(quality()->isEnabled());
        QCOMPARE(quality()->currentText(), "Min. quality");
        QCOMPARE(labelText("LabelQuality"), "Smallest file size, very low quality");
        QVERIFY(!checked("CheckBoxPrefs") && checked("RadioButtonFrame_0"));
        // Frame width 0 asks the slider for less than its minimum: it stands at 1 and says so.
        QCOMPARE(control<Slider>("SliderFrameWidth")->value(), 1);
        QCOMPARE(frameHeight(), 1);
        QCOMPARE(labelText("LabelFrameWidth"), "1px");
    }

    void okStoresEverySettingAndRepaintsThePreview() {
        App::instance()->_Preferences_Action();
        click("savePathButton_1");
        QCOMPARE(labelText("LabelPath"), SpecialFolder::Documents() + "/");
        click("saveImageFormat_1");
        QVERIFY(quality()->isEnabled() && control("LabelQuality")->isVisible());
        quality()->setCurrentIndex(3);
        QCOMPARE(labelText("LabelQuality"), "Small file size, low quality");
        click("saveImageFormat_0");
        QVERIFY(!quality()->isEnabled() && !control("LabelQuality")->isVisible());
        click("CheckBoxPrefs");
        click("RadioButtonFrame_1");
        control<Slider>("SliderFrameWidth")->setValue(12);
        QCOMPARE(frameHeight(), 12);
        QCOMPARE(labelText("LabelFrameWidth"), "12px");
        TestEnvironment::dialogs().colours.enqueue(QColor(200, 10, 10));
        click("PushButtonColor");

        PaintCounter counter;
        App::instance()->windowMain()->imageCanvas()->installEventFilter(&counter);
        QTest::qWait(50);
        counter.paints = 0;
        click("PushButton2");
        QCOMPARE(windowSettings(), QString("Documents|PNG|25|yes|12|#c80a0a"));
        QTRY_VERIFY(counter.paints > 0);
        deleteClosedWindows();
        QVERIFY(!existingInstance<WindowPreferences>());

        // The next opening shows what App holds now.
        App::instance()->_Preferences_Action();
        QVERIFY(checked("savePathButton_1") && checked("RadioButtonFrame_1"));
        QCOMPARE(frameHeight(), 12);
        QCOMPARE(quality()->currentIndex(), 3);
    }

    void cancelAndNoFrameLeaveWhatTheyShould() {
        const QString before = windowSettings();
        App::instance()->_Preferences_Action();
        for (const char* name : {"savePathButton_2", "saveImageFormat_1", "CheckBoxPrefs"})
            click(name);
        control<Slider>("SliderFrameWidth")->setValue(3);
        TestEnvironment::dialogs().colours.enqueue(QColor(Qt::green));
        click("PushButtonColor");
        QTest::keyClick(existingInstance<WindowPreferences>(), Qt::Key_Escape);
        QCOMPARE(windowSettings(), before);
        deleteClosedWindows();
        QVERIFY(!existingInstance<WindowPreferences>());

        // A cancelled picker keeps the colour shown; with "No" the slider's width is not taken.
        App::instance()->_Preferences_Action();
        click("PushButtonColor");
        QCOMPARE(TestEnvironment::dialogs().colourPickerStarts.last(), QColor(Qt::white));
        QCOMPARE(TestEnvironment::dialogs().colourPrompts.last(), "Select a Color");
        click("RadioButtonFrame_0");
        click("PushButton2");
        QCOMPARE(windowSettings(), QString("Documents|PNG|25|yes|0|#c80a0a"));
    }

    void withoutAFileTheDefaultsComeAndTheAboutWindowShows() {
        App::instance()->loadPrefs();
        QCOMPARE(fileSettings(), QString("720|80|PNG|Desktop|yes"));
        QVERIFY(existingInstance<WindowAbout>() && existingInstance<WindowAbout>()->isVisible());
        existingInstance<WindowAbout>()->close();
        // The main window is fixed in size; freed, it shows the size the file asks for.
        QMainWindow* window = App::instance()->windowMain();
        window->layout()->setSizeConstraint(QLayout::SetNoConstraint);
        for (QWidget* widget : {static_cast<QWidget*>(window), window->centralWidget()}) {
            widget->setMinimumSize(0, 0);
            widget->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
        }
    }

    void theNextStartFindsWhatThisOneSaved() {
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
        QCOMPARE(fileSettings(), QString("1024|50|JPEG|Pictures|no"));
        QCOMPARE(controlArea(), QSize(1000, 700));
    }

    void damagedFilesAreReadAsFarAsTheyGo_data() {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("settings");
        QTest::addColumn<QSize>("area");
        QTest::newRow("zero size") << QByteArray("#\n4.0\n#\n800,80,PNG,Documents,yes\n#\n0,0\n")
                                   << "800|80|PNG|Documents|yes" << QSize(980, 560);
        QTest::newRow("words for numbers, CRLF")
            << QByteArray("#\r\n4.0\r\n#\r\nwide,80,PNG,Pictures,no\r\n#\r\n1100.9,x\r\n")
            << "0|80|PNG|Pictures|no" << QSize(1100, 560);
        const char bytes[] = "\xff\xfe\x00\n\x80\n\n7\xc3(,\x01,PNG\n\n\x00\x00,\xff";
        QTest::newRow("any bytes")
            << QByteArray(bytes, sizeof bytes - 1) << "7|0|PNG||" << QSize(980, 560);
        QTest::newRow("empty") << QByteArray() << "0|0|||" << QSize(980, 560);
        QTest::newRow("cut inside line 6")
            << QByteArray("#\n4.0\n#\n512,80,PNG,Movies,no\n#\n1200,") << "512|80|PNG|Movies|no"
            << QSize(1200, 560);
        // Lines of 16 MB, one of them 16 million fields long.
        QTest::newRow("very long lines")
            << "#\n4.0\n#\n" + QByteArray(16 << 20, 'x') + ",80,PNG,Pictures,no\n#\n1024" +
                   QByteArray(16 << 20, ',') + "\n# EOF\n"
            << "0|80|PNG|Pictures|no" << QSize(1024, 560);
        QTest::newRow("numbers out of range")
            << QByteArray("#\n4.0\n#\n1e300,-1e300,PNG,Desktop,yes\n#\n99999999999999999999,-7\n")
            << "2147483647|-2147483648|PNG|Desktop|yes" << QSize();
    }
    void damagedFilesAreReadAsFarAsTheyGo() {
        QFETCH(QByteArray, content);
        QDir().mkpath(SpecialFolder::Preferences());
        QFile file(preferenceFile());
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(content);
        file.close();
        App::instance()->windowMain()->resize(500, 400);
        App::instance()->loadPrefs();
        QTEST(fileSettings(), "settings");
        QFETCH(QSize, area);
        if (area.isValid()) QCOMPARE(controlArea(), area);
    }
};

VELMORA_TEST_MAIN(PreferencesTest)
#include "tst_preferences.moc"
