// The preference file reader over arbitrary bytes.
#include <QBuffer>
#include <tuple>

#include "fuzzinput.h"
#include "platform/text.h"
#include "preferences/preferencefile.h"

namespace {

auto read(QByteArray bytes) {
    QBuffer file(&bytes);
    file.open(QIODevice::ReadOnly);
    const SavedPreferences p = readSavedPreferences(file);
    return std::tuple(p.previewSize, p.imageQuality, p.imageFormat, p.savePath, p.openPrefs,
                      p.windowSize);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto saved = read(QByteArray(reinterpret_cast<const char*>(data), qsizetype(size)));
    const auto& [previewSize, quality, format, path, openPrefs, windowSize] = saved;

    // A width or height of 0 would make the main window vanish; it is replaced when read.
    FUZZ_CHECK(windowSize.width() != 0 && windowSize.height() != 0);
    // A field never swallows its neighbours.
    for (const QString& field : {format, path, openPrefs})
        FUZZ_CHECK(!field.contains(u',') && !field.contains(u'\n'));

    // Whatever was read, written again in the file's seven lines, reads back the same. The one
    // exception is a last text of its line that ends in a carriage return: written, that return
    // joins the line end.
    if (openPrefs.endsWith(u'\r')) return 0;
    const QStringList lines = {
        "#",
        "4.0",
        "#",
        QStringList{QString::number(previewSize), QString::number(quality), format, path, openPrefs}
            .join(u','),
        "#",
        QString::number(windowSize.width()) + u',' + QString::number(windowSize.height()),
        "# EOF"};
    FUZZ_CHECK(read(lines.join(u'\n').toUtf8()) == saved);
    return 0;
}
