#include <QTest>

#include "auxwindows/progresswheel.h"
#include "support/testenvironment.h"

class ProgressWheelTest : public QObject {
    Q_OBJECT

private slots:
    // The walk of a folder holds the event loop: the wheel must turn from one repaint to the
    // next with no event served between them.
    void drawsSpokesThatTurnBetweenRepaints() {
        ProgressWheel wheel;
        wheel.resize(16, 16);
        const QImage first = wheel.grab().toImage();
        const QRgb background = wheel.palette().color(QPalette::Window).rgb();
        int drawn = 0;
        for (int y = 0; y < first.height(); ++y)
            for (int x = 0; x < first.width(); ++x) drawn += first.pixel(x, y) != background;
        QVERIFY2(drawn > 20, qPrintable(QString::number(drawn)));

        QTest::qSleep(120);
        QVERIFY(wheel.grab().toImage() != first);
    }
};

VELMORA_TEST_MAIN(ProgressWheelTest)
#include "tst_progresswheel.moc"
