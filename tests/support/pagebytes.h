#pragma once

#include "page/galleryreader.h"
#include "page/gallerywriter.h"

// The list's rows for a gallery's slides, one row per slide.
inline QList<CatalogueRow> rowsOf(const GalleryPage& page) {
    QList<CatalogueRow> rows;
    for (const auto& [name, caption] : page.slides)
        rows.append({{}, name, {}, {}, {}, {}, caption.value_or(QString()), {}});
    return rows;
}

// The page written for a gallery's settings and slides.
inline QByteArray pageBytes(const GalleryPage& page) {
    return galleryPage(page.settings, QString::number(page.slides.size()), rowsOf(page));
}
