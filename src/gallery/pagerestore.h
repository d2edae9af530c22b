#pragma once

#include <QList>
#include <QStringList>

#include "catalogue/imagecatalogue.h"
#include "page/galleryreader.h"

// Gives the rows of a freshly walked folder the order and captions of the page written for it:
// the rows the page names come first, in the page's order and with its captions; the others
// follow in the order they stand. A page's name finds its row also in another Unicode form, and the
// row keeps the name as it is on disk. Returns the names of the page's images that no row holds.
QStringList arrangeAsPage(ImageCatalogue& catalogue, const QList<PageSlide>& slides);
