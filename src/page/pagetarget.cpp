#include "page/pagetarget.h"

#include <sys/stat.h>

#include <QDir>
#include <QFile>
#include <QMimeDatabase>

#include "page/gallerywriter.h"
#include "page/pagelayout.h"
#include "page/selfcontainedpage.h"
#include "platform/nativename.h"
#include "platform/picture.h"

namespace {

bool isPlainFileName(const QString& name) {
    return !name.isEmpty() && name != u"." && name != u".." && !name.contains(u'/') &&
           !name.contains(u'\\') && !name.contains(QChar(0));
}

// Whether `target` is the file of one of the rows, by identity on disk, so that another spelling
// of its name on a case-blind disk is caught as well.
bool isListed(const struct stat& target, const QList<CatalogueRow>& rows) {
    for (const CatalogueRow& row : rows) {
        struct stat listed {};
        if (::stat(nativeName::toBytes(row.imagePath).constData(), &listed) == 0 &&
            listed.st_dev == target.st_dev && listed.st_ino == target.st_ino)
            return true;
    }
    return false;
}

// Whether the file is one of Velmora's pages: a self-contained page by its opening, the carousel by
// its opening line wherever it stands, as the titles before it may be of any length.
bool holdsOurPage(QFile& file) {
    const QByteArray opening(kSelfContainedPageOpening);
    if (file.peek(opening.size()) == opening) return true;
    const QByteArray mark = pageLayout::carouselOpening().first().toUtf8();
    constexpr qint64 kChunk = 1 << 16;
    QByteArray window;
    while (!file.atEnd()) {
        window = window.right(mark.size() - 1) + file.read(kChunk);
        if (window.contains(mark)) return true;
        if (file.error() != QFileDevice::NoError) return false;
    }
    return false;
}

QString refusal(const QString& name, const char* what, const char* rule) {
    return QStringLiteral(
               "\"%1\" in the gallery's folder %2. Velmora %3; please choose another "
               "page name.")
        .arg(name, QLatin1String(what), QLatin1String(rule));
}

PageTarget refused(const QString& why) {
    return {PageTarget::Kind::Refused, why};
}

}  // namespace

PageTarget examinePageTarget(const GallerySettings& settings, const QList<CatalogueRow>& rows) {
    const QString& name = settings.pageFileName;
    if (!isPlainFileName(name))
        return refused(QStringLiteral(
            "The page name must be a plain file name, such as index.html: not empty, not \".\" or "
            "\"..\", and without \"/\", \"\\\" or a null character."));

    // The gallery's folder is known by its full path once a folder was dropped, and only then.
    if (!QDir::isAbsolutePath(settings.folder) || !settings.folder.endsWith(u'/'))
        return refused(
            QStringLiteral("There is no folder for the page yet: please drop the "
                           "folder of the images on the window."));
    const QString path = galleryPagePath(settings);
    struct stat status {};
    // Nothing there, or no folder to look in: the write itself tells what is wrong.
    if (::lstat(nativeName::toBytes(path).constData(), &status) != 0)
        return {PageTarget::Kind::Free, {}};
    if (S_ISLNK(status.st_mode))
        return refused(refusal(name, "is a link", "does not write through links"));
    const char* notAPage = "is not a web page";
    const char* onlyPages = "replaces only web pages";
    if (!S_ISREG(status.st_mode)) return refused(refusal(name, notAPage, onlyPages));
    if (Picture::open(path))
        return refused(refusal(name, "is a picture", "never writes over a picture"));
    if (isListed(status, rows))
        return refused(refusal(name, "is one of the listed files", "never writes over them"));

    QFile file;
    if (!nativeName::openForReading(file, path)) return refused(refusal(name, notAPage, onlyPages));
    if (!QMimeDatabase().mimeTypeForData(&file).inherits(QStringLiteral("text/html")))
        return refused(refusal(name, notAPage, onlyPages));
    file.seek(0);
    return {holdsOurPage(file) ? PageTarget::Kind::OwnPage : PageTarget::Kind::OtherPage, {}};
}
