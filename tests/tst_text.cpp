#include <QTest>
#include <limits>

#include "platform/text.h"
#include "support/testenvironment.h"

using namespace text;

class TextHelpersTest : public QObject {
    Q_OBJECT
private slots:
    // Count texts, the size field and the preference file are read with Val.
    void valReadsTheLeadingNumberOnly() {
        const QList<std::pair<QString, double>> cases = {
            {"3 images", 3}, {"12.7", 12.7},   {"", 0},     {"-4x", -4}, {"Empty list", 0},
            {"  720", 720},  {"\t0012", 12},   {".5", 0.5}, {"1.", 1},   {"-", 0},
            {".", 0},        {"2e3 px", 2000}, {"2e", 2},   {"1,5", 1},  {"٣", 0}};
        for (const auto& [text, value] : cases) QVERIFY2(Val(text) == value, qPrintable(text));
    }

    void realsBecomeIntegersTowardZeroAndWithinRange() {
        constexpr int kMax = std::numeric_limits<int>::max();
        constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
        const QList<std::pair<double, int>> cases = {
            {12.7, 12}, {-12.7, -12}, {480.15, 480}, {1e300, kMax}, {kNaN, 0}, {-1e300, -kMax - 1}};
        for (const auto& [value, integer] : cases) QCOMPARE(truncateToInt(value), integer);
    }

    // Fields count from 1; separators of more than one character never overlap.
    void fieldsCountFromOne() {
        struct Case {
            QString text, separator;
            int count, index;
            QString field;
        };
        // clang-format off
        const QList<Case> cases = {
            {"720,80,PNG", ",", 3, 1, "720"},   {"720,80,PNG", ",", 3, 3, "PNG"},
            {"720,80,PNG", ",", 3, 4, ""},      {"720,80,PNG", ",", 3, 0, ""},
            {"a,,b", ",", 3, 2, ""},            {"", ",", 0, 1, ""},
            {"a.2019.b.png", ".", 4, 4, "png"}, {"photo", ".", 1, 1, "photo"},
            {"name.", ".", 2, 2, ""},           {"aaaa", "aa", 3, 3, ""},
            {"aaa", "aa", 2, 2, "a"}};
        // clang-format on
        for (const Case& c : cases) {
            QCOMPARE(CountFields(c.text, c.separator), c.count);
            QCOMPARE(NthField(c.text, c.separator, c.index), c.field);
        }
    }
};

VELMORA_TEST_MAIN(TextHelpersTest)
#include "tst_text.moc"
