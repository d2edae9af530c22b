#pragma once

#include <QString>

// The rules by which texts are read as numbers and fields: a size typed in a field and the count
// label ("3 images") give their leading number, and fields are counted from 1.
namespace text {

// The leading number of a text as a real number; 0 when the text starts with no number.
// Leading blanks are skipped, so " 12px" gives 12 and "3 images" gives 3.
double leadingNumber(const QString& text);

// A real number turned into an integer: truncated toward zero, pinned to the int range,
// NaN as 0.
int truncateToInt(double value);

// The field `index` (from 1) of `text` split at `separator`; "" when there are fewer fields.
QString fieldAt(const QString& text, const QString& separator, int index);

// The number of fields of `text` split at `separator`: 0 for the empty text, 1 for a text
// without the separator.
int fieldCount(const QString& text, const QString& separator);

}  // namespace text
