#pragma once

#include <QBuffer>

#include "page/galleryreader.h"
#include "page/gallerywriter.h"

// The page written for a gallery's settings and slides, one row per slide.
inline QByteArray pageBytes(const GalleryPage& page) {
    QList<CatalogueRow> rows;
    for (const auto& [name, caption] : page.slides)
        rows.append({{}, name, {}, {}, {}, {}, caption});
    QBuffer written;
    written.open(QIODevice::WriteOnly);
    writeGalleryPage(written, page.settings, QString::number(rows.size()), rows);
    return written.data();
}
