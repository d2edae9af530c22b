#include <QAbstractButton>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QTest>

#include "auxwindows/aboutwindow.h"
#include "mainwindow/mainwindow.h"
#include "platform/sharedwindow.h"
#include "platform/slider.h"
#include "platform/specialfolders.h"
#include "preferences/preferenceswindow.h"
#include "preview/imagecanvas.h"
#include "support/testenvironment.h"
#include "support/testpictures.h"

namespace {
template <class Control = QWidget>
Control* control(const char* name) {
    return existingInstance<PreferencesWindow>()->findChild<Control*>(name);
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
         existingInstance<PreferencesWindow>()->findChildren<QAbstractButton*>())
        if (button->isChecked()) checked << button->objectName();
    checked.sort();
    const auto* quality = control<QComboBox>("qualityBox");
    const auto* description = control<QLabel>("qualityLabel");
    return QString("%1|%2|%3|%4|%5|%6")
        .arg(checked.join(' '), control<QLabel>("savePathLabel")->text(),
             QString(quality->isEnabled() ? "%1" : "(%1)").arg(quality->currentText()),
             description->isVisible() ? description->text() : "",
             control<QLabel>("frameWidthLabel")->text(),
             QString::number(control("frameSample")->height()));
}

// The settings of App: the file holds the first five, the window changes all but the first.
QString settings() {
    const Preferences* a = &App::instance()->preferences();
    return QString("%1|%2|%3|%4|%5|%6|%7")
        .arg(QString::number(a->previewSize), QString::number(a->imageQuality), a->imageFormat,
             a->savePath, a->openAtStart ? "yes" : "no", QString::number(a->frameWidth),
             a->frameColour.name());
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
    writeBytes(preferenceFile(), content);
    App::instance()->loadPreferences();
}
}  // namespace

class PreferencesTest : public QObject {
    Q_OBJECT
    RecordingDialogs& dialogs = TestEnvironment::dialogs();

private slots:
    void initTestCase() {
        App::instance()->start();
        QVERIFY(QTest::qWaitForWindowExposed(App::instance()->mainWindow()));
    }
    void cleanup() {
        if (existingInstance<PreferencesWindow>()) existingInstance<PreferencesWindow>()->close();
        deleteClosedWindows();
        dialogs.clear();
    }

    // Escape leaves every setting as it was; OK stores them all and repaints the preview.
    void okStoresEverySettingAndEscapeNone() {
        const QString before = settings();
        App::instance()->showPreferences();
        QCOMPARE(existingInstance<PreferencesWindow>()->parentWidget(),
                 App::instance()->mainWindow());
        for (const char* name :
             {"picturesButton", "jpegButton", "openAtStartCheckBox", "frameButton"})
            click(name);
        control<Slider>("frameWidthSlider")->setValue(3);
        dialogs.colours.enqueue(QColor(Qt::green));
        click("frameColourButton");
        QTest::keyClick(existingInstance<PreferencesWindow>(), Qt::Key_Escape);
        QCOMPARE(settings(), before);
        deleteClosedWindows();  // a window left open would show its changes at the next opening

        App::instance()->showPreferences();
        // Frame width 0 asks the slider for less than its minimum: it stands at 1 and says so.
        QCOMPARE(shown(),
                 "desktopButton noFrameButton pngButton|Default path ...|"
                 "Min. quality|Smallest file size, very low quality|1px|1");
        for (const char* name :
             {"documentsButton", "jpegButton", "openAtStartCheckBox", "frameButton"})
            click(name);
        control<QComboBox>("qualityBox")->setCurrentIndex(3);
        control<Slider>("frameWidthSlider")->setValue(12);
        const QString documents = SpecialFolder::Documents() + "/";
        QCOMPARE(shown(), "documentsButton frameButton jpegButton openAtStartCheckBox|" +
                              documents + "|Low quality|Small file size, low quality|12px|12");
        click("pngButton");  // PNG is lossless: no quality to choose
        QCOMPARE(shown(), "documentsButton frameButton openAtStartCheckBox pngButton|" + documents +
                              "|(Low quality)||12px|12");
        dialogs.colours.enqueue(QColor(200, 10, 10));
        click("frameColourButton");

        PaintCounter counter;
        App::instance()->mainWindow()->imageCanvas()->installEventFilter(&counter);
        QTest::qWait(50);
        counter.paints = 0;
        click("okButton");
        QCOMPARE(settings().section('|', 1), QString("25|PNG|Documents|yes|12|#c80a0a"));
        QTRY_VERIFY(counter.paints > 0);
        deleteClosedWindows();

        // The next opening shows what App holds now; only a change of format turns the popup off.
        // A cancelled picker keeps the colour shown; with "No" the slider's width is not taken.
        App::instance()->showPreferences();
        QCOMPARE(shown(), "documentsButton frameButton openAtStartCheckBox pngButton|" + documents +
                              "|Low quality|Small file size, low quality|12px|12");
        click("frameColourButton");
        QCOMPARE(dialogs.colourPickerStarts.last(), QColor(Qt::white));
        QCOMPARE(dialogs.colourPrompts.last(), "Select a Color");
        click("noFrameButton");
        click("okButton");
        QCOMPARE(settings().section('|', 1), QString("25|PNG|Documents|yes|0|#c80a0a"));
    }

    void withoutAFileTheDefaultsComeAndTheAboutWindowShows() {
        App::instance()->loadPreferences();
        QCOMPARE(settings().section('|', 0, 4), QString("720|80|PNG|Desktop|yes"));
        QVERIFY(existingInstance<AboutWindow>() && existingInstance<AboutWindow>()->isVisible());
        existingInstance<AboutWindow>()->close();
    }

    void damagedFilesAreReadAsFarAsTheyGo_data() {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("settings");
        QTest::newRow("as written") << kWritten << "1024|50|JPEG|Pictures|no";
        QTest::newRow("CRLF, numbers out of range or words")
            << QByteArray("#\r\n4.0\r\n#\r\n1e300,-1e300,PNG,Pictures,yes\r\n#\r\n1100.9,x\r\n")
            << "2147483647|-2147483648|PNG|Pictures|yes";
        const char bytes[] = "\xff\xfe\x00\n\x80\n\n7\xc3(,\x01,PNG\n\n\x00\x00,\xff";
        QTest::newRow("any bytes") << QByteArray(bytes, sizeof bytes - 1) << "7|0|PNG||no";
        QTest::newRow("empty") << QByteArray() << "0|0|||no";
        QTest::newRow("cut inside line 6")
            << QByteArray("#\n4.0\n#\n512,80,PNG,Movies,no\n#\n1200,") << "512|80|PNG|Movies|no";
        // Lines of 16 MB, one of them 16 million fields long.
        QTest::newRow("very long lines")
            << "#\n4.0\n#\n" + QByteArray(16 << 20, 'x') + ",80,PNG,Pictures,no\n#\n1024" +
                   QByteArray(16 << 20, ',') + "\n# EOF\n"
            << "0|80|PNG|Pictures|no";
    }
    void damagedFilesAreReadAsFarAsTheyGo() {
        QFETCH(QByteArray, content);
        load(content);
        QTEST(settings().section('|', 0, 4), "settings");
    }

    void whatIsReadIsWrittenBackInTheSameLayout() {
        load(kWritten);
        App::instance()->preferences().windowWidth = 1000;
        App::instance()->preferences().windowHeight = 700;
        QVERIFY(QFile::remove(preferenceFile()));
        App::instance()->savePreferences();
        QFile file(preferenceFile());
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), kWritten);
    }
};

VELMORA_TEST_MAIN(PreferencesTest)
#include "tst_preferences.moc"
