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
    // A modal question with the question icon and the buttons Yes and No, Yes the default;
    // true for Yes.
    virtual bool askYesOrNo(const QString& question) = 0;
    // A modal question whose two buttons say what each answer does: `accept`, the default, and
    // `reject`, which Escape chooses too; true for `accept`.
    virtual bool askChoice(const QString& question, const QString& accept,
                           const QString& reject) = 0;
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
    bool askYesOrNo(const QString& question) override;
    bool askChoice(const QString& question, const QString& accept, const QString& reject) override;
    void beep() override;
    bool pickColour(QColor& colour, const QString& prompt) override;
    QString chooseFolder() override;
};

namespace platform {
// The dialogs in use: the real ones unless a test installed others (nullptr restores them).
Dialogs& dialogs();
void installDialogs(Dialogs* replacement);
}  // namespace platform

namespace platform {
// The dialogs in use, by what they do.
void tell(const QString& text);
bool askYesOrNo(const QString& question);
bool askChoice(const QString& question, const QString& accept, const QString& reject);
void beep();
// Returns whether the user took a colour; `colour` is left alone otherwise.
bool pickColour(QColor& colour, const QString& prompt);
// The folder the user chose, or empty.
QString chooseFolder();
}  // namespace platform
