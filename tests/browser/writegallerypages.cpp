// Writes a folder of generated images and the gallery pages for them with the program's own page
// writer, so that a browser can check the pages as a visitor would see them.
//
//   write_gallery_pages GALLERY_JSON FOLDER

#include <fcntl.h>

#include <QColor>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "page/gallerywriter.h"
#include "platform/nativename.h"

// A plain field of the image's colour, made by its name's bytes: not every test name is UTF-8.
static bool writeImage(const QString& path, const QJsonValue& image) {
    QImage picture(image["width"].toInt(), image["height"].toInt(), QImage::Format_RGB32);
    picture.fill(QColor(image["fill"].toString()));
    const int fd =
        ::open(nativeName::toBytes(path).constData(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    QFile file;
    return fd >= 0 && file.open(fd, QIODevice::WriteOnly, QFileDevice::AutoCloseHandle) &&
           picture.save(&file, path.endsWith(".jpg") ? "JPEG" : "PNG", 90);
}

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments();
    QFile json(args.value(1));
    const QDir folder(args.value(2));
    if (args.size() != 3 || !json.open(QIODevice::ReadOnly) || !folder.mkpath("."))
        qFatal("usage: write_gallery_pages GALLERY_JSON FOLDER");
    const QJsonObject gallery = QJsonDocument::fromJson(json.readAll()).object();

    QList<CatalogueRow> rows;
    for (const QJsonValue& image : gallery["images"].toArray()) {
        const auto number = [&](const char* key) { return QString::number(image[key].toInt()); };
        rows.append({{},
                     image["file"].toString(),
                     {},
                     {},
                     number("width"),
                     number("height"),
                     image["caption"].toString(),
                     {}});
        if (!writeImage(folder.filePath(rows.last().originalName), image))
            qFatal("cannot write the image %s", qPrintable(rows.last().originalName));
    }
    const QJsonObject colours = gallery["colours"].toObject();
    GallerySettings settings{
        folder.absolutePath() + "/",          {},
        gallery["htmlTitle"].toString(),      gallery["title"].toString(),
        gallery["subtitle"].toString(),       colours["background"]["name"].toString(),
        colours["titles"]["name"].toString(), colours["captions"]["name"].toString()};
    for (const QJsonValue& page : gallery["pages"].toArray()) {
        settings.pageFileName = page["file"].toString();
        settings.fullWidth = page["fullWidth"].toBool();
        settings.selfContained = page["selfContained"].toBool();
        const PageWriteResult result =
            saveGalleryPage(settings, QString::number(rows.size()), rows);
        if (!result.ok)
            qFatal("cannot write %s: %s", qPrintable(result.path), qPrintable(result.error));
    }
    return 0;
}
