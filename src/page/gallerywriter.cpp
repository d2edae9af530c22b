#include "page/gallerywriter.h"

#include <QBuffer>
#include <QDir>
#include <QFileInfo>
#include <QStorageInfo>

#include "page/pagelayout.h"
#include "page/pagetarget.h"
#include "page/pagetext.h"
#include "page/selfcontainedpage.h"
#include "platform/replacefile.h"
#include "platform/text.h"

namespace {

class PageStream {
public:
    explicit PageStream(QIODevice& device) : device_(device) {}

    // One line of the page, ended by a line feed.
    void WriteLine(QStringView line = {}) {
        if (!ok_) return;
        const QByteArray bytes = line.toUtf8() + '\n';
        ok_ = device_.write(bytes) == bytes.size();
    }
    void WriteLines(const QStringList& lines) {
        for (const QString& line : lines) WriteLine(line);
    }
    bool ok() const { return ok_; }

private:
    QIODevice& device_;
    bool ok_ = true;
};

// The cells of a row the count text promises but the list does not hold read as empty.
QString cellOf(const QList<CatalogueRow>& rows, int row, int column) {
    return row >= 0 && row < rows.size() ? rows[row].cell(column) : QString();
}

QString addressOf(const QList<CatalogueRow>& rows, int row) {
    return pageText::addressOfFileName(cellOf(rows, row, 1));
}

QString captionOf(const QList<CatalogueRow>& rows, int row) {
    return pageText::escaped(cellOf(rows, row, CatalogueRow::Caption));
}

}  // namespace

bool writeGalleryPage(QIODevice& device, const GallerySettings& settings, const QString& countText,
                      const QList<CatalogueRow>& rows) {
    const QString TAB = QStringLiteral("\t");
    const int imageTotal = text::truncateToInt(text::leadingNumber(countText));
    const QString& backgroundColour = settings.backgroundColour;
    const QString& titleColour = settings.titleColour;
    const QString& captionColour = settings.captionColour;
    PageStream out(device);

    out.WriteLines(pageLayout::headStart());
    out.WriteLine(pageLayout::kTitle.with(pageText::escaped(settings.headTitle)));
    out.WriteLines(pageLayout::headEnd());
    out.WriteLine(pageLayout::kBody.with(backgroundColour));
    if (!settings.fullWidth) out.WriteLine(pageLayout::kContainer);
    out.WriteLine(u" <div style='text-align:center'>");
    out.WriteLine(TAB + pageLayout::kHeading.with(titleColour, pageText::escaped(settings.title)));
    out.WriteLine(TAB +
                  pageLayout::kSubheading.with(titleColour, pageText::escaped(settings.subtitle)));
    out.WriteLine(u"</div>");
    out.WriteLine();
    out.WriteLine();
    out.WriteLines(pageLayout::carouselOpening());
    for (int i = 0; i < imageTotal; ++i) {
        const pageLayout::FieldLine& indicator =
            i == 0 ? pageLayout::kActiveIndicator : pageLayout::kIndicator;
        out.WriteLine(TAB + indicator.with(QString::number(i)));
    }
    out.WriteLine(u"</ol>");
    out.WriteLine();
    out.WriteLine();
    out.WriteLine(u"<div class='carousel-inner'>");
    out.WriteLine(u"<div class='carousel-inner'>");

    out.WriteLine(TAB + "<div class='carousel-item active' data-interval='4000'>");
    out.WriteLine(TAB + TAB + pageLayout::kCaption.with(backgroundColour, u"0"));
    out.WriteLine(TAB + TAB + pageLayout::kImage.with(addressOf(rows, 0)));
    out.WriteLine(TAB + TAB + pageLayout::kCaption.with(captionColour, captionOf(rows, 0)));
    out.WriteLine(TAB + "</div>");
    out.WriteLine();

    for (int i = 1; i < imageTotal; ++i) {
        out.WriteLine(u"<div class='carousel-item' data-interval='4000'>");
        out.WriteLine(TAB + pageLayout::kImage.with(addressOf(rows, i)));
        out.WriteLine(TAB + pageLayout::kCaption.with(captionColour, captionOf(rows, i)));
        out.WriteLine(u"</div>");
        out.WriteLine();
    }
    out.WriteLine(u"</div>");
    out.WriteLines(pageLayout::carouselControls());
    if (!settings.fullWidth) out.WriteLine(u"</div>");
    out.WriteLine(u"</div>");
    out.WriteLine(u"</div>");
    out.WriteLine(u"</body>");
    out.WriteLine(pageLayout::kPageEnd);
    return out.ok();
}

QString galleryPagePath(const GallerySettings& settings) {
    return settings.folder + settings.pageFileName;
}

namespace {

// Why a write failed, in the user's words: the cause is looked for after the failure, since a
// failed write does not always say (a full disk may report "Unknown error", or nothing at all).
QString whyNotWritten(const GallerySettings& settings, const ReplaceOutcome& outcome,
                      qint64 pageSize) {
    const QString folder = QDir::cleanPath(settings.folder);
    const QFileInfo place(folder);
    QString cause;
    if (!place.exists())
        cause = QStringLiteral("The folder no longer exists.");
    else if (!place.isDir())
        cause = QStringLiteral("The gallery's folder is a file, not a folder.");
    else if (QStorageInfo(folder).isReadOnly())
        cause = QStringLiteral("The disk is read-only.");
    else if (!place.isWritable())
        cause = QStringLiteral("The folder is read-only.");
    // Bytes that went missing without an error are a full disk's doing as well.
    else if (outcome.error == QFileDevice::NoError || outcome.error == QFileDevice::ResourceError ||
             QStorageInfo(folder).bytesAvailable() < pageSize)
        cause = QStringLiteral("The disk is full.");
    else
        cause = QStringLiteral("The system could not write the file: ") + outcome.errorString;
    return cause + u'\r' + galleryPagePath(settings);
}

}  // namespace

QByteArray galleryPage(const GallerySettings& settings, const QString& countText,
                       const QList<CatalogueRow>& rows) {
    QBuffer page;
    page.open(QIODevice::WriteOnly);
    if (settings.selfContained)
        writeSelfContainedPage(page, settings, rows);
    else
        writeGalleryPage(page, settings, countText, rows);
    return page.data();
}

PageWriteResult saveGalleryPage(const GallerySettings& settings, const QString& countText,
                                const QList<CatalogueRow>& rows, const FileFactory& makeFile,
                                const ReplaceQuestion& mayReplace) {
    PageWriteResult result;
    result.path = galleryPagePath(settings);
    PageTarget target = examinePageTarget(settings, rows);
    if (target.kind == PageTarget::Kind::OtherPage) {
        if (!(mayReplace && mayReplace(settings.pageFileName))) return result;
        // Anything may have taken the page's place while the user was asked.
        target = examinePageTarget(settings, rows);
    }
    if (target.kind == PageTarget::Kind::Refused) {
        result.error = target.refusal;
        return result;
    }

    const QByteArray page = galleryPage(settings, countText, rows);
    const ReplaceOutcome outcome = replaceFile(result.path, page, makeFile);
    result.ok = outcome.ok;
    if (!outcome.ok) result.error = whyNotWritten(settings, outcome, page.size());
    return result;
}
