// Writes a folder of generated images and the gallery pages for them with the program's own page
// writer, so that a browser can check the pages as a visitor would see them.
//
//   write_gallery_pages GALLERY_JSON FOLDER

#include <fcntl.h>

#include <QColor>
#include <QDir>
#include <QFile>
#include <QFont>
#include <QGuiApplication>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPainter>
#include <QTextStream>

#include "page/gallerywriter.h"
#include "platform/nativename.h"

namespace {

QTextStream& err() {
    static QTextStream stream(stderr);
    return stream;
}

QJsonObject readGallery(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return {};
    return QJsonDocument::fromJson(file.readAll()).object();
}

// A plain field of the image's colour with its slide number large in the middle, so that a
// screenshot shows which slide is on show. The file is made by its name's bytes: not every test
// name is UTF-8.
bool writeImage(const QString& path, const QJsonObject& image, int number) {
    QImage picture(image["width"].toInt(), image["height"].toInt(), QImage::Format_RGB32);
    picture.fill(QColor(image["fill"].toString()));
    QPainter painter(&picture);
    QFont font = painter.font();
    font.setPixelSize(picture.height() / 3);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(picture.rect(), Qt::AlignCenter, QString::number(number));
    painter.end();
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
    if (args.size() != 3) {
        err() << "usage: write_gallery_pages GALLERY_JSON FOLDER\n";
        return 2;
    }
    const QJsonObject gallery = readGallery(args[1]);
    const QJsonArray images = gallery["images"].toArray();
    if (images.isEmpty()) {
        err() << "no images described in " << args[1] << "\n";
        return 1;
    }
    const QDir folder(args[2]);
    if (!folder.mkpath(".")) {
        err() << "cannot make the folder " << folder.path() << "\n";
        return 1;
    }

    QList<CatalogueRow> rows;
    for (const QJsonValue& value : images) {
        const QJsonObject image = value.toObject();
        CatalogueRow row;
        row.originalName = image["file"].toString();
        row.caption = image["caption"].toString();
        if (!writeImage(folder.filePath(row.originalName), image, rows.size() + 1)) {
            err() << "cannot write the image " << row.originalName << "\n";
            return 1;
        }
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

    const QString countText = QString::number(rows.size()) + " images";
    for (const QJsonValue& value : gallery["pages"].toArray()) {
        const QJsonObject page = value.toObject();
        settings.galleryFileName = page["file"].toString();
        settings.fullPageWidth = page["fullWidth"].toBool();
        const PageWriteResult result = saveGalleryPage(settings, countText, rows);
        if (!result.ok) {
            err() << "cannot write " << result.path << ": " << result.error << "\n";
            return 1;
        }
        QTextStream(stdout) << "wrote " << result.path << "\n";
    }
    return 0;
}
