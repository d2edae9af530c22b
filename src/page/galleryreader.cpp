#include "page/galleryreader.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <utility>

#include "page/pagelayout.h"
#include "page/pagetext.h"
#include "page/selfcontainedpage.h"
#include "page/selfcontainedreader.h"

namespace {

// Larger than any page of a folder of pictures; an HTML file past it is not read at all.
constexpr qint64 kLargestPage = 64 * 1024 * 1024;

const QStringList& pageFileNames() {
    static const QStringList patterns = {QStringLiteral("*.html"), QStringLiteral("*.htm")};
    return patterns;
}

struct ColouredText {
    QString colour;
    QString text;
};

// The colour as it stands in the line, and the text decoded.
std::optional<ColouredText> colouredText(QStringView line, const pageLayout::ColouredLine& layout) {
    const std::optional<pageLayout::ColouredLine::Fields> fields = layout.fieldsOf(line);
    if (!fields) return std::nullopt;
    return ColouredText{fields->colour.toString(), pageText::unescapedLine(fields->text)};
}

// The writer's lines in the order they come, each found by its fixed parts.
enum class Stage { Title, Body, Heading, SubHeading, Carousel, Slides, Controls, Done };

}  // namespace

std::optional<GalleryPage> readGalleryPage(const QByteArray& bytes) {
    const QString text = QString::fromUtf8(bytes);
    if (text.startsWith(QLatin1String(kSelfContainedPageOpening)))
        return readSelfContainedPage(text);
    const QStringView carouselLine = pageLayout::carouselOpening().first();
    const QStringView controlsLine = QStringView(pageLayout::carouselControls().first()).trimmed();

    GalleryPage page;
    GallerySettings& settings = page.settings;
    Stage stage = Stage::Title;
    // The writer puts each slide's caption on the line right after its image.
    bool captionDue = false;
    for (QStringView line : QStringView(text).tokenize(u'\n')) {
        line = line.trimmed();
        switch (stage) {
            case Stage::Title:
                if (const auto title = pageLayout::kTitle.fieldOf(line)) {
                    settings.headTitle = pageText::unescapedLine(*title);
                    stage = Stage::Body;
                }
                break;
            case Stage::Body:
                if (const auto colour = pageLayout::kBody.fieldOf(line)) {
                    settings.backgroundColour = colour->toString();
                    stage = Stage::Heading;
                }
                break;
            case Stage::Heading:
                if (line == pageLayout::kContainer) settings.fullWidth = false;
                if (auto heading = colouredText(line, pageLayout::kHeading)) {
                    settings.titleColour = std::move(heading->colour);
                    settings.title = std::move(heading->text);
                    stage = Stage::SubHeading;
                }
                break;
            case Stage::SubHeading:
                if (auto sub = colouredText(line, pageLayout::kSubheading)) {
                    settings.subtitle = std::move(sub->text);
                    stage = Stage::Carousel;
                }
                break;
            case Stage::Carousel:
                if (line == carouselLine) stage = Stage::Slides;
                break;
            case Stage::Slides:
                if (captionDue) {
                    auto caption = colouredText(line, pageLayout::kCaption);
                    if (!caption) return std::nullopt;
                    if (page.slides.size() == 1)
                        settings.captionColour = std::move(caption->colour);
                    page.slides.last().caption = std::move(caption->text);
                    captionDue = false;
                } else if (const auto address = pageLayout::kImage.fieldOf(line)) {
                    page.slides.append(
                        {pageText::fileNameOfAddress(address->toString()), QString()});
                    captionDue = true;
                } else if (line == controlsLine && !page.slides.isEmpty()) {
                    stage = Stage::Controls;
                }
                break;
            case Stage::Controls:
                if (line == pageLayout::kPageEnd) stage = Stage::Done;
                break;
            case Stage::Done:
                break;
        }
    }
    if (stage != Stage::Done) return std::nullopt;
    // The writer fills the first slide with an empty name when the gallery has no image.
    page.slides.removeIf([](const PageSlide& slide) { return slide.fileName.isEmpty(); });
    return page;
}

std::optional<GalleryPageFile> readGalleryPageFile(const QString& path) {
    const QFileInfo info(path);
    if (!info.isFile() || !QDir::match(pageFileNames(), info.fileName())) return std::nullopt;
    QFile file(path);
    if (file.size() > kLargestPage || !file.open(QIODevice::ReadOnly)) return std::nullopt;
    std::optional<GalleryPage> page = readGalleryPage(file.readAll());
    if (!page) return std::nullopt;
    return GalleryPageFile{path, std::move(*page)};
}

std::optional<GalleryPageFile> newestGalleryPageIn(const QString& folder) {
    const QFileInfoList candidates =
        QDir(folder).entryInfoList(pageFileNames(), QDir::Files | QDir::Hidden, QDir::Time);
    for (const QFileInfo& candidate : candidates)
        if (auto found = readGalleryPageFile(candidate.filePath())) return found;
    return std::nullopt;
}
