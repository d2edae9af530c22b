#pragma once

#include <QByteArray>
#include <QString>

// How what the user typed and the names of the files get into the page and back out of it.
namespace pageText {

// A text for the page's content: `&`, `<` and `>` become character references, so that the page
// shows what was typed and nothing typed can change the page's structure.
QString escaped(const QString& text);
// The same for a quoted attribute's value: both quotes become character references as well.
QString escapedAttribute(const QString& text);
// `text` with each line break a blank, so that a field written into the page stays on its line.
QString oneLine(QString text);
// The text a browser shows for page content: character references (named ones for the characters
// above and quotes, decimal and hexadecimal ones) become their characters again.
QString unescaped(QStringView html);
// A title or caption read back for a one-line field: unescaped, and a line break that a character
// reference brings in (a page edited by hand) becomes a blank, as written again it would split
// the line.
QString unescapedLine(QStringView html);

// A file name as a relative address: every character a browser would not read back as the same
// name is percent-encoded as UTF-8, and a byte the name keeps because it is not UTF-8 (see
// nativeName) as that byte; letters of every script, inner blanks and ordinary punctuation stay
// as they are.
QString addressOfFileName(const QString& name);
// The file name, or its bytes, that an address written by addressOfFileName stands for; a
// name that is not UTF-8 comes back with its bytes kept, as intake lists it.
QString fileNameOfAddress(const QString& address);
QByteArray fileBytesOfAddress(const QString& address);

}  // namespace pageText
