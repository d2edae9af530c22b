#pragma once

#include <QString>

// What the page writer reads from the main window's gallery settings.
struct GallerySettings {
    QString galleryPath;  // the images' folder, ending in "/"
    QString galleryFileName;
    QString galleryHTMLtitle;
    QString galleryTitle;
    QString gallerySubTitle;
    QString bgColor;
    QString textColor;
    QString captionColor;
    bool fullPageWidth = true;

    bool operator==(const GallerySettings&) const = default;
};
