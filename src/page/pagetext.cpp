#include "page/pagetext.h"

#include <QByteArray>
#include <QChar>
#include <QList>
#include <algorithm>
#include <string_view>

#include "platform/nativename.h"

namespace pageText {
namespace {

// The longest name of a character reference that the reader looks at ("#x10FFFF" and the like).
constexpr qsizetype kLongestName = 9;

// Characters that end or change the meaning of an address inside a quoted attribute: the quotes
// and the character references themselves, a fragment or query start, an escape, a scheme's colon
// and the backslash that browsers take for a slash.
bool changesTheAddress(unsigned char c) {
    static constexpr std::string_view kSpecial = "%#?'\"&<>\\:";
    return c < 0x20 || c == 0x7F || kSpecial.find(static_cast<char>(c)) != std::string_view::npos;
}

// A numeric reference's code point, or 0 when it names none.
char32_t numericReference(QStringView digits) {
    bool ok = false;
    const bool hex = digits.startsWith(u'x') || digits.startsWith(u'X');
    const uint value = (hex ? digits.mid(1) : digits).toUInt(&ok, hex ? 16 : 10);
    return ok && value > 0 && value <= 0x10FFFF && (value < 0xD800 || value > 0xDFFF) ? value : 0;
}

// The character a reference of that name stands for, or 0 when it names none.
char32_t referencedCharacter(QStringView name) {
    if (name == u"amp") return '&';
    if (name == u"lt") return '<';
    if (name == u"gt") return '>';
    if (name == u"quot") return '"';
    if (name == u"apos") return '\'';
    return name.startsWith(u'#') ? numericReference(name.mid(1)) : 0;
}

}  // namespace

QString escaped(const QString& text) {
    QString out;
    out.reserve(text.size());
    for (const QChar c : text) {
        switch (c.unicode()) {
            case '&':
                out += QLatin1String("&amp;");
                break;
            case '<':
                out += QLatin1String("&lt;");
                break;
            case '>':
                out += QLatin1String("&gt;");
                break;
            default:
                out += c;
        }
    }
    return out;
}

QString escapedAttribute(const QString& text) {
    return escaped(text)
        .replace(u'\'', QLatin1String("&#39;"))
        .replace(u'"', QLatin1String("&quot;"));
}

QString unescaped(QStringView html) {
    const QChar* const text = html.data();
    const qsizetype size = html.size();
    QString out;
    out.reserve(size);
    qsizetype copied = 0;  // the text before this is in `out`
    qsizetype clear = 0;   // no ';' stands between the last '&' and this
    for (qsizetype at = 0; at < size; ++at) {
        if (text[at] != u'&') continue;
        // A reference's name is short, and no character is looked at twice: a long run of '&'
        // reads in linear time.
        const qsizetype last = std::min(size, at + 2 + kLongestName);
        qsizetype end = std::max(at + 1, clear);
        while (end < last && text[end] != u';') ++end;
        clear = end;
        if (end == last || end == at + 1) continue;
        const char32_t c = referencedCharacter(html.sliced(at + 1, end - at - 1));
        if (c == 0) continue;
        out.append(text + copied, at - copied);
        out.append(QStringView(QChar::fromUcs4(c)));
        copied = end + 1;
        at = end;
    }
    out.append(text + copied, size - copied);
    return out;
}

QString oneLine(QString text) {
    for (QChar& c : text)
        if (c == u'\n' || c == u'\r') c = u' ';
    return text;
}

QString unescapedLine(QStringView html) {
    return oneLine(unescaped(html));
}

QString addressOfFileName(const QString& name) {
    QString out;
    out.reserve(name.size());
    for (qsizetype i = 0; i < name.size(); ++i) {
        const QChar c = name[i];
        if (c.isHighSurrogate() && i + 1 < name.size() && name[i + 1].isLowSurrogate()) {
            out += c;
            out += name[++i];
            continue;
        }
        // Browsers drop blanks at either end of an address.
        const bool blankAtAnEnd = c == u' ' && (i == 0 || i == name.size() - 1);
        const bool encode = c.unicode() < 0x80
                                ? blankAtAnEnd || changesTheAddress(c.unicode())
                                : c.isSurrogate() || c.category() == QChar::Other_Control;
        if (!encode) {
            out += c;
            continue;
        }
        // A byte kept from a name that is not UTF-8 goes as that byte, so that the browser asks
        // for exactly the bytes of the name.
        for (const char byte : nativeName::toBytes(QString(c)))
            out += u'%' + QString::number(static_cast<unsigned char>(byte), 16)
                              .toUpper()
                              .rightJustified(2, u'0');
    }
    return out;
}

QByteArray fileBytesOfAddress(const QString& address) {
    return QByteArray::fromPercentEncoding(address.toUtf8());
}

QString fileNameOfAddress(const QString& address) {
    return nativeName::fromBytes(fileBytesOfAddress(address));
}

}  // namespace pageText
