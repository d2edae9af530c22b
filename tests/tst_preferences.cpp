#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include "app/app.h"
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
QString labelText(const char* name) {
    return control<QLabel>(name)->text();
}
int frameHeight() {
    return control("RectangleFrame")->height();
}

// The six settings that the window shows and changes.
struct Settings {
    QString savePath, imageFormat;
    int imageQuality;
    QString openPrefs;
    int frameWidth;
    QColor bordColor;
    bool operator==(const Settings&) const = default;
};
Settings settingsOfApp() {
    const App* app = App::instance();
    return {app->savePath,  app->imageFormat, app->imageQuality,
            app->openPrefs, app->frameWidth,  app->bordColor};
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
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        TestEnvironment::dialogs().clear();
    }

    void theFirstOpeningShowsTheStartValues() {
        App::instance()->_Preferences_Action();
        sharedInstance<WindowPreferences>()->ShowWithin(App::instance()->windowMain());
        QCOMPARE(sharedInstance<WindowPreferences>()->parentWidget(),
                 App::instance()->windowMain());
        QCOMPARE(labelText("LabelPath"), "Default path ...");
        QVERIFY(control<QRadioButton>("savePathButton_0")->isChecked());
        QVERIFY(control<QRadioButton>("saveImageFormat_0")->isChecked());
        QVERIFY(control("PopupMenuQuality")->isEnabled());
        QCOMPARE(control<QComboBox>("PopupMenuQuality")->currentText(), "Min. quality");
        QCOMPARE(labelText("LabelQuality"), "Smallest file size, very low quality");
        QVERIFY(!control<QCheckBox>("CheckBoxPrefs")->isChecked());
        QVERIFY(control<QRadioButton>("RadioButtonFrame_0")->isChecked());
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
        QVERIFY(control("PopupMenuQuality")->isEnabled() && control("LabelQuality")->isVisible());
        control<QComboBox>("PopupMenuQuality")->setCurrentIndex(3);
        QCOMPARE(labelText("LabelQuality"), "Small file size, low quality");
        click("saveImageFormat_0");
        QVERIFY(!control("PopupMenuQuality")->isEnabled() && !control("LabelQuality")->isVisible());
        click("CheckBoxPrefs");
        click("RadioButtonFrame_1");
        control<Slider>("SliderFrameWidth")->setValue(12);
        QCOMPARE(frameHeight(), 12);
        QCOMPARE(labelText("LabelFrameWidth"), "12px");
        TestEnvironment::dialogs().colours.enqueue(QColor(200, 10, 10));
        click("PushButtonColor");

        ImageCanvas* canvas = App::instance()->windowMain()->imageCanvas();
        PaintCounter counter;
        canvas->installEventFilter(&counter);
        QTest::qWait(50);
        counter.paints = 0;
        click("PushButton2");
        QCOMPARE(settingsOfApp(),
                 (Settings{"Documents", "PNG", 25, "yes", 12, QColor(200, 10, 10)}));
        QTRY_VERIFY(counter.paints > 0);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!existingInstance<WindowPreferences>());

        // The next opening shows what App holds now.
        App::instance()->_Preferences_Action();
        QVERIFY(control<QRadioButton>("savePathButton_1")->isChecked());
        QVERIFY(control<QRadioButton>("RadioButtonFrame_1")->isChecked());
        QCOMPARE(frameHeight(), 12);
        QCOMPARE(control<QComboBox>("PopupMenuQuality")->currentIndex(), 3);
    }

    void cancelAndNoFrameLeaveWhatTheyShould() {
        const Settings before = settingsOfApp();
        App::instance()->_Preferences_Action();
        click("savePathButton_2");
        click("saveImageFormat_1");
        click("CheckBoxPrefs");
        control<Slider>("SliderFrameWidth")->setValue(3);
        TestEnvironment::dialogs().colours.enqueue(QColor(Qt::green));
        click("PushButtonColor");
        QTest::keyClick(existingInstance<WindowPreferences>(), Qt::Key_Escape);
        QCOMPARE(settingsOfApp(), before);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!existingInstance<WindowPreferences>());

        // A cancelled picker keeps the colour shown; with "No" the slider's width is not taken.
        App::instance()->_Preferences_Action();
        click("PushButtonColor");
        QCOMPARE(TestEnvironment::dialogs().colourPickerStarts.last(), QColor(Qt::white));
        QCOMPARE(TestEnvironment::dialogs().colourPrompts.last(), "Select a Color");
        click("RadioButtonFrame_0");
        click("PushButton2");
        QCOMPARE(App::instance()->frameWidth, 0);
        QCOMPARE(App::instance()->bordColor, before.bordColor);
    }
};

VELMORA_TEST_MAIN(PreferencesTest)
#include "tst_preferences.moc"
