// Writes a folder of generated images and the gallery pages for them with the program's own page
// writer, so that a browser can check the pages as a visitor would see them.
//
//   write_gallery_pages GALLERY_JSON FOLDER

#include <fcntl.h>

#include <QColor>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextStream>

#include "page/gallerywriter.h"
#include "platform/nativename.h"

namespace {

int failure(const QString& why) {
    QTextStream(stderr) << why << "\n";
    return 1;
}

// A plain field of the image's colour, made by its name's bytes: not every test name is UTF-8.
bool writeImage(const QString& path, const QJsonObject& image) {
    QImage picture(image["width"].toInt(), image["height"].toInt(), QImage::Format_RGB32);
    picture.fill(QColor(image["fill"].toString()));
    QFile file;
    const int fd =
        ::open(nativeName::toBytes(path).constData(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    return fd >= 0 && file.open(fd, QIODevice::WriteOnly, QFileDevice::AutoCloseHandle) &&
           picture.save(&file, path.contains(".jpg") ? "JPEG" : "PNG", 90);
}

}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    const QStringList args = app.arguments();
    if (args.size() != 3) return failure("usage: write_gallery_pages GALLERY_JSON FOLDER");
    QFile json(args[1]);
    json.open(QIODevice::ReadOnly);
    const QJsonObject gallery = QJsonDocument::fromJson(json.readAll()).object();
    const QJsonArray images = gallery["images"].toArray();
    if (images.isEmpty()) return failure("no images described in " + args[1]);
    const QDir folder(args[2]);
    if (!folder.mkpath(".")) return failure("cannot make the folder " + folder.path());

    QList<CatalogueRow> rows;
    for (const QJsonValue& value : images) {
        CatalogueRow row;
        row.originalName = value["file"].toString();
        row.caption = value["caption"].toString();
        if (!writeImage(folder.filePath(row.originalName), value.toObject()))
            return failure("cannot write the image " + row.originalName);
        rows.append(row);
    }

    const QJsonObject colours = gallery["colours"].toObject();
    GallerySettings settings;
    settings.galleryPath = folder.absolutePath() + "/";
    settings.galleryHTMLtitle = gallery["htmlTitle"].toString();
    settings.galleryTitle = gallery["title"].toString();
    settings.gallerySubTitle = gallery["subtitle"].toString();
    settings.bgColor = colours["background"]["name"].toString();
    settings.textColor = colours["titles"]["name"].toString();
    settings.captionColor = colours["captions"]["name"].toString();
    for (const QJsonValue& page : gallery["pages"].toArray()) {
        settings.galleryFileName = page["file"].toString();
        settings.fullPageWidth = page["fullWidth"].toBool();
        const PageWriteResult result =
            saveGalleryPage(settings, QString::number(rows.size()) + " images", rows);
        if (!result.ok) return failure("cannot write " + result.path + ": " + result.error);
    }
    return 0;
}
