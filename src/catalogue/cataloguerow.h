#pragma once

#include <QString>

// One image of the catalogue. Every field is text and is also reached by its column; the list
// shows the first six, and the caption is never shown in it.
struct CatalogueRow {
    QString pictureName;   // what the list shows
    QString originalName;  // the file name on disk, extension included
    QString imagePath;     // the native path at intake
    QString imageType;
    QString imageWidth;  // pixels, as decimal text
    QString imageHeight;
    QString caption;  // never shown in the list
    QString format;   // as the picture's reader named it from the content: "jpeg", "tiff"
    // The caption is still to be read from the picture's own description (see ImageCatalogue).
    bool captionInFile = false;

    enum Column { ListName, FileName, Path, Type, Width, Height, Caption = 7, Format };

    QString cell(int column) const;
    void setCell(int column, const QString& text);

    bool operator==(const CatalogueRow&) const = default;
};
