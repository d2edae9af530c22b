#pragma once

#include <QList>

#include "catalogue/cataloguerow.h"
#include "page/gallerysettings.h"

class QIODevice;

// How the page begins, and what tells it from any other page.
inline constexpr char kSelfContainedPageOpening[] =
    "<!doctype html>\n<html lang='en' data-velmora='self-contained'>\n";

// Writes the self-contained gallery page for `rows` to `device` as UTF-8 with LF line ends: one
// file whose style and script are inside it, so that it asks for nothing but the photos beside
// it, from disk or any web host. Every slide is one line of the file. Returns false when the
// device refused a write.
//
// An image without a caption gets its file name without the extension as its alternative text,
// the name the list shows for it.
bool writeSelfContainedPage(QIODevice& device, const GallerySettings& settings,
                            const QList<CatalogueRow>& rows);
