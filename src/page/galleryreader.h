#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <optional>

#include "page/gallerysettings.h"

// One slide of a written page: the image's file name as on disk and its caption as typed.
struct PageSlide {
    QString fileName;
    // A page always gives a caption, if only an empty one. Only kept work leaves it out, for a
    // picture whose caption is its own description, not yet read.
    std::optional<QString> caption;

    bool operator==(const PageSlide&) const = default;
};

// What a written page holds of a gallery. The settings' folder and file name are not in the
// page: they are where the page lies.
struct GalleryPage {
    GallerySettings settings;
    QList<PageSlide> slides;

    bool operator==(const GalleryPage&) const = default;
};

// Reads back a page that writeGalleryPage or writeSelfContainedPage wrote, with the names and texts
// decoded again. Anything else, another program's page or a page edited beyond recognition, gives
// nothing.
std::optional<GalleryPage> readGalleryPage(const QByteArray& page);

// A gallery page found on disk, with its path.
struct GalleryPageFile {
    QString path;
    GalleryPage page;
};

// The file at `path` read as a gallery page; nothing when it is none or no .html or .htm file.
std::optional<GalleryPageFile> readGalleryPageFile(const QString& path);
// The most recently written gallery page directly in `folder` (an .html or .htm file).
std::optional<GalleryPageFile> newestGalleryPageIn(const QString& folder);
