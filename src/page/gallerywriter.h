#pragma once

#include <QList>
#include <QString>
#include <functional>

#include "catalogue/cataloguerow.h"
#include "page/gallerysettings.h"
#include "platform/replacefile.h"

class QIODevice;

// Writes the gallery page for `rows` to `device` as UTF-8 with LF line ends. The number of
// slides is the leading number of `countText`, as the list's count label shows it. Titles and
// captions go in as text, file names as addresses (see pageText). Returns false when the device
// refused a write.
bool writeGalleryPage(QIODevice& device, const GallerySettings& settings, const QString& countText,
                      const QList<CatalogueRow>& rows);

// The page of the kind the settings choose, the self-contained page or the carousel, as bytes.
QByteArray galleryPage(const GallerySettings& settings, const QString& countText,
                       const QList<CatalogueRow>& rows);

// The page's file: the gallery folder followed at once by the file name.
QString galleryPagePath(const GallerySettings& settings);

struct PageWriteResult {
    bool ok = false;
    QString path;
    // Why the page was not written, in the user's words; empty when the user chose not to replace
    // a file.
    QString error;
};

// Asked before someone else's web page of that name is replaced; no question means no.
using ReplaceQuestion = std::function<bool(const QString& fileName)>;

// Writes the page file where examinePageTarget allows it, checked again after any question, and
// atomically (see replaceFile): on any failure an earlier page of that name stays as it was and no
// partial file remains.
PageWriteResult saveGalleryPage(const GallerySettings& settings, const QString& countText,
                                const QList<CatalogueRow>& rows, const FileFactory& makeFile = {},
                                const ReplaceQuestion& mayReplace = {});
