#include "auxwindows/dialogwindow.h"

#include <QKeyEvent>

DialogWindow::DialogWindow(QWidget* parent) : QDialog(parent) {
    setAttribute(Qt::WA_DeleteOnClose);
}

void DialogWindow::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Cancel)) {
        escapePressed();
        return;
    }
    QDialog::keyPressEvent(event);
}

void DialogWindow::escapePressed() {
    close();
}

void SheetWindow::showAsSheet() {
    showAsSheetOver(nullptr);
}

void SheetWindow::showAsSheetOver(QWidget* parent) {
    if (parent && parent != parentWidget()) {
        Qt::WindowFlags flags = windowFlags();
#ifdef Q_OS_MACOS
        flags = (flags & ~Qt::WindowType_Mask) | Qt::Sheet;
#endif
        setParent(parent, flags);
    }
    setWindowModality(Qt::WindowModal);
    show();
    raise();
    activateWindow();
}
