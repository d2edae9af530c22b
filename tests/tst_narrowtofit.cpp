#include <QLabel>
#include <QTest>

#include "platform/narrowtofit.h"
#include "preview/infotext.h"
#include "support/testenvironment.h"

namespace {
QFont sized(int pixels, bool bold, bool italic) {
    QFont font;
    font.setPixelSize(pixels);
    font.setBold(bold);
    font.setItalic(italic);
    return font;
}
}  // namespace

class NarrowToFitTest : public QObject {
    Q_OBJECT

private slots:
    // The main window's info label: 637 x 40, bold, 16 pixels, wrapping.
    void bothStartLinesOfTheInfoStayInSight() {
        QLabel label;
        label.setFont(sized(16, true, false));
        label.setWordWrap(true);
        label.resize(637, 40);
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

    // The preferences' quality label: 186 wide, italic, 12 pixels, one line.
    void aOneLineTextIsNotCutAndAFittingOneNotNarrowed() {
        QLabel label(QStringLiteral("Smallest file size, very low quality"));
        label.setFont(sized(12, false, true));
        label.resize(186, 16);
        narrowToFit(&label);
        QVERIFY(label.fontMetrics().horizontalAdvance(label.text()) <= 186);
        QVERIFY(label.font().italic());

        label.setText(QStringLiteral("Big file size"));
        narrowToFit(&label);
        QCOMPARE(label.font().stretch(), int(QFont::Unstretched));
    }
};

VELMORA_TEST_MAIN(NarrowToFitTest)
#include "tst_narrowtofit.moc"
