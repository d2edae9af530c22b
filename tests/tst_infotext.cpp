#include <QLabel>
#include <QTest>

#include "preview/infotext.h"
#include "support/testenvironment.h"

class InfoTextTest : public QObject {
    Q_OBJECT

    // The main window's info label: 637 x 40, bold, 16 pixels, wrapping.
    static void makeInfoLabel(QLabel& label) {
        QFont font = label.font();
        font.setPixelSize(16);
        font.setBold(true);
        label.setFont(font);
        label.setWordWrap(true);
        label.resize(637, 40);
    }

private slots:
    void bothStartLinesStayInSight() {
        QLabel label;
        makeInfoLabel(label);
        infotext::show(&label, infotext::start());
        QCOMPARE(label.text(),
                 "To start, simply Drag and Drag  a folder of chosen images onto this window.\n"
                 "Please take note: the images have to be already resized.");
        // Two rows, not three: the second line is not pushed below the label's edge.
        QVERIFY2(label.heightForWidth(637) <= 40,
                 qPrintable(QString::number(label.heightForWidth(637))));
        QCOMPARE(label.font().pixelSize(), 16);
        QVERIFY(label.font().bold());
    }

    void aShortTextAfterALongOneIsNotNarrowed() {
        QLabel label;
        makeInfoLabel(label);
        label.resize(200, 40);
        infotext::show(&label, infotext::start());
        QVERIFY(label.font().stretch() < QFont::Unstretched);
        label.resize(637, 40);
        infotext::show(&label, infotext::ready());
        QCOMPARE(label.text(), "Ready to create the gallery!");
        QCOMPARE(label.font().stretch(), int(QFont::Unstretched));
    }
};

VELMORA_TEST_MAIN(InfoTextTest)
#include "tst_infotext.moc"
