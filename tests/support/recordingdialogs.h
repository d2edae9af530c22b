#pragma once

#include <QColor>
#include <QQueue>
#include <QStringList>
#include <optional>

#include "platform/dialogs.h"

// Stands in for the user at every dialog: records what was shown and answers from queues.
class RecordingDialogs final : public Dialogs {
public:
    struct Question {
        QString text;
        int buttons;
        QString title;
    };

    void message(const QString& text) override;
    int ask(const QString& text, int buttons, const QString& title) override;
    void beep() override;
    bool pickColour(QColor& colour, const QString& prompt) override;
    QString chooseFolder() override;

    void clear();

    QStringList messages;
    QList<Question> questions;
    int beeps = 0;
    QList<QColor> colourPickerStarts;
    QStringList colourPrompts;

    // Answers to questions in order; No when the queue is empty.
    QQueue<int> answers;
    // Colours the user takes in order; an empty entry, or an empty queue, cancels the picker.
    QQueue<std::optional<QColor>> colours;
    // Folders the user chooses in order; an empty queue cancels the chooser.
    QQueue<QString> folders;
    int folderChoosers = 0;
};
