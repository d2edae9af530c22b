// The page reader over any bytes, and over the pages written for random galleries.
#include "fuzzinput.h"
#include "platform/nativename.h"
#include "support/pagebytes.h"

namespace {

// A text as a one-line field holds it: well-formed, without line breaks.
QString fieldText(FuzzInput& input) {
    return QString::fromUtf8(input.text().toUtf8()).remove(u'\n').remove(u'\r');
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // Any bytes are read or refused; what is read writes a page that reads back the same.
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    if (const std::optional<GalleryPage> read = readGalleryPage(bytes))
        FUZZ_CHECK(readGalleryPage(pageBytes(*read)) == read);

    // A gallery made of the same bytes comes back whole, and writes the same page again.
    FuzzInput input(data, size);
    GalleryPage gallery;
    GallerySettings& settings = gallery.settings;
    for (QString* text :
         {&settings.galleryHTMLtitle, &settings.galleryTitle, &settings.gallerySubTitle,
          &settings.bgColor, &settings.textColor, &settings.captionColor})
        *text = fieldText(input);
    settings.fullPageWidth = input.byte() % 2 == 0;
    for (int slides = input.number(0, 12); slides > 0; --slides) {
        QByteArray name;  // of any bytes, as a folder may hold it: not every name is UTF-8
        for (char byte = char(input.byte()); byte != 0; byte = char(input.byte())) name += byte;
        PageSlide slide{nativeName::fromBytes(name), fieldText(input)};
        // Every file has a name; a slide without one is the writer's stand-in for no image.
        if (!slide.fileName.isEmpty()) gallery.slides.append(slide);
    }
    const QByteArray page = pageBytes(gallery);
    const std::optional<GalleryPage> read = readGalleryPage(page);
    FUZZ_CHECK(read == gallery);
    FUZZ_CHECK(pageBytes(*read) == page);
    return 0;
}
