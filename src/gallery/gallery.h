#pragma once

#include <QObject>
#include <QString>

#include "catalogue/imagecatalogue.h"
#include "page/gallerysettings.h"
#include "page/gallerywriter.h"

class GalleryQuestions;
struct GalleryPageFile;

// One gallery in the making: its images in order with their captions, the settings of its page
// and its folder. It does what the user can do to a gallery and says by its signals what changed;
// the windows show it and hand it the user's edits.
class Gallery : public QObject {
    Q_OBJECT
public:
    explicit Gallery(QObject* parent = nullptr);

    ImageCatalogue& images() { return images_; }
    const ImageCatalogue& images() const { return images_; }
    // The settings of its page; a new gallery has those every start begins with.
    const GallerySettings& settings() const { return settings_; }
    // The settings as the user edited them.
    void setSettings(const GallerySettings& settings) { settings_ = settings; }
    // Who answers the gallery's questions; without anyone, each is answered No.
    void setQuestions(GalleryQuestions* questions) { questions_ = questions; }

    // The road of every folder the user hands over. Handed to an empty list, a folder that holds
    // a gallery page is offered to be reopened as that page left it; a gallery page handed over
    // itself reopens its folder without a question. Rows already listed are another gallery in
    // the making: a folder then only adds to them.
    void openFolder(const QString& item);
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

    // Writes the page into the gallery's folder, asking before another's web page is replaced.
    PageWriteResult writePage(const FileFactory& makeFile = {});

signals:
    // The gallery changed its own settings: a folder was opened or a page restored.
    void settingsChanged();
    // After each item of a walked folder and after rows were taken out: the list was brought up
    // to date.
    void listUpdated();
    // The walk of a folder begins and ends.
    void intakeStarted();
    void intakeFinished();
    // The list was emptied.
    void cleared();

private:
    void reopen(const GalleryPageFile& page);

    ImageCatalogue images_;
    GallerySettings settings_;
    GalleryQuestions* questions_ = nullptr;
};
