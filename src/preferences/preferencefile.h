#pragma once

#include <QSize>
#include <QString>
#include <optional>

class Preferences;
class QIODevice;

// What the preference file holds: five preferences and the size of the main window's
// control area.
struct SavedPreferences {
    int previewSize = 0;
    int imageQuality = 0;
    QString imageFormat;
    QString savePath;
    QString openPrefs;
    QSize windowSize;
};

// Reads the seven lines of a preference file from `device`, which is open for reading. Lines
// are told apart by position only; a missing line reads as empty, so its numbers read as 0 and
// its texts as "". A width or height of 0 becomes 980 by 560.
SavedPreferences readSavedPreferences(QIODevice& device);

// The preference file of the user's preferences folder, read; nothing when there is none.
std::optional<SavedPreferences> readPreferenceFile();
// Writes `preferences` and the main window's control area size to the preference file.
void writePreferenceFile(const Preferences& preferences, QSize controlArea);
