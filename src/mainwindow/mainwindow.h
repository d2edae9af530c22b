#pragma once

#include <QMainWindow>
#include <memory>

#include "gallery/galleryquestions.h"

class Gallery;
class ImageCanvas;
class MainMenuBar;
class Preferences;
class QMimeData;

namespace Ui {
class MainWindow;
}

// The document window, a view of the gallery: a folder of images is dropped on it, the images
// are listed and previewed, the gallery settings are filled in and the page is written. The
// window has a fixed size; the size controls lie beyond its right edge and work as state only.
// It asks the gallery's questions in dialogs.
class MainWindow : public QMainWindow, public GalleryQuestions {
    Q_OBJECT
public:
    MainWindow(Gallery& gallery, Preferences& preferences, MainMenuBar& menus,
               QWidget* parent = nullptr);
    ~MainWindow() override;

    // Fills the fields that depend on the application's settings; runs once, before showing.
    void fillFromPreferences();

    ImageCanvas* imageCanvas() const;

    // Hands a drop to the gallery: only the first dragged item counts, when it is a local file or
    // folder.
    void takeDrop(const QMimeData* dragged);
    // Writes the page and opens it in the browser, or says why it could not be written.
    void writePage();

    // GalleryQuestions
    bool restorePage(const QString& pageFileName) override;
    bool replaceOtherPage(const QString& pageFileName) override;
    void imagesMissing(const QStringList& fileNames) override;
    bool startNewGallery(const QString& folder) override;
    bool bringBackWork(const QString& folder, int images, int captions) override;
    bool takeOutImagesElsewhere(const QStringList& paths) override;
    bool writeUnshownImages(const QStringList& fileNames) override;
    bool replaceVelmoraPage(const QString& pageFileName) override;

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void showSelectedImage();
    void storeCaption(const QString& text);
    void clearList();
    void removeSelectedImages();
    void writePageIfListed();
    void showHelp();
    void enableMenuItems();

private:
    void applyDesignFonts();
    void setUpList();
    void fillColourPopups();
    void connectHandlers();
    void connectSettingFields();
    void installMenus();
    void rememberControlAreaSize();
    void showStartTextWithoutImage();
    // The settings fields to the gallery, and back when the gallery changed them.
    void storeSettings();
    void showSettings();
    void showListProgress();
    // Down and Up in the caption field: the next or the previous row, the typing going on.
    bool stepThroughCaptions(QObject* watched, QEvent* event);

    Gallery& gallery_;
    Preferences& preferences_;
    MainMenuBar& menus_;
    std::unique_ptr<Ui::MainWindow> ui_;
    // Set while the fields show the gallery's settings, which are then not stored back.
    bool showingSettings_ = false;
    // A folder is being walked: each new row is selected in turn, and only the row selected at
    // the end is shown, so that no caption is read from its file on the way.
    bool walking_ = false;
};
