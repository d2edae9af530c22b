// The gallery page over random rows, settings and count labels, in both width modes.
#include <QBuffer>
#include <QList>
#include <algorithm>

#include "fuzzinput.h"
#include "page/gallerywriter.h"
#include "page/pagetext.h"
#include "platform/text.h"

namespace {

// The page takes titles, captions and names verbatim as markup, so a text holding a tag could
// open or close elements of its own; the texts made here hold none, and every tag counted below
// is the writer's.
QString withoutTags(QString text) {
    return text.remove(u'<').remove(u'>');
}

QByteArray pageOf(const GallerySettings& settings, const QString& countText,
                  const QList<CatalogueRow>& rows) {
    QBuffer page;
    page.open(QIODevice::WriteOnly);
    FUZZ_CHECK(writeGalleryPage(page, settings, countText, rows));
    return page.data();
}

// Strict UTF-8: no stray continuation byte, no overlong form, no surrogate, nothing past
// U+10FFFF, no sequence cut short.
bool isValidUtf8(const QByteArray& bytes) {
    const auto* s = reinterpret_cast<const unsigned char*>(bytes.constData());
    const qsizetype n = bytes.size();
    for (qsizetype i = 0; i < n;) {
        const unsigned char lead = s[i];
        int more;
        char32_t code;
        if (lead < 0x80) {
            ++i;
            continue;
        } else if ((lead & 0xE0) == 0xC0) {
            more = 1;
            code = lead & 0x1F;
        } else if ((lead & 0xF0) == 0xE0) {
            more = 2;
            code = lead & 0x0F;
        } else if ((lead & 0xF8) == 0xF0) {
            more = 3;
            code = lead & 0x07;
        } else {
            return false;
        }
        if (i + more >= n) return false;
        for (int k = 1; k <= more; ++k) {
            if ((s[i + k] & 0xC0) != 0x80) return false;
            code = code << 6 | (s[i + k] & 0x3F);
        }
        const char32_t smallest[] = {0, 0x80, 0x800, 0x10000};
        if (code < smallest[more] || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF))
            return false;
        i += more + 1;
    }
    return true;
}

// Indicator i names slide i, from 0 up; the first is the active one.
void indicatorsNameTheSlidesInOrder(const QByteArray& page, int slides) {
    const QByteArray slideTo = "data-slide-to='";
    int expected = 0;
    for (qsizetype at = page.indexOf("<li "); at >= 0; at = page.indexOf("<li ", at + 1)) {
        const qsizetype found = page.indexOf(slideTo, at);
        FUZZ_CHECK(found >= 0);
        const qsizetype number = found + slideTo.size();
        const QByteArray named = page.mid(number, page.indexOf('\'', number) - number);
        FUZZ_CHECK(named == QByteArray::number(expected));
        ++expected;
    }
    FUZZ_CHECK(expected == slides);
}

// Slide k shows the file of row k, and a slide beyond the rows an empty name.
void slidesShowTheRowsInOrder(const QByteArray& page, const QList<CatalogueRow>& rows, int slides) {
    const QByteArray source = "<img src='";
    int slide = 0;
    for (qsizetype at = page.indexOf(source); at >= 0; at = page.indexOf(source, at + 1)) {
        const QString name = slide < rows.size() ? rows[slide].originalName : QString();
        const qsizetype from = at + source.size();
        const QString address = QString::fromUtf8(page.mid(from, page.indexOf('\'', from) - from));
        // Compared with the name as a file system holds it, in UTF-8.
        FUZZ_CHECK(pageText::fileNameOfAddress(address) == QString::fromUtf8(name.toUtf8()));
        ++slide;
    }
    FUZZ_CHECK(slide == slides);
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
    settings.galleryHTMLtitle = withoutTags(input.text());
    settings.galleryTitle = withoutTags(input.text());
    settings.gallerySubTitle = withoutTags(input.text());
    settings.bgColor = withoutTags(input.text());
    settings.textColor = withoutTags(input.text());
    settings.captionColor = withoutTags(input.text());
    QList<CatalogueRow> rows(input.number(0, 8));
    for (CatalogueRow& row : rows) {
        row.originalName = withoutTags(input.text());
        row.pictureName = row.originalName;
        row.caption = withoutTags(input.text());
    }

    // The first slide is written even when the count says there is none.
    const int indicators = std::max(count, 0);
    const int slides = std::max(count, 1);
    QByteArray pages[2];
    for (const bool fullPageWidth : {true, false}) {
        settings.fullPageWidth = fullPageWidth;
        const QByteArray page = pageOf(settings, countText, rows);
        FUZZ_CHECK(page.count("<div") == page.count("</div>"));
        FUZZ_CHECK(page.count("<div class='carousel-item") == slides);
        indicatorsNameTheSlidesInOrder(page, indicators);
        slidesShowTheRowsInOrder(page, rows, slides);
        FUZZ_CHECK(isValidUtf8(page));
        FUZZ_CHECK(page.endsWith("</html>\n"));
        pages[fullPageWidth] = page;
    }
    // A page within a container differs by the container's opening and closing lines alone.
    FUZZ_CHECK(pages[false].count('\n') == pages[true].count('\n') + 2);
    FUZZ_CHECK(pages[false].count("<div class='container'>") ==
               pages[true].count("<div class='container'>") + 1);
    return 0;
}
