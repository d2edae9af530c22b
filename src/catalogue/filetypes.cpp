#include "catalogue/filetypes.h"

#include <QStringList>
#include <array>

namespace {

struct Row {
    const char* name;
    const char* extensions;
    const char* macType;
    const char* macCreator;
};

constexpr std::array<Row, 21> kTable = {{
    {"application/pdf", ".pdf", "PDF ", "prvw"},
    {"image/jpeg", ".jfif;.jpe;.jpeg;.jpg", "JPEG", "prvw"},
    {"image/png", ".png", "PNGf", "ogle"},
    {"image/gif", ".gif", "GIFf", "prvw"},
    {"image/tiff", ".jfx;.tif;.tiff", "TIFF", "????"},
    {"image/x-bmp", ".bmp;.dib", "BMPf", "ogle"},
    {"image/x-macpict", ".pict", "PICT", "text"},
    {"image/x-pict", ".mac;.pict;.pic;.pct", "PICT", "????"},
    {"image/x-png", ".png", "PNGf", "ogle"},
    {"image/x-quicktime", ".qtif;.qti", "qtif", "ogle"},
    {"image/x-rgb", ".rgb;.rgba", ".SGI", "prvw"},
    {"image/x-sgi", ".sgi;.rgb", ".SGI", "ogle"},
    {"image/x-targa", ".targa;.tga", "TPIC", "ogle"},
    {"image/x-tiff", ".tif;.tiff", "TIFF", "ogle"},
    {"image/pbm", ".pbm", "PPGM", "GKON"},
    {"special/folder", "", "fold", "MACS"},
    {"special/any", "", "????", "????"},
    {"image/jpg-stereo", ".jps", "", ""},
    {"image/psd", "psd", "8BPS", "8BIM"},
    {"image/pict", ".pict;.pic;.pct", "PICT", "ttxt"},
    {"image/jpeg2000", ".jp2;.jpf", "jp2 ", "ogle"},
}};

// Image types that came after the table above: they name a row's type, but are not announced as
// droppable, since the window takes any file anyway.
constexpr std::array<Row, 1> kLaterImageTypes = {{
    {"image/avif", ".avif", "avif", "????"},
}};

std::array<FileType, 21>& typeSlots() {
    static std::array<FileType, 21> types;
    return types;
}

QList<FileType*>& allTypes() {
    static QList<FileType*> all;
    return all;
}

QStringList& registry() {
    static QStringList names;
    return names;
}

}  // namespace

QString FileType::toText() {
    if (!registered_) {
        registry().append(Name);
        registered_ = true;
    }
    return Name;
}

namespace fileTypes {

void initialise() {
    if (!allTypes().isEmpty()) return;
    for (std::size_t i = 0; i < kTable.size(); ++i) {
        FileType& type = typeSlots()[i];
        type.Name = QString::fromLatin1(kTable[i].name);
        type.Extensions = QString::fromLatin1(kTable[i].extensions);
        type.MacType = QString::fromLatin1(kTable[i].macType);
        type.MacCreator = QString::fromLatin1(kTable[i].macCreator);
        type.MimeType = QString();
        type.Imported = true;
        type.ConformsTo = QString();
        allTypes().append(&type);
        type.toText();
    }
}

FileType& Pdf() {
    return typeSlots()[0];
}
FileType& Jpeg() {
    return typeSlots()[1];
}
FileType& Png() {
    return typeSlots()[2];
}
FileType& ImageGif() {
    return typeSlots()[3];
}
FileType& ImageTiff() {
    return typeSlots()[4];
}
FileType& ImageXBmp() {
    return typeSlots()[5];
}
FileType& ImageXMacpict() {
    return typeSlots()[6];
}
FileType& ImageXPict() {
    return typeSlots()[7];
}
FileType& ImageXPng() {
    return typeSlots()[8];
}
FileType& ImageXQuicktime() {
    return typeSlots()[9];
}
FileType& ImageXRgb() {
    return typeSlots()[10];
}
FileType& ImageXSgi() {
    return typeSlots()[11];
}
FileType& ImageXTarga() {
    return typeSlots()[12];
}
FileType& ImageXTiff() {
    return typeSlots()[13];
}
FileType& ImageXPbm() {
    return typeSlots()[14];
}
FileType& SpecialFolder() {
    return typeSlots()[15];
}
FileType& Any() {
    return typeSlots()[16];
}
FileType& Untitled() {
    return typeSlots()[17];
}
FileType& ImagePsd() {
    return typeSlots()[18];
}
FileType& ImagePict() {
    return typeSlots()[19];
}
FileType& ImageJpeg2000() {
    return typeSlots()[20];
}

const QList<FileType*>& pAllFileTypes() {
    return allTypes();
}

QString All() {
    return QStringLiteral(
        "application/pdf;image/jpeg;image/png;image/gif;image/tiff;image/x-bmp;image/x-macpict;"
        "image/x-pict;image/x-png;image/x-quicktime;image/x-rgb;image/x-sgi;image/x-targa;"
        "image/x-tiff;image/pbm;special/folder;special/any;image/jpg-stereo;image/psd;"
        "image/pict;image/jpeg2000");
}

const QStringList& registeredNames() {
    return registry();
}

QString typeOfExtension(const QString& extension) {
    QString wanted = extension;
    if (wanted.startsWith(u'.')) wanted.remove(0, 1);
    if (wanted.isEmpty()) return {};
    const auto names = [&wanted](const Row& row) {
        for (QString listed : QString::fromLatin1(row.extensions).split(u';', Qt::SkipEmptyParts)) {
            if (listed.startsWith(u'.')) listed.remove(0, 1);
            if (listed.compare(wanted, Qt::CaseInsensitive) == 0) return true;
        }
        return false;
    };
    for (const Row& row : kTable)
        if (names(row)) return QString::fromLatin1(row.name);
    for (const Row& row : kLaterImageTypes)
        if (names(row)) return QString::fromLatin1(row.name);
    return {};
}

}  // namespace fileTypes
