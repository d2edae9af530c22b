#pragma once

#include <QSize>
#include <QString>

class QIODevice;

// What the preference file holds: five settings of App and the size of the main window's
// control area.
struct SavedPreferences {
    int lastSize = 0;
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
