#include "catalogue/imagetypes.h"

#include <QStringList>
#include <array>

namespace {

struct ImageType {
    const char* name;
    const char* extensions;  // joined by ";"
};

// In the order the names are looked for: where two types list one extension (".png", ".tif"),
// the first one names it.
constexpr std::array<ImageType, 18> kTypes = {{
    {"application/pdf", ".pdf"},
    {"image/jpeg", ".jfif;.jpe;.jpeg;.jpg"},
    {"image/png", ".png"},
    {"image/gif", ".gif"},
    {"image/tiff", ".jfx;.tif;.tiff"},
    {"image/x-bmp", ".bmp;.dib"},
    {"image/x-macpict", ".pict"},
    {"image/x-pict", ".mac;.pict;.pic;.pct"},
    {"image/x-quicktime", ".qtif;.qti"},
    {"image/x-rgb", ".rgb;.rgba"},
    {"image/x-sgi", ".sgi;.rgb"},
    {"image/x-targa", ".targa;.tga"},
    {"image/pbm", ".pbm"},
    {"image/jpg-stereo", ".jps"},
    {"image/psd", "psd"},
    {"image/pict", ".pict;.pic;.pct"},
    {"image/jpeg2000", ".jp2;.jpf"},
    {"image/avif", ".avif"},
}};

}  // namespace

QString imageTypeOfExtension(const QString& extension) {
    const QString wanted = extension.startsWith(u'.') ? extension.mid(1) : extension;
    if (wanted.isEmpty()) return {};
    for (const ImageType& type : kTypes) {
        for (QString listed :
             QString::fromLatin1(type.extensions).split(u';', Qt::SkipEmptyParts)) {
            if (listed.startsWith(u'.')) listed.remove(0, 1);
            if (listed.compare(wanted, Qt::CaseInsensitive) == 0)
                return QString::fromLatin1(type.name);
        }
    }
    return {};
}

bool browsersShow(const QString& format) {
    static const QStringList kUnshown = {
        QStringLiteral("tiff"), QStringLiteral("ppm"), QStringLiteral("pgm"), QStringLiteral("pbm"),
        QStringLiteral("tga"),  QStringLiteral("xbm"), QStringLiteral("xpm")};
    return !kUnshown.contains(format, Qt::CaseInsensitive);
}
