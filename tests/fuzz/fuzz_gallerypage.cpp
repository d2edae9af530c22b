// The gallery page over random rows, settings and count labels, in both width modes: titles,
// captions and file names of any characters, names of any bytes.
#include <QBuffer>
#include <QList>
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

// Indicator i names slide i, from 0 up; slide k shows the file of row k with its caption as
// typed, and a slide beyond the rows an empty name and caption. The first slide's extra caption
// reads 0.
void slidesShowTheRowsInOrder(const QByteArray& page, const QList<CatalogueRow>& rows, int count) {
    const int slides = std::max(count, 1);  // the first is written even when the count says none
    const QList<QByteArray> indicators =
        between(page, "<li data-target='#simpleCarousel' data-slide-to='", '\'');
    const QList<QByteArray> sources = between(page, "<img src='", '\'');
    const QList<QByteArray> captions = between(page, "<h5>", '<');
    FUZZ_CHECK(indicators.size() == std::max(count, 0));
    for (int i = 0; i < indicators.size(); ++i) FUZZ_CHECK(indicators[i] == QByteArray::number(i));
    FUZZ_CHECK(sources.size() == slides && captions.size() == slides + 1 && captions[0] == "0");
    for (int k = 0; k < slides; ++k) {
        const CatalogueRow row = k < rows.size() ? rows[k] : CatalogueRow();
        FUZZ_CHECK(pageText::fileBytesOfAddress(QString::fromUtf8(sources[k])) ==
                   nativeName::toBytes(row.originalName));
        // Compared with the caption as UTF-8 carries it: a lone surrogate cannot come through.
        FUZZ_CHECK(pageText::unescaped(QString::fromUtf8(captions[k + 1])) ==
                   QString::fromUtf8(row.caption.toUtf8()));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    // Counts from below zero to well past the rows, as a count label reads.
    const int count = input.number(-2, 60);
    const QString countText = text::Str(count) + (count == 1 ? " image" : " images");
    GallerySettings settings;
    settings.galleryPath = "/gallery/";
    settings.galleryFileName = "index.html";
    settings.galleryHTMLtitle = input.text();
    settings.galleryTitle = input.text();
    settings.gallerySubTitle = input.text();
    const QStringList& colours = galleryColourNames();
    for (QString* colour : {&settings.bgColor, &settings.textColor, &settings.captionColor})
        *colour = colours[input.byte() % colours.size()];
    QList<CatalogueRow> rows(input.number(0, 8));
    for (CatalogueRow& row : rows) {
        row.originalName = fileName(input);
        row.caption = input.text();
    }

    QByteArray pages[2];
    for (const bool fullPageWidth : {true, false}) {
        settings.fullPageWidth = fullPageWidth;
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        FUZZ_CHECK(writeGalleryPage(buffer, settings, countText, rows));
        const QByteArray page = buffer.data();
        // Nothing typed or named opens or closes an element, so every tag is the writer's.
        FUZZ_CHECK(page.count("<div") == page.count("</div>"));
        FUZZ_CHECK(page.count("<div class='carousel-item") == std::max(count, 1));
        FUZZ_CHECK(page.count("<a class=\"carousel-control-") == 2);
        FUZZ_CHECK(page.count("<title>") == 1 && page.count("</title>") == 1);
        slidesShowTheRowsInOrder(page, rows, count);
        FUZZ_CHECK(page.endsWith("</html>\n"));
        pages[fullPageWidth] = page;
    }
    // A page within a container differs by the container's opening and closing lines alone.
    FUZZ_CHECK(pages[false].count('\n') == pages[true].count('\n') + 2);
    FUZZ_CHECK(pages[false].count("<div class='container'>") ==
               pages[true].count("<div class='container'>") + 1);
    return 0;
}
