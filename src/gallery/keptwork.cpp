#include "gallery/keptwork.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <QStandardPaths>

#include "catalogue/folderitems.h"
#include "platform/nativename.h"

namespace {

// Names go in as text. JSON text cannot hold a name that is not UTF-8: such a name goes in as its
// bytes, percent-encoded behind a "%", as does a name that begins with one.
QString nameText(const QString& name) {
    if (!nativeName::keepsBytes(name) && !name.startsWith(u'%')) return name;
    return u'%' + QString::fromLatin1(nativeName::toBytes(name).toPercentEncoding("/"));
}

QString nameOf(const QJsonValue& value) {
    const QString text = value.toString();
    if (!text.startsWith(u'%')) return text;
    return nativeName::fromBytes(QByteArray::fromPercentEncoding(text.mid(1).toLatin1()));
}

QString directory() {
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) +
           QStringLiteral("/kept work");
}

// One file for each folder, named by a digest of the folder's path.
QString fileFor(const QString& folder) {
    const QByteArray digest = QCryptographicHash::hash(nativeName::toBytes(cleanFolder(folder)),
                                                       QCryptographicHash::Sha256);
    return directory() + u'/' + QString::fromLatin1(digest.toHex().left(32)) +
           QStringLiteral(".json");
}

QJsonObject toJson(const GalleryPage& work) {
    const GallerySettings& s = work.settings;
    QJsonArray rows;
    for (const PageSlide& slide : work.slides) {
        QJsonObject row{{"file", nameText(slide.fileName)}};
        if (slide.caption) row["caption"] = *slide.caption;
        rows.append(row);
    }
    return {{"folder", nameText(s.folder)},
            {"pageFileName", nameText(s.pageFileName)},
            {"headTitle", s.headTitle},
            {"title", s.title},
            {"subtitle", s.subtitle},
            {"backgroundColour", s.backgroundColour},
            {"titleColour", s.titleColour},
            {"captionColour", s.captionColour},
            {"fullWidth", s.fullWidth},
            {"selfContained", s.selfContained},
            {"rows", rows}};
}

std::optional<GalleryPage> read(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
    const QJsonObject json = QJsonDocument::fromJson(file.readAll()).object();
    if (!json.value("rows").isArray()) return std::nullopt;
    GalleryPage work;
    GallerySettings& s = work.settings;
    s.folder = nameOf(json["folder"]);
    s.pageFileName = nameOf(json["pageFileName"]);
    s.headTitle = json["headTitle"].toString();
    s.title = json["title"].toString();
    s.subtitle = json["subtitle"].toString();
    s.backgroundColour = json["backgroundColour"].toString();
    s.titleColour = json["titleColour"].toString();
    s.captionColour = json["captionColour"].toString();
    s.fullWidth = json["fullWidth"].toBool();
    s.selfContained = json["selfContained"].toBool();
    for (const QJsonValue row : json["rows"].toArray()) {
        const QJsonValue caption = row["caption"];
        work.slides.append({nameOf(row["file"]),
                            caption.isString() ? std::optional(caption.toString()) : std::nullopt});
    }
    return work;
}

}  // namespace

KeptWork::KeptWork(std::function<GalleryPage()> current, QObject* parent)
    : QObject(parent), current_(std::move(current)) {
    wait_.setSingleShot(true);
    wait_.setInterval(500);
    connect(&wait_, &QTimer::timeout, this, &KeptWork::keep);
}

KeptWork::~KeptWork() {
    keepWaiting();
}

void KeptWork::changed() {
    // Not restarted by each change: typing on never holds the keeping back.
    if (!wait_.isActive()) wait_.start();
}

void KeptWork::keepWaiting() {
    if (wait_.isActive()) keep();
}

void KeptWork::keep() {
    wait_.stop();
    const GalleryPage work = current_();
    if (work.slides.isEmpty()) {
        QFile::remove(fileFor(work.settings.folder));
        return;
    }
    // A failure leaves the work kept before, and the next change tries again.
    QSaveFile file(fileFor(work.settings.folder));
    if (!QDir().mkpath(directory()) || !file.open(QIODevice::WriteOnly)) return;
    file.write(QJsonDocument(toJson(work)).toJson());
    file.commit();
}

void KeptWork::forget(const QString& folder) {
    wait_.stop();
    QFile::remove(fileFor(folder));
}

std::optional<GalleryPage> KeptWork::find(const QString& folder) const {
    return read(fileFor(folder));
}

std::optional<GalleryPage> KeptWork::newest() const {
    const QDir kept(directory());
    for (const QString& name :
         kept.entryList({QStringLiteral("*.json")}, QDir::Files, QDir::Time)) {
        const std::optional<GalleryPage> work = read(kept.filePath(name));
        if (work && nativeName::isFolder(work->settings.folder)) return work;
    }
    return std::nullopt;
}
