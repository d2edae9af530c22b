#include <QAbstractButton>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLayout>
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
void deleteClosedWindows() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}
// What the window shows: its checked buttons, the path, the quality (in brackets while the popup
// is off) and its description, the frame width as written and as drawn.
QString shown() {
    QStringList checked;
    for (const auto* button :
         existingInstance<WindowPreferences>()->findChildren<QAbstractButton*>())
        if (button->isChecked()) checked << button->objectName();
    checked.sort();
    const auto* quality = control<QComboBox>("PopupMenuQuality");
    const QString text = quality->currentText();
    return QStringList{
        checked.join(' '),
        control<QLabel>("LabelPath")->text(),
        quality->isEnabled() ? text : "(" + text + ")",
        control("LabelQuality")->isVisible() ? control<QLabel>("LabelQuality")->text() : "",
        control<QLabel>("LabelFrameWidth")->text(),
        QString::number(control("RectangleFrame")->height())}
        .join('|');
}

// The settings of App: the file holds the first five, the window changes all but the first.
QString settings() {
    const App* a = App::instance();
    return QString("%1|%2|%3|%4|%5|%6|%7")
        .arg(a->lastSize)
        .arg(a->imageQuality)
        .arg(a->imageFormat, a->savePath, a->openPrefs)
        .arg(a->frameWidth)
        .arg(a->bordColor.name());
}
QString fileSettings() {
    return settings().section('|', 0, 4);
}
const QByteArray kWritten =
    "# Corvanes version\n4.0\n# Last resize dimension, image quality, image format, save path, "
    "opend prefs on startup\n1024,50,JPEG,Pictures,no\n# Main Window width and height\n1000,700\n"
    "# EOF\n";
QString preferenceFile() {
    return QDir(SpecialFolder::Preferences()).filePath("Corvane4.prefs");
}
void load(const QByteArray& content) {
    QDir().mkpath(SpecialFolder::Preferences());
    QFile file(preferenceFile());
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(content);
    file.close();
    App::instance()->loadPrefs();
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

    void okStoresEverySettingAndRepaintsThePreview() {
        App::instance()->_Preferences_Action();
        QCOMPARE(existingInstance<WindowPreferences>()->parentWidget(),
                 App::instance()->windowMain());
        // Frame width 0 asks the slider for less than its minimum: it stands at 1 and says so.
        QCOMPARE(shown(),
                 "RadioButtonFrame_0 saveImageFormat_0 savePathButton_0|Default path ...|"
                 "Min. quality|Smallest file size, very low quality|1px|1");
        click("savePathButton_1");
        click("saveImageFormat_1");
        control<QComboBox>("PopupMenuQuality")->setCurrentIndex(3);
        click("CheckBoxPrefs");
        click("RadioButtonFrame_1");
        control<Slider>("SliderFrameWidth")->setValue(12);
        const QString documents = SpecialFolder::Documents() + "/";
        QCOMPARE(shown(), "CheckBoxPrefs RadioButtonFrame_1 saveImageFormat_1 savePathButton_1|" +
                              documents + "|Low quality|Small file size, low quality|12px|12");
        click("saveImageFormat_0");  // PNG is lossless: no quality to choose
        QCOMPARE(shown(), "CheckBoxPrefs RadioButtonFrame_1 saveImageFormat_0 savePathButton_1|" +
                              documents + "|(Low quality)||12px|12");
        TestEnvironment::dialogs().colours.enqueue(QColor(200, 10, 10));
        click("PushButtonColor");

        PaintCounter counter;
        App::instance()->windowMain()->imageCanvas()->installEventFilter(&counter);
        QTest::qWait(50);
        counter.paints = 0;
        click("PushButton2");
        QCOMPARE(settings().section('|', 1), QString("25|PNG|Documents|yes|12|#c80a0a"));
        QTRY_VERIFY(counter.paints > 0);
        deleteClosedWindows();
        QVERIFY(!existingInstance<WindowPreferences>());

        // The next opening shows what App holds now; only a change of format turns the popup off.
        App::instance()->_Preferences_Action();
        QCOMPARE(shown(), "CheckBoxPrefs RadioButtonFrame_1 saveImageFormat_0 savePathButton_1|" +
                              documents + "|Low quality|Small file size, low quality|12px|12");
    }

    void cancelAndNoFrameLeaveWhatTheyShould() {
        const QString before = settings();
        App::instance()->_Preferences_Action();
        for (const char* name : {"savePathButton_2", "saveImageFormat_1", "CheckBoxPrefs"})
            click(name);
        control<Slider>("SliderFrameWidth")->setValue(3);
        TestEnvironment::dialogs().colours.enqueue(QColor(Qt::green));
        click("PushButtonColor");
        QTest::keyClick(existingInstance<WindowPreferences>(), Qt::Key_Escape);
        QCOMPARE(settings(), before);
        deleteClosedWindows();
        QVERIFY(!existingInstance<WindowPreferences>());

        // A cancelled picker keeps the colour shown; with "No" the slider's width is not taken.
        App::instance()->_Preferences_Action();
        click("PushButtonColor");
        QCOMPARE(TestEnvironment::dialogs().colourPickerStarts.last(), QColor(Qt::white));
        QCOMPARE(TestEnvironment::dialogs().colourPrompts.last(), "Select a Color");
        click("RadioButtonFrame_0");
        click("PushButton2");
        QCOMPARE(settings().section('|', 1), QString("25|PNG|Documents|yes|0|#c80a0a"));
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

    void damagedFilesAreReadAsFarAsTheyGo_data() {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("settings");
        QTest::addColumn<QSize>("area");
        QTest::newRow("as written") << kWritten << "1024|50|JPEG|Pictures|no" << QSize(1000, 700);
        QTest::newRow("CRLF, numbers out of range or words")
            << QByteArray("#\r\n4.0\r\n#\r\n1e300,-1e300,PNG,Pictures,no\r\n#\r\n1100.9,x\r\n")
            << "2147483647|-2147483648|PNG|Pictures|no" << QSize(1100, 560);
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
    }
    void damagedFilesAreReadAsFarAsTheyGo() {
        QFETCH(QByteArray, content);
        App::instance()->windowMain()->resize(500, 400);
        load(content);
        QTEST(fileSettings(), "settings");
        QTEST(controlArea(), "area");
    }

    void whatIsReadIsWrittenBackInTheSameLayout() {
        load(kWritten);
        App::instance()->mainWinWidth = 1000;
        App::instance()->mainWinHeight = 700;
        QVERIFY(QFile::remove(preferenceFile()));
        App::instance()->SavePrefs();
        QFile file(preferenceFile());
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), kWritten);
    }
};

VELMORA_TEST_MAIN(PreferencesTest)
#include "tst_preferences.moc"
