// The preference file reader over arbitrary bytes.
#include <QBuffer>

#include "app/savedpreferences.h"
#include "fuzzinput.h"
#include "platform/text.h"

namespace {

SavedPreferences read(QByteArray bytes) {
    QBuffer file(&bytes);
    file.open(QIODevice::ReadOnly);
    return readSavedPreferences(file);
}

// The seven lines the program writes for these values.
QByteArray written(const SavedPreferences& saved) {
    using text::Str;
    const QString settings = QStringList{Str(saved.lastSize), Str(saved.imageQuality),
                                         saved.imageFormat, saved.savePath, saved.openPrefs}
                                 .join(u',');
    const QString size = Str(saved.windowSize.width()) + u',' + Str(saved.windowSize.height());
    return ("# Corvanes version\n4.0\n# Last resize dimension, image quality, image format, "
            "save path, opend prefs on startup\n" +
            settings + "\n# Main Window width and height\n" + size + "\n# EOF\n")
        .toUtf8();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const SavedPreferences saved = read(bytes);

    // A width or height of 0 would make the main window vanish; it is replaced when read.
    FUZZ_CHECK(saved.windowSize.width() != 0 && saved.windowSize.height() != 0);
    // A field never swallows its neighbours.
    for (const QString& field : {saved.imageFormat, saved.savePath, saved.openPrefs})
        FUZZ_CHECK(!field.contains(u',') && !field.contains(u'\n'));

    // Whatever was read, written again, reads back the same. The one exception is a last text
    // of its line that ends in a carriage return: written, that return joins the line end.
    if (saved.openPrefs.endsWith(u'\r')) return 0;
    const SavedPreferences again = read(written(saved));
    FUZZ_CHECK(again.lastSize == saved.lastSize && again.imageQuality == saved.imageQuality);
    FUZZ_CHECK(again.imageFormat == saved.imageFormat && again.savePath == saved.savePath &&
               again.openPrefs == saved.openPrefs);
    FUZZ_CHECK(again.windowSize == saved.windowSize);
    return 0;
}
