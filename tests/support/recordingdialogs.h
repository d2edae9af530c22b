#pragma once

#include <QColor>
#include <QQueue>
#include <QStringList>
#include <optional>

#include "platform/dialogs.h"

// Stands in for the user at every dialog: records what was shown and answers from queues.
class RecordingDialogs final : public Dialogs {
public:
    void message(const QString& text) override { messages.append(text); }
    bool askYesOrNo(const QString& question) override {
        questions.append(question);
        return !answers.isEmpty() && answers.dequeue();
    }
    bool askChoice(const QString& question, const QString&, const QString&) override {
        return askYesOrNo(question);
    }
    void beep() override { ++beeps; }
    bool pickColour(QColor& colour, const QString& prompt) override {
        colourPickerStarts.append(colour);
        colourPrompts.append(prompt);
        const std::optional<QColor> taken = colours.isEmpty() ? std::nullopt : colours.dequeue();
        colour = taken.value_or(colour);
        return taken.has_value();
    }
    QString chooseFolder() override { return folders.isEmpty() ? QString() : folders.dequeue(); }
    void clear() { *this = RecordingDialogs(); }

    QStringList messages;
    QStringList questions;
    int beeps = 0;
    QList<QColor> colourPickerStarts;
    QStringList colourPrompts;

    // Answers to questions in order, true for Yes; No when the queue is empty.
    QQueue<bool> answers;
    // Colours the user takes in order; an empty entry, or an empty queue, cancels the picker.
    QQueue<std::optional<QColor>> colours;
    // Folders the user chooses in order; an empty queue cancels the chooser.
    QQueue<QString> folders;
};
