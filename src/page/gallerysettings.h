#pragma once

#include <QString>

// What the page writer reads from the main window's gallery settings.
struct GallerySettings {
    QString folder;  // the images' folder, ending in "/"
    QString pageFileName;
    QString headTitle;
    QString title;
    QString subtitle;
    QString backgroundColour;
    QString titleColour;
    QString captionColour;
    bool fullWidth = true;

    bool operator==(const GallerySettings&) const = default;
};
