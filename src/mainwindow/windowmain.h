#pragma once

#include <QMainWindow>
#include <memory>

#include "catalogue/imagecatalogue.h"
#include "page/galleryreader.h"
#include "page/gallerysettings.h"
#include "platform/picture.h"

class ImageCanvas;
class QMimeData;

namespace Ui {
class WindowMain;
}

// The document window: a folder of images is dropped on it, the images are listed and
// previewed, the gallery settings are filled in and the page is written. The window has a
// fixed size; the size controls lie beyond its right edge and work as state only.
class WindowMain : public QMainWindow {
    Q_OBJECT
public:
    explicit WindowMain(QWidget* parent = nullptr);
    ~WindowMain() override;

    // Fills the fields that depend on the application's settings; runs once, before showing.
    void Event_Open();

    ImageCatalogue& catalogue() { return catalogue_; }
    GallerySettings gallerySettings() const;
    QString countText() const;
    ImageCanvas* imageCanvas() const;

    // Takes a drop: only the first dragged item counts, when it is a local file or folder.
    void Event_DropObject(const QMimeData* dragged);
    // The road of every folder the user hands over, by a drop or otherwise: the progress
    // window shows while `item` is walked. Handed to an empty list, a folder that holds a
    // gallery page is offered to be reopened as that page left it; a gallery page handed over
    // itself reopens its folder without a question.
    void takeFolder(const QString& item);
    // Adds a row for every item directly in `folder` that opens as a picture, then selects the
    // first row and makes `folder` the gallery's folder.
    void older(const QString& folder);
    // Brings selection, count and progress texts up to date after the rows changed.
    void updateTheList();

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void Listbox1_Change();
    void imgCaption_TextChange(const QString& text);
    void clearBtn_Action();
    void clearBtn1_Action();
    void BevelButton1_Action();
    void BevelButton2_Action();
    void Event_EnableMenuItems();

private:
    void applyDesignFonts();
    void Listbox1_Open();
    void fillColourPopups();
    void connectHandlers();
    void installMenus();
    void Event_Resizing();
    void Event_Resized();
    void reopenGallery(const GalleryPageFile& found);
    void takePageSettings(const GallerySettings& settings);

    std::unique_ptr<Ui::WindowMain> ui_;
    ImageCatalogue catalogue_;
    // The picture of the folder item that intake is taking in, while it does.
    PicturePtr intakePicture_;
};
