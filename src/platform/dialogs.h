#pragma once

#include <QColor>
#include <QString>

// Everything that asks or tells the user in a modal way goes through this interface, so that
// tests can answer in the user's place.
class Dialogs {
public:
    virtual ~Dialogs() = default;

    // A modal message with one OK button.
    virtual void message(const QString& text) = 0;
    // A modal question; `buttons` follows the classic codes (36: question icon, Yes and No,
    // Yes the default). Returns 6 for Yes, 7 for No.
    virtual int ask(const QString& text, int buttons, const QString& title) = 0;
    // The system's alert sound.
    virtual void beep() = 0;
    // The colour picker, opened on `colour` with `prompt`. On true `colour` holds the pick.
    virtual bool pickColour(QColor& colour, const QString& prompt) = 0;
    // The platform's folder chooser; the chosen folder's path, or empty when the user cancelled.
    virtual QString chooseFolder() = 0;
};

// The real dialogs, on Qt's message box, beep and colour dialog.
class QtDialogs final : public Dialogs {
public:
    void message(const QString& text) override;
    int ask(const QString& text, int buttons, const QString& title) override;
    void beep() override;
    bool pickColour(QColor& colour, const QString& prompt) override;
    QString chooseFolder() override;
};

namespace platform {
// The dialogs in use: the real ones unless a test installed others (nullptr restores them).
Dialogs& dialogs();
void installDialogs(Dialogs* replacement);
}  // namespace platform

// The answer of a question box when the user agrees.
inline constexpr int kAnswerYes = 6;
inline constexpr int kAnswerNo = 7;

void MsgBox(const QString& text);
int MsgBox(const QString& text, int buttons, const QString& title);
void Beep();
// Returns whether the user took a colour; `colour` is left alone otherwise.
bool SelectColor(QColor& colour, const QString& prompt, bool flag);
// The folder the user chose, or empty.
QString SelectFolder();
