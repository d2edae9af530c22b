#include "catalogue/cataloguerow.h"

QString CatalogueRow::cell(int column) const {
    switch (column) {
        case ListName:
            return pictureName;
        case FileName:
            return originalName;
        case Path:
            return imagePath;
        case Type:
            return imageType;
        case Width:
            return imageWidth;
        case Height:
            return imageHeight;
        case Caption:
            return caption;
        case Format:
            return format;
        default:
            return {};
    }
}

void CatalogueRow::setCell(int column, const QString& text) {
    switch (column) {
        case ListName:
            pictureName = text;
            break;
        case FileName:
            originalName = text;
            break;
        case Path:
            imagePath = text;
            break;
        case Type:
            imageType = text;
            break;
        case Width:
            imageWidth = text;
            break;
        case Height:
            imageHeight = text;
            break;
        case Caption:
            caption = text;
            captionInFile = false;
            break;
        case Format:
            format = text;
            break;
        default:
            break;  // no other column holds anything
    }
}
