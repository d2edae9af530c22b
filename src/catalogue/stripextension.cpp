#include "catalogue/stripextension.h"

#include <QStringList>

#include "platform/text.h"

namespace {
// Each known extension once in lower and once in upper case, as the list was always kept; AVIF,
// which browsers show as they show the others, came later.
const QStringList kKnownExtensions = {"jpg",  "jpeg", "tif",  "tiff", "pct", "psd", "gif",  "png",
                                      "bmp",  "jpf",  "jps",  "pdf",  "pbm", "tga", "avif", "JPG",
                                      "JPEG", "TIF",  "TIFF", "PCT",  "PSD", "GIF", "PNG",  "BMP",
                                      "JPF",  "JPS",  "PDF",  "PBM",  "TGA", "AVIF"};
}  // namespace

QString stripExtension(const QString& name) {
    const int fields = text::fieldCount(name, QStringLiteral("."));
    if (fields <= 1) return name;
    const QString ext = text::fieldAt(name, QStringLiteral("."), fields);
    // The search folds case, so "photo.Jpg" loses its extension like "photo.jpg".
    if (!kKnownExtensions.contains(ext, Qt::CaseInsensitive)) return name;
    return name.left(name.lastIndexOf(u'.'));
}
