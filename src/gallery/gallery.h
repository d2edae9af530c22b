#pragma once

#include <QObject>
#include <QSet>
#include <QString>
#include <memory>

#include "catalogue/imagecatalogue.h"
#include "gallery/keptwork.h"
#include "page/gallerysettings.h"
#include "page/gallerywriter.h"

class GalleryQuestions;

// One gallery in the making: its images in order with their captions, the settings of its page
// and its folder. It does what the user can do to a gallery and says by its signals what changed;
// the windows show it and hand it the user's edits. Until its page is written, its work is kept
// (see KeptWork) and offered back.
class Gallery : public QObject {
    Q_OBJECT
public:
    // Whether the unwritten work is kept and offered back, as for the window's gallery; a gallery
    // written from the command line neither reads nor changes the work the window kept.
    enum class WorkKeeping { Kept, Untouched };
    explicit Gallery(WorkKeeping keeping = WorkKeeping::Kept, QObject* parent = nullptr);

    ImageCatalogue& images() { return images_; }
    const ImageCatalogue& images() const { return images_; }
    // The settings of its page; a new gallery has those every start begins with.
    const GallerySettings& settings() const { return settings_; }
    // The settings as the user edited them.
    void setSettings(const GallerySettings& settings);
    // Who answers the gallery's questions; without anyone, each is answered No.
    void setQuestions(GalleryQuestions* questions) { questions_ = questions; }

    // The road of every folder the user hands over. Handed to an empty list, a folder whose
    // unwritten work was kept is offered to be brought back as it was left; failing that, a
    // folder that holds a gallery page is offered to be reopened as that page left it, and a
    // gallery page handed over itself reopens its folder without a question. Rows already listed
    // are another gallery in the making: another folder then starts a new gallery, as if handed
    // to an empty list, or adds to them, as the user chooses.
    void openFolder(const QString& item);
    // At the start: offers to bring back the work kept last, and then opens its folder.
    void offerKeptWork();
    // Adds a row for every item directly in `folder` that opens as a picture, then selects the
    // first row and makes `folder` the gallery's folder.
    void addImagesOf(const QString& folder);

    // Brings the selection, the count text and the progress text up to date after the rows
    // changed.
    void updateList();
    // Takes the selected rows out of the list (the files stay where they are).
    void removeSelectedImages();
    // Empties the list.
    void clear();
    // Gives every row its file name without the extension back, after a renaming.
    void restoreOriginalNames();

    // Writes the page into the gallery's folder. First it asks to take out the rows of images
    // elsewhere, which the page could not show, and whether to write pictures that browsers do
    // not show; and before another's web page, or a Velmora page that this gallery neither
    // reopened nor wrote, is replaced. A written page ends the work kept.
    PageWriteResult writePage(const FileFactory& makeFile = {});

signals:
    // The gallery changed its own settings: a folder was opened or a page restored.
    void settingsChanged();
    // After each item of a walked folder, its progress text brought up to date, and after rows
    // were taken out, the whole list.
    void listUpdated();
    // The walk of a folder begins and ends.
    void intakeStarted();
    void intakeFinished();
    // The list was emptied.
    void cleared();

private:
    // The rows' order and captions and the settings, as a page would hold them.
    GalleryPage work() const;
    // Walks `folder` behind the progress window.
    void takeIn(const QString& folder);
    // Whether the user takes the kept work back; declined, it is dropped.
    bool bringBack(const GalleryPage& work);
    // Gives the freshly walked rows the order, captions and settings of a page found at
    // `pagePath`, or of kept work when the path is empty.
    void reopen(const GalleryPage& earlier, const QString& pagePath);
    // The questions before a write; false where the page is not to be written.
    bool takeOutImagesElsewhere();
    bool mayWriteUnshownImages();
    bool mayReplaceVelmoraPage();

    ImageCatalogue images_;
    GallerySettings settings_;
    GalleryQuestions* questions_ = nullptr;
    // Set while the rows and settings change by no edit of the user's.
    bool takingIn_ = false;
    // The pages, by path, that this gallery reopened or wrote.
    QSet<QString> pagesOfThisGallery_;
    // Last, so that it keeps what is waiting while the rows and settings are still there.
    std::unique_ptr<KeptWork> kept_;
};
