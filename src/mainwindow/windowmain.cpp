#include "mainwindow/windowmain.h"

WindowMain::WindowMain(QWidget* parent) : QMainWindow(parent) {}
void WindowMain::Event_Open() {}
GallerySettings WindowMain::gallerySettings() const {
    return {};
}
QString WindowMain::countText() const {
    return catalogue_.countText();
}
ImageCanvas* WindowMain::imageCanvas() const { return nullptr; }
