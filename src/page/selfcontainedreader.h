#pragma once

#include <QStringView>
#include <optional>

#include "page/galleryreader.h"

// Reads back a page that writeSelfContainedPage wrote: its settings, and each slide's file name
// and caption decoded again. A page edited beyond recognition gives nothing.
std::optional<GalleryPage> readSelfContainedPage(QStringView page);
