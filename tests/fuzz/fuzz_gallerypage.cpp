// The gallery page over random rows, settings and count labels, in both width modes: titles,
// captions and file names of any characters, names of any bytes. Then the page reader, over the
// input's own bytes and over the pages written.
#include <QBuffer>
#include <algorithm>

#include "fuzzinput.h"
#include "page/colournames.h"
#include "platform/nativename.h"
#include "platform/text.h"
#include "support/pagebytes.h"

namespace {

// A file name as a folder may hold it: any bytes but the separator, up to a zero; or, now and
// then, any text, as a page read back might give one.
QString fileName(FuzzInput& input) {
    if (input.byte() % 2 == 1) return input.text();
    QByteArray bytes;
    for (char byte = char(input.byte()); byte != 0; byte = char(input.byte()))
        if (byte != '/') bytes += byte;
    return nativeName::fromBytes(bytes);
}

// What stands between each `open` and the next `close` after it, in page order.
QList<QByteArray> between(const QByteArray& page, const QByteArray& open, char close) {
    QList<QByteArray> found;
    for (qsizetype at = page.indexOf(open); at >= 0; at = page.indexOf(open, at + 1)) {
        const qsizetype from = at + open.size();
        found << page.mid(from, page.indexOf(close, from) - from);
    }
    return found;
}

// A text as a one-line field holds it: well-formed, without line breaks.
QString fieldText(const QString& text) {
    return QString::fromUtf8(text.toUtf8()).remove(u'\n').remove(u'\r');
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // Any bytes are read or refused; what is read writes a page that reads back the same.
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    if (const std::optional<GalleryPage> read = readGalleryPage(bytes))
        FUZZ_CHECK(readGalleryPage(pageBytes(*read)) == read);

    FuzzInput input(data, size);
    // Counts from below zero to well past the rows, as a count label reads.
    const int count = input.number(-2, 60);
    const int slides = std::max(count, 1);  // the first is written even when the count says none
    const auto colour = [&] {
        return galleryColourNames()[input.byte() % galleryColourNames().size()];
    };
    GalleryPage gallery{
        {{}, {}, input.text(), input.text(), input.text(), colour(), colour(), colour()}, {}};
    for (int rows = input.number(0, 8); rows > 0; --rows)
        gallery.slides.append({fileName(input), input.text()});

    QByteArray pages[2];
    for (const bool fullWidth : {true, false}) {
        gallery.settings.fullWidth = fullWidth;
        QBuffer buffer(&pages[fullWidth]);
        buffer.open(QIODevice::WriteOnly);
        const QString countText = QString::number(count) + (count == 1 ? " image" : " images");
        FUZZ_CHECK(writeGalleryPage(buffer, gallery.settings, countText, rowsOf(gallery)));
        const QByteArray& page = pages[fullWidth];
        // Nothing typed or named opens or closes an element, so every tag is the writer's.
        FUZZ_CHECK(page.count("<div") == page.count("</div>") && page.endsWith("</html>\n"));
        FUZZ_CHECK(page.count("<div class='carousel-item") == slides &&
                   page.count("<title>") == 1 && page.count("</title>") == 1 &&
                   page.count("<a class=\"carousel-control-") == 2);
        // Indicator i names slide i, one a counted image.
        const auto indicators =
            between(page, "<li data-target='#simpleCarousel' data-slide-to='", '\'');
        FUZZ_CHECK(indicators.size() == std::max(count, 0));
        for (int i = 0; i < indicators.size(); ++i)
            FUZZ_CHECK(indicators[i] == QByteArray::number(i));
        FUZZ_CHECK(between(page, "<img src='", '\'').size() == slides);
    }
    // A page within a container differs by the container's opening and closing lines alone.
    FUZZ_CHECK(pages[false].count('\n') == pages[true].count('\n') + 2);
    FUZZ_CHECK(pages[false].count("<div class='container'>") == 1 &&
               !pages[true].contains("<div class='container'>"));

    // Every name, as a folder holds it, and every text, as a field holds it, reads back from the
    // page as it went in; and what is read writes the same page again.
    GallerySettings& settings = gallery.settings;
    for (QString* text : {&settings.headTitle, &settings.title, &settings.subtitle})
        *text = fieldText(*text);
    for (PageSlide& slide : gallery.slides) {
        slide.fileName = nativeName::fromBytes(nativeName::toBytes(slide.fileName));
        slide.caption = fieldText(slide.caption.value_or(QString()));
    }
    // A slide without a name is the writer's stand-in for no image.
    gallery.slides.removeIf([](const PageSlide& slide) { return slide.fileName.isEmpty(); });
    const QByteArray page = pageBytes(gallery);
    const std::optional<GalleryPage> read = readGalleryPage(page);
    FUZZ_CHECK(read == gallery);
    FUZZ_CHECK(pageBytes(*read) == page);

    // So does the self-contained page, where a blank caption is none.
    settings.selfContained = true;
    for (PageSlide& slide : gallery.slides)
        if (slide.caption->trimmed().isEmpty()) slide.caption->clear();
    const QByteArray selfContained = pageBytes(gallery);
    FUZZ_CHECK(readGalleryPage(selfContained) == gallery);
    return 0;
}
