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
};
