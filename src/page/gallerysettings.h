#pragma once

#include <QString>

// The settings of a gallery's page, as the user fills them in.
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
    // A page that needs nothing from the internet, instead of the Bootstrap carousel.
    bool selfContained = false;

    bool operator==(const GallerySettings&) const = default;
};
