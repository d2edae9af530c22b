#include "page/selfcontainedreader.h"

#include <QRegularExpression>

#include "page/pagetext.h"

namespace {

QRegularExpression wholeLine(const char* pattern) {
    return QRegularExpression(u'^' + QString::fromLatin1(pattern) + u'$');
}

}  // namespace

std::optional<GalleryPage> readSelfContainedPage(QStringView page) {
    // The writer's lines that carry the settings, in the order it writes them; the slides come
    // after them, one a line, and the page ends with its closing tag.
    static const QRegularExpression title = wholeLine("<title>(.*)</title>");
    static const QRegularExpression body = wholeLine(
        "<body class='(full|margins)' style='--page:([^;']*);--titles:([^;']*);"
        "--captions:([^;']*);--band:[^']*'>");
    static const QRegularExpression heading = wholeLine("<h1>(.*)</h1>");
    static const QRegularExpression subheading = wholeLine("<p>(.*)</p>");
    static const QRegularExpression slide = wholeLine(
        "<figure class='slide(?: on)?' [^>]*><img (?:data-)?src='([^']*)'[^>]*>"
        "<figcaption aria-hidden='true'>(.*)</figcaption></figure>");
    const QRegularExpression* const settingLines[] = {&title, &body, &heading, &subheading};

    GalleryPage read;
    GallerySettings& settings = read.settings;
    settings.selfContained = true;
    std::size_t settingsRead = 0;
    for (QStringView line : page.tokenize(u'\n')) {
        line = line.trimmed();
        if (settingsRead < std::size(settingLines)) {
            const QRegularExpressionMatch match = settingLines[settingsRead]->match(line);
            if (!match.hasMatch()) continue;
            const QRegularExpression& found = *settingLines[settingsRead++];
            if (&found == &title) {
                settings.headTitle = pageText::unescapedLine(match.capturedView(1));
            } else if (&found == &body) {
                settings.fullWidth = match.capturedView(1) == u"full";
                settings.backgroundColour = pageText::unescapedLine(match.capturedView(2));
                settings.titleColour = pageText::unescapedLine(match.capturedView(3));
                settings.captionColour = pageText::unescapedLine(match.capturedView(4));
            } else if (&found == &heading) {
                settings.title = pageText::unescapedLine(match.capturedView(1));
            } else {
                settings.subtitle = pageText::unescapedLine(match.capturedView(1));
            }
        } else if (line.startsWith(u"<figure")) {
            // A slide that lost its image or caption would drop a photo from the gallery.
            const QRegularExpressionMatch match = slide.match(line);
            if (!match.hasMatch()) return std::nullopt;
            read.slides.append({pageText::fileNameOfAddress(match.captured(1)),
                                pageText::unescapedLine(match.capturedView(2))});
        } else if (line == u"</html>") {
            return read;
        }
    }
    return std::nullopt;
}
