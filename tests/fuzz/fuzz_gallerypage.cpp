// The gallery page over random rows, settings and count labels, in both width modes: titles,
// captions and file names of any characters, names of any bytes.
#include <QBuffer>
#include <algorithm>

#include "fuzzinput.h"
#include "mainwindow/colournames.h"
#include "page/gallerywriter.h"
#include "page/pagetext.h"
#include "platform/nativename.h"
#include "platform/text.h"

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

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    // Counts from below zero to well past the rows, as a count label reads.
    const int count = input.number(-2, 60);
    const int slides = std::max(count, 1);  // the first is written even when the count says none
    const auto colour = [&] {
        return galleryColourNames()[input.byte() % galleryColourNames().size()];
    };
    GallerySettings settings{"/gallery/",  "index.html", input.text(), input.text(),
                             input.text(), colour(),     colour(),     colour()};
    QList<CatalogueRow> rows(input.number(0, 8));
    for (CatalogueRow& row : rows) {
        row.originalName = fileName(input);
        row.caption = input.text();
    }

    QByteArray pages[2];
    for (const bool fullPageWidth : {true, false}) {
        settings.fullPageWidth = fullPageWidth;
        QBuffer buffer(&pages[fullPageWidth]);
        buffer.open(QIODevice::WriteOnly);
        const QString countText = text::Str(count) + (count == 1 ? " image" : " images");
        FUZZ_CHECK(writeGalleryPage(buffer, settings, countText, rows));
        const QByteArray& page = pages[fullPageWidth];
        // Nothing typed or named opens or closes an element, so every tag is the writer's.
        FUZZ_CHECK(page.count("<div") == page.count("</div>") && page.endsWith("</html>\n"));
        FUZZ_CHECK(page.count("<div class='carousel-item") == slides &&
                   page.count("<title>") == 1 && page.count("</title>") == 1 &&
                   page.count("<a class=\"carousel-control-") == 2);
        // Indicator i names slide i; slide k shows the file of row k with its caption as typed,
        // a slide beyond the rows an empty name and caption. The first slide's extra caption
        // reads 0.
        const auto indicators =
            between(page, "<li data-target='#simpleCarousel' data-slide-to='", '\'');
        const auto sources = between(page, "<img src='", '\'');
        const auto captions = between(page, "<h5>", '<');
        FUZZ_CHECK(indicators.size() == std::max(count, 0));
        for (int i = 0; i < indicators.size(); ++i)
            FUZZ_CHECK(indicators[i] == QByteArray::number(i));
        FUZZ_CHECK(sources.size() == slides && captions.size() == slides + 1 && captions[0] == "0");
        for (int k = 0; k < slides; ++k) {
            const CatalogueRow row = rows.value(k);
            FUZZ_CHECK(pageText::fileBytesOfAddress(QString::fromUtf8(sources[k])) ==
                       nativeName::toBytes(row.originalName));
            // Compared with the caption as UTF-8 carries it: a lone surrogate cannot come through.
            FUZZ_CHECK(pageText::unescaped(QString::fromUtf8(captions[k + 1])) ==
                       QString::fromUtf8(row.caption.toUtf8()));
        }
    }
    // A page within a container differs by the container's opening and closing lines alone.
    FUZZ_CHECK(pages[false].count('\n') == pages[true].count('\n') + 2);
    FUZZ_CHECK(pages[false].count("<div class='container'>") == 1 &&
               !pages[true].contains("<div class='container'>"));
    return 0;
}
