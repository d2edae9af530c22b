#include "platform/dialogs.h"

#include <QApplication>
#include <QColorDialog>
#include <QFileDialog>
#include <QMessageBox>

#include "platform/specialfolders.h"

namespace {

// Messages break their lines with carriage returns; Qt's labels break on line feeds.
QString displayText(QString text) {
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    text.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return text;
}

QWidget* dialogParent() {
    return QApplication::activeWindow();
}

Dialogs* installed = nullptr;

}  // namespace

void QtDialogs::message(const QString& text) {
    QMessageBox box(QMessageBox::NoIcon, QString(), displayText(text), QMessageBox::Ok,
                    dialogParent());
    box.exec();
}

int QtDialogs::ask(const QString& text, int buttons, const QString& title) {
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    switch (buttons & 0xF0) {
        case 16:
            icon = QMessageBox::Critical;
            break;
        case 32:
            icon = QMessageBox::Question;
            break;
        case 48:
            icon = QMessageBox::Warning;
            break;
        case 64:
            icon = QMessageBox::Information;
            break;
        default:
            break;
    }
    QMessageBox box(icon, title, displayText(text), QMessageBox::NoButton, dialogParent());
    if ((buttons & 0x0F) == 4) {
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        box.setDefaultButton(QMessageBox::Yes);
    } else {
        box.setStandardButtons(QMessageBox::Ok);
    }
    switch (box.exec()) {
        case QMessageBox::Yes:
            return kAnswerYes;
        case QMessageBox::No:
            return kAnswerNo;
        default:
            return 1;
    }
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

void MsgBox(const QString& text) {
    platform::dialogs().message(text);
}

int MsgBox(const QString& text, int buttons, const QString& title) {
    return platform::dialogs().ask(text, buttons, title);
}

void Beep() {
    platform::dialogs().beep();
}

bool SelectColor(QColor& colour, const QString& prompt, bool) {
    return platform::dialogs().pickColour(colour, prompt);
}

QString SelectFolder() {
    return platform::dialogs().chooseFolder();
}
