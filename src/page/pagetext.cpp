#include "page/pagetext.h"

#include <QByteArray>
#include <QChar>
#include <QList>
#include <string_view>

namespace pageText {
namespace {

// Characters that end or change the meaning of an address inside a quoted attribute: the quotes
// and the character references themselves, a fragment or query start, an escape, a scheme's colon
// and the backslash that browsers take for a slash.
bool changesTheAddress(unsigned char c) {
    static constexpr std::string_view kSpecial = "%#?'\"&<>\\:";
    return c < 0x20 || c == 0x7F || kSpecial.find(static_cast<char>(c)) != std::string_view::npos;
}

// The length of the well-formed UTF-8 sequence of a character other than a control that starts
// at `at`, or 0 where the bytes form none.
int printableSequenceAt(const QByteArray& bytes, qsizetype at) {
    const auto lead = static_cast<unsigned char>(bytes[at]);
    const int length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC0 ? 2 : 0;
    if (length == 0 || at + length > bytes.size()) return 0;
    const QString decoded = QString::fromUtf8(bytes.mid(at, length));
    const bool wellFormed = decoded.toUtf8() == bytes.mid(at, length);
    return wellFormed && QChar::category(decoded.toUcs4().value(0)) != QChar::Other_Control ? length
                                                                                            : 0;
}

// A numeric reference's code point, or 0 when it names none.
char32_t numericReference(QStringView digits) {
    bool ok = false;
    const bool hex = digits.startsWith(u'x') || digits.startsWith(u'X');
    const uint value = (hex ? digits.mid(1) : digits).toUInt(&ok, hex ? 16 : 10);
    return ok && value > 0 && value <= 0x10FFFF && (value < 0xD800 || value > 0xDFFF) ? value : 0;
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

QString unescaped(const QString& html) {
    QString out;
    out.reserve(html.size());
    for (qsizetype i = 0; i < html.size(); ++i) {
        const qsizetype end = html[i] == u'&' ? html.indexOf(u';', i + 1) : -1;
        if (end > i + 1 && end - i <= 10) {
            const QStringView name = QStringView(html).sliced(i + 1, end - i - 1);
            char32_t c = 0;
            if (name == u"amp")
                c = '&';
            else if (name == u"lt")
                c = '<';
            else if (name == u"gt")
                c = '>';
            else if (name == u"quot")
                c = '"';
            else if (name == u"apos")
                c = '\'';
            else if (name.startsWith(u'#'))
                c = numericReference(name.mid(1));
            if (c != 0) {
                out += QString::fromUcs4(&c, 1);
                i = end;
                continue;
            }
        }
        out += html[i];
    }
    return out;
}

QString addressOfFileName(const QString& name) {
    return addressOfFileBytes(name.toUtf8());
}

QString addressOfFileBytes(const QByteArray& name) {
    QByteArray out;
    out.reserve(name.size());
    for (qsizetype i = 0; i < name.size();) {
        const auto c = static_cast<unsigned char>(name[i]);
        // Browsers drop blanks at either end of an address.
        const bool blankAtAnEnd = c == ' ' && (i == 0 || i == name.size() - 1);
        const int sequence = c < 0x80 ? 0 : printableSequenceAt(name, i);
        if (sequence > 0) {
            out += name.mid(i, sequence);
            i += sequence;
            continue;
        }
        if (c >= 0x80 || blankAtAnEnd || changesTheAddress(c))
            out += '%' + QByteArray::number(c, 16).toUpper().rightJustified(2, '0');
        else
            out += static_cast<char>(c);
        ++i;
    }
    return QString::fromUtf8(out);
}

QByteArray fileBytesOfAddress(const QString& address) {
    return QByteArray::fromPercentEncoding(address.toUtf8());
}

QString fileNameOfAddress(const QString& address) {
    return QString::fromUtf8(fileBytesOfAddress(address));
}

}  // namespace pageText
