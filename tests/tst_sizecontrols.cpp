#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>

#include "platform/slider.h"
#include "preview/imagecanvas.h"
#include "preview/sizecontrols.h"
#include "support/testenvironment.h"

class SizeControlsTest : public QObject {
    Q_OBJECT
    QWidget window;
    QLineEdit* resizedWidth = new QLineEdit(&window);
    Slider* slider = new Slider(&window);
    QRadioButton* byWidth = new QRadioButton(&window);
    QRadioButton* byHeight = new QRadioButton(&window);
    QLabel* info = new QLabel(&window);
    ImageCanvas* canvas = new ImageCanvas(&window);
    SizeControls controls{{resizedWidth, slider, byWidth, byHeight, canvas}};

    void commit(const QString& typed) {
        resizedWidth->selectAll();
        QSignalSpy edits(resizedWidth, &QLineEdit::textEdited);
        QTest::keyClicks(resizedWidth, typed);
        QCOMPARE(edits.size(), typed.size());  // every key reached the field
        QFocusEvent lost(QEvent::FocusOut);
        QCoreApplication::sendEvent(resizedWidth, &lost);
    }

private slots:
    void initTestCase() {
        resizedWidth->setMaxLength(4);
        byWidth->setChecked(true);
        canvas->bind({resizedWidth, byWidth, new QWidget(&window), new QWidget(&window), info});
    }

    void theSingleSliderPositionPinsEverythingTo360() {
        slider->setRange(360, 360);
        App::instance()->lastSize = 0;
        resizedWidth->setText("0");  // as the window does at opening
        QCOMPARE(resizedWidth->text(), QString("360"));
        QCOMPARE(App::instance()->lastSize, 360);
        QCOMPARE(slider->value(), 360);

        QCoreApplication::processEvents();
        QCOMPARE(canvas->size(), QSize(360, 240));  // hubble, 360 wide
        byHeight->setChecked(true);
        QCoreApplication::processEvents();
        QCOMPARE(canvas->size(), QSize(540, 360));  // the same number read as a height
        byWidth->setChecked(true);
    }

    void committingMendsTheFieldAndStoresTheSize() {
        slider->setRange(0, 20000);  // wide enough to hand every number back unchanged
        const QList<std::tuple<QString, QString, int>> cases = {{"0", "1", 1},
                                                                {"12.7", "12.7", 12},
                                                                {"ab", "1", 1},
                                                                {"9999", "9999", 9999},
                                                                {"720", "720", 720}};
        for (const auto& [typed, kept, stored] : cases) {
            commit(typed);
            QCOMPARE(resizedWidth->text(), kept);
            QCOMPARE(App::instance()->lastSize, stored);
            QCOMPARE(slider->value(), stored);
        }

        // Return mends the field too, and still reaches it.
        QSignalSpy returns(resizedWidth, &QLineEdit::returnPressed);
        resizedWidth->selectAll();
        QTest::keyClicks(resizedWidth, "0");
        QTest::keyClick(resizedWidth, Qt::Key_Return);
        QCOMPARE(resizedWidth->text(), QString("1"));
        QCOMPARE(returns.size(), 1);
    }

    void aSliderMoveWritesTheFieldAndTheStoredSize() {
        slider->setRange(0, 20000);
        slider->setValue(480);
        QCOMPARE(resizedWidth->text(), QString("480"));
        QCOMPARE(App::instance()->lastSize, 480);
    }
};

VELMORA_TEST_MAIN(SizeControlsTest)
#include "tst_sizecontrols.moc"
