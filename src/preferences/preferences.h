#pragma once

#include <QColor>
#include <QObject>
#include <QString>

// The settings that the preferences window shows and changes and the preference file keeps, and
// the wanted preview size and window size that the main window keeps there too.
class Preferences : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    QString imageFormat;
    int imageQuality = 0;
    QString savePath;
    int previewSize = 0;
    bool openAtStart = false;  // the preferences window opens with the main window
    int frameWidth = 0;
    QColor frameColour = QColor(255, 255, 255);
    int windowHeight = 0;
    int windowWidth = 0;

signals:
    // The frame drawn around previews changed: they are to be drawn anew.
    void previewFrameChanged();
};
