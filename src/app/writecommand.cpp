#include "app/writecommand.h"

#include <QDir>
#include <iostream>

#include "gallery/gallery.h"
#include "gallery/galleryquestions.h"
#include "platform/nativename.h"

namespace {

// The folder as the user named it, for the messages.
class FolderReport {
public:
    explicit FolderReport(const QString& folder) : name_(nativeName::toBytes(folder)) {}

    // On one line: the window's messages may break theirs.
    void problem(QString message) const {
        message.replace(QChar('\r'), QChar(' '));
        std::cerr << "velmora: " << name_.constData() << ": " << message.toUtf8().constData()
                  << std::endl;
    }
    void written(const QString& pageFileName, const QString& count) const {
        std::cout << name_.constData() << '/' << nativeName::toBytes(pageFileName).constData()
                  << ": " << count.toUtf8().constData() << std::endl;
    }

private:
    QByteArray name_;
};

// Where the window asks, the command line has its answer already: a page of ours is reopened,
// another's page replaced only with --replace, and the pictures a page misses are reported.
class CommandLineAnswers : public GalleryQuestions {
public:
    CommandLineAnswers(const FolderReport& report, bool replace)
        : report_(report), replace_(replace) {}

    bool restorePage(const QString&) override { return true; }
    bool replaceOtherPage(const QString& pageFileName) override {
        return replace_ || declined(pageFileName, "already exists and was not written by Velmora");
    }
    bool replaceVelmoraPage(const QString& pageFileName) override {
        return replace_ || declined(pageFileName, "is the page of another Velmora gallery");
    }
    void imagesMissing(const QStringList& fileNames) override {
        report_.problem(QStringLiteral("left out, no longer in the folder: ") +
                        fileNames.join(QStringLiteral(", ")));
    }
    // Written as the window's default answer has it, and said.
    bool writeUnshownImages(const QStringList& fileNames) override {
        report_.problem(QStringLiteral("%1 images will not show in web browsers: %2")
                            .arg(fileNames.size())
                            .arg(fileNames.join(QStringLiteral(", "))));
        return true;
    }
    // Each folder is a gallery of its own, whose list holds only that folder's pictures, and the
    // work the window kept is left to the window.
    bool startNewGallery(const QString&) override { return true; }
    bool bringBackWork(const QString&, int, int) override { return false; }
    bool takeOutImagesElsewhere(const QStringList&) override { return false; }

    // Why the page was not written, where the window would have asked.
    const QString& declined() const { return declined_; }

private:
    bool declined(const QString& pageFileName, const char* why) {
        declined_ =
            pageFileName + u' ' + QLatin1String(why) + QStringLiteral("; --replace replaces it");
        return false;
    }

    QString declined_;
    const FolderReport& report_;
    bool replace_;
};

void choose(const SettingChoices& choices, GallerySettings& settings) {
    const std::pair<const std::optional<QString>&, QString&> texts[] = {
        {choices.pageFileName, settings.pageFileName},
        {choices.headTitle, settings.headTitle},
        {choices.title, settings.title},
        {choices.subtitle, settings.subtitle},
        {choices.backgroundColour, settings.backgroundColour},
        {choices.titleColour, settings.titleColour},
        {choices.captionColour, settings.captionColour},
    };
    for (const auto& [chosen, setting] : texts)
        if (chosen) setting = *chosen;
    if (choices.fullWidth) settings.fullWidth = *choices.fullWidth;
    if (choices.selfContained) settings.selfContained = true;
}

bool writeGallery(const QString& folder, const WriteRequest& request) {
    const FolderReport report(QDir::cleanPath(folder));
    if (!nativeName::isFolder(folder)) {
        report.problem(QStringLiteral("not an existing folder"));
        return false;
    }
    Gallery gallery(Gallery::WorkKeeping::Untouched);
    CommandLineAnswers answers(report, request.replace);
    gallery.setQuestions(&answers);
    // Made absolute as text, since QDir would lose the bytes of a name that is not UTF-8.
    gallery.openFolder(QDir::cleanPath(QDir::current().absoluteFilePath(folder)));
    if (gallery.images().imageCount() == 0) {
        report.problem(QStringLiteral("no pictures in the folder; no page written"));
        return false;
    }
    GallerySettings settings = gallery.settings();
    choose(request.settings, settings);
    gallery.setSettings(settings);
    const PageWriteResult result = gallery.writePage();
    if (result.ok) {
        report.written(settings.pageFileName, gallery.images().countText());
        return true;
    }
    // No error and no page: a question the window would ask was answered No.
    report.problem(!result.error.isEmpty() ? result.error : answers.declined());
    return false;
}

}  // namespace

int writeGalleries(const WriteRequest& request) {
    int status = 0;
    for (const QString& folder : request.folders)
        if (!writeGallery(folder, request)) status = 2;
    return status;
}
