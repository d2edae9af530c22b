// The preference file: five settings of App and the main window's size, in seven lines told
// apart by position only.
#include <QDir>
#include <QFile>
#include <QLayout>
#include <QSaveFile>

#include "app/app.h"
#include "auxwindows/windowabout.h"
#include "mainwindow/windowmain.h"
#include "platform/sharedwindow.h"
#include "platform/specialfolders.h"
#include "platform/text.h"

namespace {

QString preferenceFilePath() {
    return QDir(SpecialFolder::Preferences()).filePath(QStringLiteral("Corvane4.prefs"));
}

// The next line without its end; past the end of the file, or of a file that cannot be read,
// an empty line. Any bytes are taken: what is no UTF-8 reads as replacement characters.
QString nextLine(QFile& file) {
    if (file.atEnd()) return {};
    QByteArray line = file.readLine();
    if (line.endsWith('\n')) line.chop(1);
    if (line.endsWith('\r')) line.chop(1);
    return QString::fromUtf8(line);
}

int numberField(const QString& line, int index) {
    return text::truncateToInt(text::Val(text::NthField(line, QStringLiteral(","), index)));
}

// The window's size is the size of its control area: where the menu bar lives inside the
// window, the window is taller by the menu bar's height.
void setControlAreaSize(WindowMain* window, QSize size) {
    QSize chrome;
    if (QWidget* area = window->centralWidget()) {
        window->layout()->activate();
        chrome = window->size() - area->size();
    }
    window->resize(size + chrome);
}

}  // namespace

void App::loadPrefs() {
    QFile file(preferenceFilePath());
    if (!file.exists()) {
        lastSize = 720;
        imageQuality = 80;
        imageFormat = QStringLiteral("PNG");
        savePath = QStringLiteral("Desktop");
        openPrefs = QStringLiteral("yes");
        sharedInstance<WindowAbout>()->Show();
        return;
    }
    file.open(QIODevice::ReadOnly);
    for (int heading = 0; heading < 3; ++heading) nextLine(file);
    const QString settings = nextLine(file);
    lastSize = numberField(settings, 1);
    imageQuality = numberField(settings, 2);
    imageFormat = text::NthField(settings, QStringLiteral(","), 3);
    savePath = text::NthField(settings, QStringLiteral(","), 4);
    openPrefs = text::NthField(settings, QStringLiteral(","), 5);
    nextLine(file);
    const QString windowSize = nextLine(file);
    const int width = numberField(windowSize, 1);
    const int height = numberField(windowSize, 2);
    // Zero is what a run that never resized the window writes.
    if (WindowMain* window = windowMain())
        setControlAreaSize(window, QSize(width == 0 ? 980 : width, height == 0 ? 560 : height));
}

void App::SavePrefs() {
    QDir().mkpath(SpecialFolder::Preferences());
    QSaveFile file(preferenceFilePath());
    if (!file.open(QIODevice::WriteOnly)) return;
    const QStringList lines = {
        QStringLiteral("# Corvanes version"),
        QStringLiteral("4.0"),
        QStringLiteral("# Last resize dimension, image quality, image format, save path, opend "
                       "prefs on startup"),
        QStringList{text::Str(lastSize), text::Str(imageQuality), imageFormat, savePath, openPrefs}
            .join(QLatin1Char(',')),
        QStringLiteral("# Main Window width and height"),
        text::Str(mainWinWidth) + QLatin1Char(',') + text::Str(mainWinHeight),
        QStringLiteral("# EOF"),
    };
    for (const QString& line : lines) file.write((line + text::EndOfLine).toUtf8());
    file.commit();
}
