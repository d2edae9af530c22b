#pragma once

#include <QList>
#include <QString>

#include "catalogue/cataloguerow.h"
#include "page/gallerysettings.h"

// What stands where the page is to be written. Velmora writes its page and nothing else: never
// outside the gallery's folder, never through a link, never over a picture or a listed file, and
// over another's web page only when the user agrees.
struct PageTarget {
    enum class Kind {
        Free,       // nothing of that name yet
        OwnPage,    // a page Velmora wrote (its carousel is there): replaced without a question
        OtherPage,  // someone else's web page: replaced only when the user agrees
        Refused,    // never written
    };
    Kind kind = Kind::Refused;
    QString refusal;  // why, in the user's words, for a refused target
};

PageTarget examinePageTarget(const GallerySettings& settings, const QList<CatalogueRow>& rows);
