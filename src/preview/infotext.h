#pragma once

#include <QSize>
#include <QString>

class QLabel;

// The messages that the preview writes into the main window's info line.
namespace infotext {

// While no image is on show: two lines parted by a carriage return, as the program's messages are.
QString start();
// While an image is on show.
QString ready();
// For an image of `size` pixels, larger than a preview may decode.
QString tooLarge(QSize size);

// Puts `text` into `label`. The program parts the lines of a message with carriage returns, and a
// QLabel breaks lines at "\n" only, so the label holds each as "\n". Each line stays on one row:
// the font narrows when a line is wider than the label.
void show(QLabel* label, const QString& text);

}  // namespace infotext
