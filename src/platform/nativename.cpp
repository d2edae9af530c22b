#include "platform/nativename.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>

namespace nativeName {
namespace {

constexpr char16_t kFirstKept = 0xDC80;
constexpr char16_t kLastKept = 0xDCFF;

// The length of the well-formed UTF-8 sequence at the start of `s`, or 0 where the bytes form
// none: no overlong form, no surrogate, nothing past U+10FFFF.
int sequenceLength(const unsigned char* s, qsizetype left) {
    const unsigned char lead = s[0];
    if (lead < 0x80) return 1;
    int length = 0;
    unsigned char low = 0x80;
    unsigned char high = 0xBF;
    if (lead >= 0xC2 && lead <= 0xDF) {
        length = 2;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        length = 3;
        if (lead == 0xE0) low = 0xA0;
        if (lead == 0xED) high = 0x9F;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        length = 4;
        if (lead == 0xF0) low = 0x90;
        if (lead == 0xF4) high = 0x8F;
    } else {
        return 0;
    }
    if (left < length || s[1] < low || s[1] > high) return 0;
    for (int k = 2; k < length; ++k)
        if ((s[k] & 0xC0) != 0x80) return 0;
    return length;
}

// A kept byte, and not the second half of a surrogate pair.
bool isKeptByteAt(const QString& name, qsizetype i) {
    const char16_t unit = name[i].unicode();
    return unit >= kFirstKept && unit <= kLastKept && (i == 0 || !name[i - 1].isHighSurrogate());
}

}  // namespace

QString fromBytes(const QByteArray& bytes) {
    const auto* s = reinterpret_cast<const unsigned char*>(bytes.constData());
    QString name;
    qsizetype run = 0;  // the start of the well-formed bytes not yet decoded
    for (qsizetype i = 0; i < bytes.size();) {
        const int length = sequenceLength(s + i, bytes.size() - i);
        if (length > 0) {
            i += length;
            continue;
        }
        name += QString::fromUtf8(bytes.constData() + run, i - run);
        name += QChar(char16_t(kFirstKept - 0x80 + s[i]));
        run = ++i;
    }
    return name + QString::fromUtf8(bytes.constData() + run, bytes.size() - run);
}

QByteArray toBytes(const QString& name) {
    QByteArray bytes;
    qsizetype run = 0;
    for (qsizetype i = 0; i < name.size(); ++i) {
        if (!isKeptByteAt(name, i)) continue;
        bytes += QStringView(name).sliced(run, i - run).toUtf8();
        bytes += char(name[i].unicode() - kFirstKept + 0x80);
        run = i + 1;
    }
    return bytes + QStringView(name).sliced(run).toUtf8();
}

bool keepsBytes(const QString& name) {
    for (qsizetype i = 0; i < name.size(); ++i)
        if (isKeptByteAt(name, i)) return true;
    return false;
}

QString shown(const QString& name) {
    QString text = name;
    for (qsizetype i = 0; i < text.size(); ++i)
        if (isKeptByteAt(name, i)) text[i] = QChar::ReplacementCharacter;
    return text;
}

namespace {
// The file type of what `path` names after following links; 0 when nothing is there.
mode_t typeOf(const QString& path) {
    struct stat status {};
    return ::stat(toBytes(path).constData(), &status) == 0 ? status.st_mode & S_IFMT : 0;
}
}  // namespace

bool isFile(const QString& path) {
    if (!keepsBytes(path)) return QFileInfo(path).isFile();
    return typeOf(path) == S_IFREG;
}

bool isFolder(const QString& path) {
    if (!keepsBytes(path)) return QFileInfo(path).isDir();
    return typeOf(path) == S_IFDIR;
}

QStringList fromArguments(int argc, char** argv) {
    QStringList arguments;
    for (int i = 0; i < argc; ++i) arguments << fromBytes(QByteArray(argv[i]));
    return arguments;
}

bool openForReading(QFile& file, const QString& path) {
    if (!keepsBytes(path)) {
        file.setFileName(path);
        return file.open(QIODevice::ReadOnly);
    }
    // Not blocking: a pipe that took the place of the file since it was looked at gives no data
    // rather than a wait for a writer.
    const int fd = ::open(toBytes(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (fd < 0) return false;
    if (file.open(fd, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle)) return true;
    ::close(fd);
    return false;
}

}  // namespace nativeName
