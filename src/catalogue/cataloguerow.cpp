#include "catalogue/cataloguerow.h"

QString CatalogueRow::cell(int column) const {
    switch (column) {
        case 0:
            return pictureName;
        case 1:
            return originalName;
        case 2:
            return imagePath;
        case 3:
            return imageType;
        case 4:
            return imageWidth;
        case 5:
            return imageHeight;
        case kCaptionCell:
            return caption;
        default:
            return {};
    }
}

void CatalogueRow::setCell(int column, const QString& text) {
    switch (column) {
        case 0:
            pictureName = text;
            break;
        case 1:
            originalName = text;
            break;
        case 2:
            imagePath = text;
            break;
        case 3:
            imageType = text;
            break;
        case 4:
            imageWidth = text;
            break;
        case 5:
            imageHeight = text;
            break;
        case kCaptionCell:
            caption = text;
            break;
        default:
            break;  // cell 6 and anything past the caption hold nothing
    }
}
