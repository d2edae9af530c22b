#pragma once

#include <QString>

// One image of the catalogue. Every field is text and has a fixed cell number: the caption is
// cell 7, and cell 6 holds nothing.
struct CatalogueRow {
    QString pictureName;   // cell 0: what the list shows
    QString originalName;  // cell 1: the file name on disk, extension included
    QString imagePath;     // cell 2: the native path at intake
    QString imageType;     // cell 3
    QString imageWidth;    // cell 4: pixels, as decimal text
    QString imageHeight;   // cell 5
    QString caption;       // cell 7: never shown in the list

    static constexpr int kCaptionCell = 7;

    QString cell(int column) const;
    void setCell(int column, const QString& text);

    bool operator==(const CatalogueRow&) const = default;
};
