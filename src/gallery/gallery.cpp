#include "gallery/gallery.h"

#include <QDir>
#include <QFileInfo>
#include <optional>

#include "catalogue/folderitems.h"
#include "catalogue/imagetypes.h"
#include "catalogue/stripextension.h"
#include "gallery/galleryquestions.h"
#include "gallery/pagerestore.h"
#include "page/colournames.h"
#include "page/galleryreader.h"
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

Gallery::Gallery(QObject* parent) : QObject(parent), settings_(firstSettings()) {}

void Gallery::openFolder(const QString& item) {
    const bool emptyList = images_.imageCount() == 0;
    // A gallery page stands for its folder, and handing it over already says what to do.
    std::optional<GalleryPageFile> page = readGalleryPageFile(item);
    const QString folder = page ? QFileInfo(item).absolutePath() : item;
    emit intakeStarted();
    if (!folder.isEmpty()) addImagesOf(folder);
    emit intakeFinished();
    if (!emptyList || folder.isEmpty()) return;
    if (!page) {
        page = newestGalleryPageIn(folder);
        if (!page || !questions_ || !questions_->restorePage(QFileInfo(page->path).fileName()))
            return;
    }
    reopen(*page);
}

void Gallery::addImagesOf(const QString& folder) {
    const QDir dir(folder);
    for (const QString& name : folderItemsByName(folder)) {
        const QFileInfo item(dir.filePath(name));
        if (const PicturePtr picture = Picture::open(item.filePath())) {
            images_.addRow(stripExtension(name));
            const int row = images_.lastAddedRow();
            images_.setCell(row, CatalogueRow::FileName, name);
            images_.setCell(row, CatalogueRow::Path,
                            QDir::toNativeSeparators(item.absoluteFilePath()));
            images_.setCell(row, CatalogueRow::Type, imageTypeOfExtension(item.suffix()));
            images_.setCell(row, CatalogueRow::Width, QString::number(picture->width()));
            images_.setCell(row, CatalogueRow::Height, QString::number(picture->height()));
            images_.takeCaptionFromFile(row);
        }
        updateList();
    }
    images_.selectRow(0);
    settings_.folder = QDir::toNativeSeparators(folder) + QStringLiteral("/");
    emit settingsChanged();
}

void Gallery::reopen(const GalleryPageFile& found) {
    const QStringList missing = arrangeAsPage(images_, found.page.slides);
    const GallerySettings& page = found.page.settings;
    settings_.pageFileName = QFileInfo(found.path).fileName();
    settings_.headTitle = page.headTitle;
    settings_.title = page.title;
    settings_.subtitle = page.subtitle;
    settings_.backgroundColour = listedColour(page.backgroundColour, settings_.backgroundColour);
    settings_.titleColour = listedColour(page.titleColour, settings_.titleColour);
    settings_.captionColour = listedColour(page.captionColour, settings_.captionColour);
    settings_.fullWidth = page.fullWidth;
    settings_.selfContained = page.selfContained;
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
}

void Gallery::restoreOriginalNames() {
    if (!images_.renamed()) return;
    for (int row = 0; row < images_.imageCount(); ++row)
        images_.setCell(row, CatalogueRow::ListName,
                        stripExtension(images_.cell(row, CatalogueRow::FileName)));
    images_.setRenamed(false);
}

PageWriteResult Gallery::writePage(const FileFactory& makeFile) {
    const auto mayReplace = [this](const QString& name) {
        return questions_ && questions_->replaceOtherPage(name);
    };
    return saveGalleryPage(settings_, images_.countText(), images_.rows(), makeFile, mayReplace);
}
