#include "gallery/gallery.h"

#include <QDir>
#include <QFileInfo>
#include <QScopedValueRollback>
#include <algorithm>
#include <optional>

#include "catalogue/folderitems.h"
#include "catalogue/imagetypes.h"
#include "catalogue/stripextension.h"
#include "gallery/galleryquestions.h"
#include "gallery/pagerestore.h"
#include "page/colournames.h"
#include "page/galleryreader.h"
#include "page/pagetarget.h"
#include "platform/picture.h"
#include "platform/specialfolders.h"
#include "platform/text.h"

namespace {

// The colour list's own spelling of `colour`; `current` for a colour it does not hold (a page
// edited by hand).
QString listedColour(const QString& colour, const QString& current) {
    const QString listed = listedColourName(colour);
    return listed.isEmpty() ? current : listed;
}

// What every gallery starts with, in the window and on the command line alike.
GallerySettings firstSettings() {
    GallerySettings settings;
    settings.pageFileName = QStringLiteral("index.html");
    settings.headTitle =
        QFileInfo(SpecialFolder::UserHome()).fileName() + QStringLiteral("'s photo gallery");
    settings.backgroundColour = QStringLiteral("Black");
    settings.titleColour = QStringLiteral("White");
    settings.captionColour = QStringLiteral("White");
    settings.fullWidth = true;
    return settings;
}

}  // namespace

Gallery::Gallery(WorkKeeping keeping, QObject* parent)
    : QObject(parent), settings_(firstSettings()) {
    if (keeping == WorkKeeping::Untouched) return;
    kept_ = std::make_unique<KeptWork>([this] { return work(); });
    // What the user does to the rows is kept until the page is written; the walk of a folder and
    // a restored page are no such work.
    const auto changed = [this] {
        if (!takingIn_) kept_->changed();
    };
    connect(&images_, &QAbstractItemModel::rowsInserted, this, changed);
    connect(&images_, &QAbstractItemModel::rowsRemoved, this, changed);
    connect(&images_, &QAbstractItemModel::modelReset, this, changed);
    connect(&images_, &QAbstractItemModel::layoutChanged, this, changed);
    connect(&images_, &QAbstractItemModel::dataChanged, this, changed);
}

void Gallery::setSettings(const GallerySettings& settings) {
    if (settings == settings_) return;
    settings_ = settings;
    if (!takingIn_ && kept_) kept_->changed();
}

GalleryPage Gallery::work() const {
    GalleryPage work{settings_, {}};
    // A description not read yet stays unread: reading thousands would hold the window.
    for (int row = 0; row < images_.imageCount(); ++row)
        work.slides.append(
            {images_.cell(row, CatalogueRow::FileName), images_.captionAsKnown(row)});
    return work;
}

void Gallery::openFolder(const QString& item) {
    // A gallery page stands for its folder, and handing it over already says what to do.
    std::optional<GalleryPageFile> page = readGalleryPageFile(item);
    const QString folder = page ? QFileInfo(item).absolutePath() : item;
    // The work waiting to be kept is of the gallery as it stands, before it goes or grows.
    if (kept_) kept_->keepWaiting();
    if (images_.imageCount() > 0 && !folder.isEmpty() &&
        cleanFolder(folder) != cleanFolder(settings_.folder) && questions_ &&
        questions_->startNewGallery(QDir::toNativeSeparators(folder))) {
        const QScopedValueRollback quiet(takingIn_, true);
        clear();
    }
    const bool emptyList = images_.imageCount() == 0;
    takeIn(folder);
    if (!emptyList || folder.isEmpty()) return;
    // Work kept since the last page is newer than any page.
    if (const std::optional<GalleryPage> work = kept_ ? kept_->find(folder) : std::nullopt;
        work && bringBack(*work)) {
        reopen(*work, {});
        return;
    }
    if (!page) {
        page = newestGalleryPageIn(folder);
        if (!page || !questions_ || !questions_->restorePage(QFileInfo(page->path).fileName()))
            return;
    }
    reopen(page->page, page->path);
}

void Gallery::offerKeptWork() {
    if (!kept_ || images_.imageCount() > 0) return;
    const std::optional<GalleryPage> work = kept_->newest();
    if (!work) return;
    const QString folder = cleanFolder(work->settings.folder);
    if (!bringBack(*work)) return;
    takeIn(folder);
    reopen(*work, {});
}

bool Gallery::bringBack(const GalleryPage& work) {
    const auto captions =
        std::count_if(work.slides.cbegin(), work.slides.cend(),
                      [](const PageSlide& s) { return !s.caption.value_or("").isEmpty(); });
    if (questions_ &&
        questions_->bringBackWork(QDir::toNativeSeparators(cleanFolder(work.settings.folder)),
                                  int(work.slides.size()), int(captions)))
        return true;
    // Declined, it is let go: it would be offered at every start.
    kept_->forget(work.settings.folder);
    return false;
}

void Gallery::takeIn(const QString& folder) {
    const QScopedValueRollback quiet(takingIn_, true);
    emit intakeStarted();
    if (!folder.isEmpty()) addImagesOf(folder);
    emit intakeFinished();
}

