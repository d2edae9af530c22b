#include "support/recordingdialogs.h"

void RecordingDialogs::message(const QString& text) {
    messages.append(text);
}

int RecordingDialogs::ask(const QString& text, int buttons, const QString& title) {
    questions.append({text, buttons, title});
    return answers.isEmpty() ? kAnswerNo : answers.dequeue();
}

void RecordingDialogs::beep() {
    ++beeps;
}

bool RecordingDialogs::pickColour(QColor& colour, const QString& prompt) {
    colourPickerStarts.append(colour);
    colourPrompts.append(prompt);
    const std::optional<QColor> taken = colours.isEmpty() ? std::nullopt : colours.dequeue();
    if (!taken) return false;
    colour = *taken;
    return true;
}

QString RecordingDialogs::chooseFolder() {
    ++folderChoosers;
    return folders.isEmpty() ? QString() : folders.dequeue();
}

void RecordingDialogs::clear() {
    *this = RecordingDialogs();
}
