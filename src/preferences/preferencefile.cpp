#include "preferences/preferencefile.h"

#include <QDir>
#include <QFile>
#include <QIODevice>
#include <QSaveFile>

#include "platform/specialfolders.h"
#include "platform/text.h"
#include "preferences/preferences.h"

namespace {

QString preferenceFilePath() {
    return QDir(SpecialFolder::Preferences()).filePath(QStringLiteral("Corvane4.prefs"));
}

// The next line without its end; past the end of the file, or of a file that cannot be read,
// an empty line. Any bytes are taken: what is no UTF-8 reads as replacement characters.
QString nextLine(QIODevice& device) {
    if (device.atEnd()) return {};
    QByteArray line = device.readLine();
    if (line.endsWith('\n')) line.chop(1);
    if (line.endsWith('\r')) line.chop(1);
    return QString::fromUtf8(line);
}

QString textField(const QString& line, int index) {
    return text::fieldAt(line, QStringLiteral(","), index);
}

int numberField(const QString& line, int index) {
    return text::truncateToInt(text::leadingNumber(textField(line, index)));
}

}  // namespace

SavedPreferences readSavedPreferences(QIODevice& device) {
    SavedPreferences saved;
    for (int heading = 0; heading < 3; ++heading) nextLine(device);
    const QString settings = nextLine(device);
    saved.previewSize = numberField(settings, 1);
    saved.imageQuality = numberField(settings, 2);
    saved.imageFormat = textField(settings, 3);
    saved.savePath = textField(settings, 4);
    saved.openPrefs = textField(settings, 5);
    nextLine(device);
    const QString windowSize = nextLine(device);
    const int width = numberField(windowSize, 1);
    const int height = numberField(windowSize, 2);
    // Zero is what a run that never resized the window writes.
    saved.windowSize = QSize(width == 0 ? 980 : width, height == 0 ? 560 : height);
    return saved;
}

std::optional<SavedPreferences> readPreferenceFile() {
    QFile file(preferenceFilePath());
    if (!file.exists()) return std::nullopt;
    file.open(QIODevice::ReadOnly);
    return readSavedPreferences(file);
}

void writePreferenceFile(const Preferences& preferences, QSize controlArea) {
    QDir().mkpath(SpecialFolder::Preferences());
    QSaveFile file(preferenceFilePath());
    if (!file.open(QIODevice::WriteOnly)) return;
    const QStringList lines = {
        QStringLiteral("# Corvanes version"),
        QStringLiteral("4.0"),
        QStringLiteral("# Last resize dimension, image quality, image format, save path, opend "
                       "prefs on startup"),
        QStringList{QString::number(preferences.previewSize),
                    QString::number(preferences.imageQuality), preferences.imageFormat,
                    preferences.savePath,
                    preferences.openAtStart ? QStringLiteral("yes") : QStringLiteral("no")}
            .join(QLatin1Char(',')),
        QStringLiteral("# Main Window width and height"),
        QString::number(controlArea.width()) + QLatin1Char(',') +
            QString::number(controlArea.height()),
        QStringLiteral("# EOF"),
    };
    for (const QString& line : lines) file.write((line + QLatin1Char('\n')).toUtf8());
    file.commit();
}
