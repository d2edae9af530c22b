#include "page/selfcontainedpage.h"

#include <QColor>
#include <QFile>
#include <QIODevice>
#include <QSize>
#include <cmath>
#include <optional>

#include "catalogue/stripextension.h"
#include "page/pagetext.h"

// Resources of a static library are linked in only when something asks for them, outside any
// namespace.
static void loadSelfContainedResources() {
    Q_INIT_RESOURCE(selfcontained);
}

namespace {

QString resourceText(const QString& name) {
    loadSelfContainedResources();
    QFile file(QStringLiteral(":/selfcontained/") + name);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

// Each field stays on its line, so that the page can be read back line by line.
QString content(const QString& text) {
    return pageText::escaped(pageText::oneLine(text));
}
QString attribute(const QString& text) {
    return pageText::escapedAttribute(pageText::oneLine(text));
}

// The image's size from its cells, when both hold a positive whole number.
std::optional<QSize> pixelSize(const CatalogueRow& row) {
    bool wide = false, high = false;
    const QSize size(row.imageWidth.toInt(&wide), row.imageHeight.toInt(&high));
    return wide && high && !size.isEmpty() ? std::optional(size) : std::nullopt;
}

// The band behind the captions: dark for light caption colours, light for dark ones, whichever
// gives the caption more contrast; by WCAG's relative luminance they give the same at about 0.18.
QString captionBand(const QString& captionColor) {
    const QColor colour = QColor::fromString(captionColor);
    const auto linear = [](float c) {
        return c <= 0.04045f ? c / 12.92f : std::pow((c + 0.055f) / 1.055f, 2.4f);
    };
    const float luminance = 0.2126f * linear(colour.redF()) + 0.7152f * linear(colour.greenF()) +
                            0.0722f * linear(colour.blueF());
    return !colour.isValid() || luminance > 0.18f ? QStringLiteral("rgb(0 0 0 / .8)")
                                                  : QStringLiteral("rgb(255 255 255 / .85)");
}

}  // namespace

bool writeSelfContainedPage(QIODevice& device, const GallerySettings& settings,
                            const QList<CatalogueRow>& rows) {
    const QString total = QString::number(rows.size());
    // The stage takes the first photo's proportions, the one seen at the opening.
    const std::optional<QSize> first = rows.isEmpty() ? std::nullopt : pixelSize(rows[0]);
    const QSize ratio = first.value_or(QSize(3, 2));

    QString page = QString::fromLatin1(kSelfContainedPageOpening);
    page += QStringLiteral(
        "<head>\n"
        "<meta charset='utf-8'>\n"
        "<meta name='viewport' content='width=device-width, initial-scale=1'>\n"
        "<meta name='generator' content='Velmora'>\n"
        // No icon of its own, so that browsers do not ask the host for one.
        "<link rel='icon' href='data:,'>\n");
    page += "<title>" + content(settings.headTitle) + "</title>\n";
    page += "<style>\n" + resourceText(QStringLiteral("page.css")) + "</style>\n";
    // Without a script only the first photo shows, and controls that could not work are left out.
    page += "<noscript><style>.prev,.next,.bar{display:none}</style></noscript>\n</head>\n";
    page +=
        QStringLiteral("<body class='%1' style='--page:%2;--titles:%3;--captions:%4;--band:%5'>\n")
            .arg(settings.fullWidth ? "full" : "margins", attribute(settings.backgroundColour),
                 attribute(settings.titleColour), attribute(settings.captionColour),
                 captionBand(settings.captionColour));
    page += "<header>\n<h1>" + content(settings.title) + "</h1>\n";
    page += "<p>" + content(settings.subtitle) + "</p>\n</header>\n<main>\n";
    page += "<section class='carousel' aria-roledescription='carousel' aria-label='Photos'>\n";
    page += QStringLiteral("<div class='stage' style='aspect-ratio:%1/%2'>\n")
                .arg(ratio.width())
                .arg(ratio.height());
    page += "<div class='slides' aria-live='off'>\n";
    for (qsizetype i = 0; i < rows.size(); ++i) {
        const CatalogueRow& row = rows[i];
        const QString caption = row.caption.trimmed().isEmpty() ? QString() : row.caption;
        const std::optional<QSize> size = pixelSize(row);
        // The first photo is asked for at once and first of all; the script asks for the others
        // as they come near.
        page += QStringLiteral(
                    "<figure class='slide%1' aria-roledescription='slide' "
                    "aria-label='%2 of %3'><img %4='%5'%6 alt='%7'%8>")
                    .arg(i == 0 ? " on" : "", QString::number(i + 1), total,
                         i == 0 ? "src" : "data-src", pageText::addressOfFileName(row.originalName),
                         size ? QStringLiteral(" width='%1' height='%2'")
                                    .arg(size->width())
                                    .arg(size->height())
                              : QString(),
                         attribute(caption.isEmpty() ? stripExtension(row.originalName) : caption),
                         i == 0 ? " fetchpriority='high'" : "");
        // The caption is read out as the photo's alternative text already.
        page += "<figcaption aria-hidden='true'>" + content(caption) + "</figcaption></figure>\n";
    }
    page +=
        "</div>\n"
        "<button type='button' class='prev' aria-label='Previous photo'></button>\n"
        "<button type='button' class='next' aria-label='Next photo'></button>\n"
        "</div>\n<div class='bar'>\n<button type='button' class='pause'>Pause</button>\n";
    for (qsizetype i = 0; i < rows.size(); ++i)
        page += QStringLiteral(
                    "<button type='button' class='dot' aria-label='Photo %1 of %2'%3>"
                    "</button>\n")
                    .arg(QString::number(i + 1), total, i == 0 ? " aria-current='true'" : "");
    page += "</div>\n</section>\n</main>\n";
    page += "<script>\n" + resourceText(QStringLiteral("page.js")) + "</script>\n";
    page += "</body>\n</html>\n";
    const QByteArray bytes = page.toUtf8();
    return device.write(bytes) == bytes.size();
}
