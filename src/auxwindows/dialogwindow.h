#pragma once

#include <QDialog>

// The base of the program's dialog windows. They end by closing, which deletes them, so that
// the next opening builds a fresh window; Escape therefore closes the window as its close box
// does, where a plain QDialog would only hide it and come back as it was left.
class DialogWindow : public QDialog {
    Q_OBJECT
public:
    explicit DialogWindow(QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    // What Escape does: close the window, unless the window has a button for that key.
    virtual void escapePressed();
};

// A dialog window shown as a sheet: window-modal over its parent, a real sheet on macOS.
class SheetWindow : public DialogWindow {
    Q_OBJECT
public:
    using DialogWindow::DialogWindow;

    // Over the window it was last shown within, if any.
    void showAsSheet();
    // Over `parent`.
    void showAsSheetOver(QWidget* parent);
};
