// The preference file: five settings of App and the main window's size, in seven lines told
// apart by position only.
#include <QDir>
#include <QFile>
#include <QLayout>
#include <QSaveFile>

#include "app/app.h"
#include "app/savedpreferences.h"
#include "auxwindows/aboutwindow.h"
#include "mainwindow/mainwindow.h"
#include "platform/sharedwindow.h"
#include "platform/specialfolders.h"
#include "platform/text.h"

namespace {

QString preferenceFilePath() {
    return QDir(SpecialFolder::Preferences()).filePath(QStringLiteral("Corvane4.prefs"));
}

// The window's size is the size of its control area: where the menu bar lives inside the
// window, the window is taller by the menu bar's height.
void setControlAreaSize(MainWindow* window, QSize size) {
    QSize chrome(0, 0);
    if (QWidget* area = window->centralWidget()) {
        window->layout()->activate();
        chrome = window->size() - area->size();
    }
    // Qt bounds a widget's size to QWIDGETSIZE_MAX anyway; bounding first keeps the sum from
    // overflowing for the huge numbers a damaged file may hold.
    window->resize(size.boundedTo(QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX)) + chrome);
}

}  // namespace

void App::loadPreferences() {
    QFile file(preferenceFilePath());
    if (!file.exists()) {
        preferences_.lastSize = 720;
        preferences_.imageQuality = 80;
        preferences_.imageFormat = QStringLiteral("PNG");
        preferences_.savePath = QStringLiteral("Desktop");
        preferences_.openAtStart = true;
        sharedInstance<AboutWindow>()->showOver(windowMain());
        return;
    }
    file.open(QIODevice::ReadOnly);
    const SavedPreferences saved = readSavedPreferences(file);
    preferences_.lastSize = saved.lastSize;
    preferences_.imageQuality = saved.imageQuality;
    preferences_.imageFormat = saved.imageFormat;
    preferences_.savePath = saved.savePath;
    preferences_.openAtStart = saved.openPrefs == QStringLiteral("yes");
    if (MainWindow* window = windowMain()) setControlAreaSize(window, saved.windowSize);
}

void App::savePreferences() {
    QDir().mkpath(SpecialFolder::Preferences());
    QSaveFile file(preferenceFilePath());
    if (!file.open(QIODevice::WriteOnly)) return;
    const QStringList lines = {
        QStringLiteral("# Corvanes version"),
        QStringLiteral("4.0"),
        QStringLiteral("# Last resize dimension, image quality, image format, save path, opend "
                       "prefs on startup"),
        QStringList{text::Str(preferences_.lastSize), text::Str(preferences_.imageQuality),
                    preferences_.imageFormat, preferences_.savePath,
                    preferences_.openAtStart ? QStringLiteral("yes") : QStringLiteral("no")}
            .join(QLatin1Char(',')),
        QStringLiteral("# Main Window width and height"),
        text::Str(preferences_.mainWinWidth) + QLatin1Char(',') +
            text::Str(preferences_.mainWinHeight),
        QStringLiteral("# EOF"),
    };
    for (const QString& line : lines) file.write((line + text::EndOfLine).toUtf8());
    file.commit();
}
