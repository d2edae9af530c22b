#include <QTest>
#include <limits>

#include "platform/text.h"
#include "support/testenvironment.h"

using namespace text;

class TextHelpersTest : public QObject {
    Q_OBJECT
private slots:
    void valReadsTheLeadingNumberOnly() {
        QCOMPARE(Val("3 images"), 3.0);
        QCOMPARE(Val("12.7"), 12.7);
        QCOMPARE(Val(""), 0.0);
        QCOMPARE(Val("-4x"), -4.0);
        QCOMPARE(Val("Empty list"), 0.0);
        QCOMPARE(Val("  720"), 720.0);
        QCOMPARE(Val("0012"), 12.0);
        QCOMPARE(Val(".5"), 0.5);
        QCOMPARE(Val("1."), 1.0);
        QCOMPARE(Val("-"), 0.0);
        QCOMPARE(Val("."), 0.0);
        QCOMPARE(Val("2e3 px"), 2000.0);
        QCOMPARE(Val("2e"), 2.0);
        QCOMPARE(Val("1,5"), 1.0);
        QCOMPARE(Val("٣"), 0.0);  // only ASCII digits make a number
    }

    void realsBecomeIntegersTowardZeroAndWithinRange() {
        QCOMPARE(truncateToInt(12.7), 12);
        QCOMPARE(truncateToInt(-12.7), -12);
        QCOMPARE(truncateToInt(480.15), 480);
        QCOMPARE(truncateToInt(1e300), std::numeric_limits<int>::max());
        QCOMPARE(truncateToInt(-1e300), std::numeric_limits<int>::min());
        QCOMPARE(truncateToInt(std::numeric_limits<double>::quiet_NaN()), 0);
        QCOMPARE(truncateToInt(Val("99999999999999")), std::numeric_limits<int>::max());
    }

    void fieldsCountFromOne() {
        QCOMPARE(NthField("720,80,PNG", ",", 1), QString("720"));
        QCOMPARE(NthField("720,80,PNG", ",", 3), QString("PNG"));
        QCOMPARE(NthField("720,80,PNG", ",", 4), QString());
        QCOMPARE(NthField("720,80,PNG", ",", 0), QString());
        QCOMPARE(NthField("a,,b", ",", 2), QString());
        QCOMPARE(NthField("", ",", 1), QString());
        QCOMPARE(CountFields("holiday.2019.beach.png", "."), 4);
        QCOMPARE(CountFields("photo", "."), 1);
        QCOMPARE(CountFields("", "."), 0);
        QCOMPARE(CountFields("name.", "."), 2);
        // Separators of more than one character never overlap.
        QCOMPARE(CountFields("aaaa", "aa"), 3);
        QCOMPARE(CountFields("aaa", "aa"), 2);
        QCOMPARE(NthField("aaa", "aa", 2), QString("a"));
        QCOMPARE(Str(-42), QString("-42"));
        QCOMPARE(Str(1234567), QString("1234567"));
        QCOMPARE(Chr(13), QString("\r"));
        QCOMPARE(Chr(9), QString("\t"));
        QCOMPARE(Chr(0x1F305), QString("🌅"));
        QCOMPARE(Chr(-1), QString(QChar::ReplacementCharacter));
    }
};

VELMORA_TEST_MAIN(TextHelpersTest)
#include "tst_text.moc"
