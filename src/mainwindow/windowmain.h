#pragma once

#include <QMainWindow>

#include "catalogue/imagecatalogue.h"
#include "page/gallerysettings.h"

// Temporary skeleton of the main window.
class ImageCanvas;

class WindowMain : public QMainWindow {
    Q_OBJECT
public:
    explicit WindowMain(QWidget* parent = nullptr);
    void Event_Open();
    ImageCatalogue& catalogue() { return catalogue_; }
    GallerySettings gallerySettings() const;
    QString countText() const;
    ImageCanvas* imageCanvas() const;

private:
    ImageCatalogue catalogue_;
};
