// The text helpers over arbitrary texts, separators and numbers.
#include <QStringList>
#include <cmath>
#include <limits>

#include "fuzzinput.h"
#include "platform/text.h"

using namespace text;

namespace {

// Fields split at a separator and joined with it give the text back, and there are as many
// as fieldCount says: an empty text has none, a text without the separator one.
void fieldsRebuildTheText(const QString& whole, const QString& separator) {
    const int count = fieldCount(whole, separator);
    FUZZ_CHECK(fieldAt(whole, separator, 0).isEmpty());
    FUZZ_CHECK(fieldAt(whole, separator, count + 1).isEmpty());
    if (whole.isEmpty() || separator.isEmpty() || !whole.contains(separator)) {
        FUZZ_CHECK(count == (whole.isEmpty() ? 0 : 1));
        FUZZ_CHECK(fieldAt(whole, separator, 1) == whole);
        return;
    }
    QStringList fields;
    for (int index = 1; index <= count; ++index) {
        fields.append(fieldAt(whole, separator, index));
        FUZZ_CHECK(!fields.last().contains(separator));
    }
    FUZZ_CHECK(fields.join(separator) == whole);
}

// The leading number reads back exactly what QString::number wrote, also behind leading blanks and
// ahead of the words of a count label; and for any text, leading blanks and a trailing word change
// nothing.
void valReadsOnlyTheLead(int number, const QString& anyText) {
    FUZZ_CHECK(truncateToInt(leadingNumber(QString::number(number))) == number);
    FUZZ_CHECK(leadingNumber(" \t " + QString::number(number) + " images") == number);
    const double value = leadingNumber(anyText);
    FUZZ_CHECK(!std::isnan(value) && leadingNumber("  " + anyText) == value);
    FUZZ_CHECK(leadingNumber(anyText + " images") == leadingNumber(anyText + " "));
}

// Truncation goes toward zero, never moves a number by a whole unit or more inside the int
// range, keeps the order of two numbers, and never leaves the int range (or hits undefined
// behaviour on the way for NaN, infinities and huge values).
void truncationStaysInRange(double a, double b) {
    const int ta = truncateToInt(a);
    const int tb = truncateToInt(b);
    if (std::isnan(a)) {
        FUZZ_CHECK(ta == 0);
        return;
    }
    FUZZ_CHECK(std::fabs(static_cast<double>(ta)) <= std::fabs(a));
    FUZZ_CHECK(ta == 0 || (ta < 0) == (a < 0));
    if (a > std::numeric_limits<int>::min() - 1.0 && a < std::numeric_limits<int>::max() + 1.0)
        FUZZ_CHECK(std::fabs(a - ta) < 1.0);
    if (!std::isnan(b) && a <= b) FUZZ_CHECK(ta <= tb);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    const int number = input.wholeInt();
    const double a = input.real();
    const double b = input.real();
    // Mostly the separators the program splits at, or a doubled one, whose runs could be split
    // in more than one way; now and then any text at all.
    const QString separators[] = {",", ".", ".."};
    const std::uint8_t choice = input.byte() % 4;
    const QString separator = choice < 3 ? separators[choice] : input.text();
    const QString whole = input.text();

    fieldsRebuildTheText(whole, separator);
    valReadsOnlyTheLead(number, whole);
    truncationStaysInRange(a, b);
    return 0;
}