void Gallery::addImagesOf(const QString& folder) {
    const QStringList names = folderItemsByName(folder);
    const QDir dir(QFileInfo(folder).absoluteFilePath());
    for (const QString& name : names) {
        const QString path = dir.filePath(name);
        if (const PicturePtr picture = Picture::open(path)) {
            CatalogueRow row;
            row.pictureName = stripExtension(name);
            row.originalName = name;
            row.imagePath = QDir::toNativeSeparators(path);
            row.imageType = imageTypeOfExtension(QFileInfo(name).suffix());
            row.imageWidth = QString::number(picture->width());
            row.imageHeight = QString::number(picture->height());
            row.format = QString::fromLatin1(picture->format());
            row.captionInFile = true;
            images_.addRow(row);
        }
        // Only the progress window is painted while the walk holds the event loop: the selection
        // and the count, costly to follow item by item, are brought up to date once at the end.
        images_.updateProgressText();
        emit listUpdated();
    }
    if (!names.isEmpty()) images_.updateSelectionAndCounts();
    images_.selectRow(0);
    settings_.folder = QDir::toNativeSeparators(folder) + QStringLiteral("/");
    emit settingsChanged();
}

void Gallery::reopen(const GalleryPage& earlier, const QString& pagePath) {
    const QScopedValueRollback quiet(takingIn_, true);
    const QStringList missing = arrangeAsPage(images_, earlier.slides);
    const GallerySettings& page = earlier.settings;
    if (pagePath.isEmpty()) {
        // Kept work: every setting as the user left it.
        const QString folder = settings_.folder;
        settings_ = page;
        settings_.folder = folder;
    } else {
        pagesOfThisGallery_.insert(QDir::cleanPath(pagePath));
        settings_.pageFileName = QFileInfo(pagePath).fileName();
        settings_.headTitle = page.headTitle;
        settings_.title = page.title;
        settings_.subtitle = page.subtitle;
        settings_.backgroundColour =
            listedColour(page.backgroundColour, settings_.backgroundColour);
        settings_.titleColour = listedColour(page.titleColour, settings_.titleColour);
        settings_.captionColour = listedColour(page.captionColour, settings_.captionColour);
        settings_.fullWidth = page.fullWidth;
        settings_.selfContained = page.selfContained;
    }
    emit settingsChanged();
    images_.selectRow(0);
    if (!missing.isEmpty() && questions_) questions_->imagesMissing(missing);
}

void Gallery::updateList() {
    images_.updateSelectionAndCounts();
    emit listUpdated();
}

void Gallery::removeSelectedImages() {
    // Backward, so that the rows still to be looked at keep their indexes.
    for (int row = images_.imageCount() - 1; row >= 0; --row)
        if (images_.isSelected(row)) images_.removeImageAt(row);
    updateList();
    images_.setRenamed(false);
}

void Gallery::clear() {
    images_.removeAll();
    images_.setCountText(QStringLiteral("Empty list"));
    images_.setRenamed(false);
    emit cleared();
}

void Gallery::restoreOriginalNames() {
    if (!images_.renamed()) return;
    for (int row = 0; row < images_.imageCount(); ++row)
        images_.setCell(row, CatalogueRow::ListName,
                        stripExtension(images_.cell(row, CatalogueRow::FileName)));
    images_.setRenamed(false);
}

PageWriteResult Gallery::writePage(const FileFactory& makeFile) {
    if (!takeOutImagesElsewhere() || !mayWriteUnshownImages() || !mayReplaceVelmoraPage())
        return {};
    const auto mayReplace = [this](const QString& name) {
        return questions_ && questions_->replaceOtherPage(name);
    };
    PageWriteResult result =
        saveGalleryPage(settings_, images_.countText(), images_.rows(), makeFile, mayReplace);
    if (result.ok) {
        pagesOfThisGallery_.insert(QDir::cleanPath(result.path));
        if (kept_) kept_->forget(settings_.folder);
    }
    return result;
}

bool Gallery::takeOutImagesElsewhere() {
    const QString folder = cleanFolder(settings_.folder);
    QStringList paths;
    QList<int> rows;
    for (int row = 0; row < images_.imageCount(); ++row) {
        const QString path = images_.cell(row, CatalogueRow::Path);
        if (QFileInfo(QDir::fromNativeSeparators(path)).absolutePath() != folder) {
            paths << path;
            rows << row;
        }
    }
    if (rows.isEmpty()) return true;
    if (!questions_ || !questions_->takeOutImagesElsewhere(paths)) return false;
    for (auto row = rows.crbegin(); row != rows.crend(); ++row) images_.removeImageAt(*row);
    updateList();
    return images_.imageCount() > 0;
}

bool Gallery::mayWriteUnshownImages() {
    QStringList unshown;
    for (const CatalogueRow& row : images_.rows())
        if (!browsersShow(row.format)) unshown << row.originalName;
    return unshown.isEmpty() || (questions_ && questions_->writeUnshownImages(unshown));
}

bool Gallery::mayReplaceVelmoraPage() {
    // Another gallery's page: a page of ours that this gallery did not bring back or write.
    if (pagesOfThisGallery_.contains(QDir::cleanPath(galleryPagePath(settings_))) ||
        examinePageTarget(settings_, images_.rows()).kind != PageTarget::Kind::OwnPage)
        return true;
    return questions_ && questions_->replaceVelmoraPage(settings_.pageFileName);
}
