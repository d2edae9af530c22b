#pragma once

#include <QString>

// Text helpers with the semantics the rest of the program was written against: numbers travel
// as text in controls and are read back with Val, and fields are counted from 1.
namespace text {

// The leading number of a text as a real number; 0 when the text starts with no number.
// Leading blanks are skipped, so " 12px" gives 12 and "3 images" gives 3.
double Val(const QString& text);

// A real number turned into an integer: truncated toward zero, pinned to the int range,
// NaN as 0.
int truncateToInt(double value);

// Decimal digits of an integer, without grouping.
QString Str(int value);

// The field `index` (from 1) of `text` split at `separator`; "" when there are fewer fields.
QString NthField(const QString& text, const QString& separator, int index);

// The number of fields of `text` split at `separator`: 0 for the empty text, 1 for a text
// without the separator.
int CountFields(const QString& text, const QString& separator);

// The character of the given code point: Chr(9) a TAB, Chr(13) a carriage return; U+FFFD for
// a number that is no code point.
QString Chr(int code);

// The line ending of text files written by the program.
inline const QString EndOfLine = QStringLiteral("\n");

}  // namespace text
