#include "platform/dialogs.h"

#include <QApplication>
#include <QColorDialog>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>

#include "platform/specialfolders.h"

namespace {

// Past this many characters without a blank, a run (a path, a long file name) may wrap anywhere.
constexpr qsizetype kLongestUnbrokenRun = 40;

// Messages break their lines with carriage returns; Qt's labels break on line feeds. A label
// wraps at blanks only, so long runs get invisible break opportunities: the box stays as wide as
// a message box, not as the screen.
QString displayText(const QString& message) {
    QString text = message;
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    text.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    QString wrapped;
    wrapped.reserve(text.size());
    qsizetype run = 0;
    for (const QChar c : text) {
        run = c.isSpace() ? 0 : run + 1;
        if (run > kLongestUnbrokenRun && !c.isLowSurrogate()) {
            wrapped += QChar(0x200B);  // zero width space
            run = 1;
        }
        wrapped += c;
    }
    return wrapped;
}

// Names and typed texts stand in messages as they are: nothing in them is markup.
void showAsPlainText(QMessageBox& box) {
    box.setTextFormat(Qt::PlainText);
}

QWidget* dialogParent() {
    return QApplication::activeWindow();
}

Dialogs* installed = nullptr;

}  // namespace

void QtDialogs::message(const QString& text) {
    QMessageBox box(QMessageBox::NoIcon, QString(), displayText(text), QMessageBox::Ok,
                    dialogParent());
    showAsPlainText(box);
    box.exec();
}

bool QtDialogs::askYesOrNo(const QString& question) {
    QMessageBox box(QMessageBox::Question, QString(), displayText(question),
                    QMessageBox::Yes | QMessageBox::No, dialogParent());
    box.setDefaultButton(QMessageBox::Yes);
    showAsPlainText(box);
    return box.exec() == QMessageBox::Yes;
}

bool QtDialogs::askChoice(const QString& question, const QString& accept, const QString& reject) {
    QMessageBox box(QMessageBox::Question, QString(), displayText(question), QMessageBox::NoButton,
                    dialogParent());
    QPushButton* accepting = box.addButton(accept, QMessageBox::AcceptRole);
    box.setEscapeButton(box.addButton(reject, QMessageBox::RejectRole));
    box.setDefaultButton(accepting);
    showAsPlainText(box);
    box.exec();
    return box.clickedButton() == accepting;
}

void QtDialogs::beep() {
    QApplication::beep();
}

bool QtDialogs::pickColour(QColor& colour, const QString& prompt) {
    const QColor picked = QColorDialog::getColor(colour, dialogParent(), prompt);
    if (!picked.isValid()) return false;
    colour = picked;
    return true;
}

QString QtDialogs::chooseFolder() {
    // Galleries are made of pictures: the chooser starts where they usually are.
    return QFileDialog::getExistingDirectory(dialogParent(), QStringLiteral("Open Folder"),
                                             SpecialFolder::Pictures());
}

namespace platform {

Dialogs& dialogs() {
    static QtDialogs real;
    return installed ? *installed : real;
}

void installDialogs(Dialogs* replacement) {
    installed = replacement;
}

}  // namespace platform

namespace platform {

void tell(const QString& text) {
    dialogs().message(text);
}

bool askYesOrNo(const QString& question) {
    return dialogs().askYesOrNo(question);
}

bool askChoice(const QString& question, const QString& accept, const QString& reject) {
    return dialogs().askChoice(question, accept, reject);
}

void beep() {
    dialogs().beep();
}

bool pickColour(QColor& colour, const QString& prompt) {
    return dialogs().pickColour(colour, prompt);
}

QString chooseFolder() {
    return dialogs().chooseFolder();
}

}  // namespace platform
