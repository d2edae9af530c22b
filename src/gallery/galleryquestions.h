#pragma once

#include <QString>
#include <QStringList>

// What a gallery asks or tells its user while it works; the main window asks in dialogs.
class GalleryQuestions {
public:
    virtual ~GalleryQuestions() = default;

    // Whether to give a freshly opened folder the order, captions and settings of the gallery
    // page `pageFileName` found in it.
    virtual bool restorePage(const QString& pageFileName) = 0;
    // Whether to replace `pageFileName`, a web page that Velmora did not write.
    virtual bool replaceOtherPage(const QString& pageFileName) = 0;
    // The images a restored page shows that the folder no longer holds.
    virtual void imagesMissing(const QStringList& fileNames) = 0;
    // Whether `folder`, opened while the list holds another gallery, starts a new gallery (the
    // list is emptied first) rather than adding its images to the list.
    virtual bool startNewGallery(const QString& folder) = 0;
    // Whether to bring back the unwritten work kept for `folder`: its rows' order and captions,
    // and its settings.
    virtual bool bringBackWork(const QString& folder, int images, int captions) = 0;
    // Whether to take `paths`, images outside the page's folder, out of the list and write the
    // page without them; a page never shows an image from elsewhere.
    virtual bool takeOutImagesElsewhere(const QStringList& paths) = 0;
    // Whether to write a page that holds `fileNames`, pictures that web browsers do not show.
    virtual bool writeUnshownImages(const QStringList& fileNames) = 0;
    // Whether to replace `pageFileName`, a Velmora page that this gallery neither reopened nor
    // wrote: another gallery's captions.
    virtual bool replaceVelmoraPage(const QString& pageFileName) = 0;
};
