#include "platform/text.h"

#include <cmath>
#include <limits>

namespace text {

double leadingNumber(const QString& text) {
    const qsizetype length = text.size();
    qsizetype i = 0;
    while (i < length && (text[i] == u' ' || text[i] == u'\t')) ++i;

    const qsizetype start = i;
    if (i < length && (text[i] == u'+' || text[i] == u'-')) ++i;
    const qsizetype digitsStart = i;
    while (i < length && text[i].isDigit() && text[i].unicode() < 128) ++i;
    if (i < length && text[i] == u'.') {
        ++i;
        while (i < length && text[i].isDigit() && text[i].unicode() < 128) ++i;
    }
    // A sign or a dot alone is no number.
    const QString mantissa = text.mid(digitsStart, i - digitsStart);
    if (mantissa.isEmpty() || mantissa == u".") return 0.0;

    // An exponent counts only when digits follow it: "2e" is 2, "2e3" is 2000.
    if (i < length && (text[i] == u'e' || text[i] == u'E')) {
        qsizetype j = i + 1;
        if (j < length && (text[j] == u'+' || text[j] == u'-')) ++j;
        if (j < length && text[j].isDigit() && text[j].unicode() < 128) {
            while (j < length && text[j].isDigit() && text[j].unicode() < 128) ++j;
            i = j;
        }
    }
    bool ok = false;
    const double value = text.mid(start, i - start).toDouble(&ok);
    return ok ? value : 0.0;
}

int truncateToInt(double value) {
    if (std::isnan(value)) return 0;
    const double truncated = std::trunc(value);
    if (truncated >= static_cast<double>(std::numeric_limits<int>::max()))
        return std::numeric_limits<int>::max();
    if (truncated <= static_cast<double>(std::numeric_limits<int>::min()))
        return std::numeric_limits<int>::min();
    return static_cast<int>(truncated);
}

namespace {
// Where the field `index` (from 1) starts, walking the separators one by one rather than splitting
// the whole text, so that a line of millions of separators costs no more than its length. -1 when
// the text has fewer fields. Separators never overlap: "aaa" at "aa" is "" and "a".
qsizetype fieldStart(const QString& text, const QString& separator, int index) {
    qsizetype start = 0;
    for (int field = 1; field < index; ++field) {
        const qsizetype next = text.indexOf(separator, start);
        if (next < 0) return -1;
        start = next + separator.size();
    }
    return start;
}
}  // namespace

QString fieldAt(const QString& text, const QString& separator, int index) {
    if (index < 1 || text.isEmpty()) return {};
    if (separator.isEmpty()) return index == 1 ? text : QString();
    const qsizetype start = fieldStart(text, separator, index);
    if (start < 0) return {};
    const qsizetype end = text.indexOf(separator, start);
    return text.mid(start, end < 0 ? -1 : end - start);
}

int fieldCount(const QString& text, const QString& separator) {
    if (text.isEmpty()) return 0;
    if (separator.isEmpty()) return 1;
    int fields = 1;
    for (qsizetype at = text.indexOf(separator); at >= 0;
         at = text.indexOf(separator, at + separator.size()))
        ++fields;
    return fields;
}

}  // namespace text
