// The default list name of an image, over arbitrary file names.
#include <QStringList>

#include "catalogue/stripextension.h"
#include "fuzzinput.h"

namespace {

// The fourteen image extensions whose ending a list name loses, whatever their case.
const QStringList kImageExtensions = {"jpg", "jpeg", "tif", "tiff", "pct", "psd", "gif",
                                      "png", "bmp",  "jpf", "jps",  "pdf", "pbm", "tga"};

bool isImageExtension(const QString& ext) {
    return kImageExtensions.contains(ext, Qt::CaseInsensitive);
}

// The text behind the last dot, or a null text for a name without one.
QString lastExtension(const QString& name) {
    const qsizetype dot = name.lastIndexOf(u'.');
    return dot < 0 ? QString() : name.mid(dot + 1);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    const QString front = input.text();
    // Known extensions are rare in random bytes; half the names end in one, in any case.
    QString name = input.text();
    if (input.byte() % 2) {
        QString ext = kImageExtensions[input.byte() % kImageExtensions.size()];
        for (qsizetype i = 0; i < ext.size(); ++i)
            if (input.byte() % 2) ext[i] = ext[i].toUpper();
        name += u'.' + ext;
    }

    const QString listName = stripExtension(name);
    FUZZ_CHECK(name.startsWith(listName));
    if (listName == name) {
        // Kept whole: no dot, or an ending that is no image extension.
        const QString ext = lastExtension(name);
        FUZZ_CHECK(ext.isNull() || !isImageExtension(ext));
    } else {
        // Shortened: exactly a dot and an image extension are gone, and nothing before them.
        const QString removed = name.mid(listName.size());
        FUZZ_CHECK(removed.startsWith(u'.'));
        FUZZ_CHECK(removed.count(u'.') == 1);
        FUZZ_CHECK(isImageExtension(removed.mid(1)));
    }
    // Only the ending decides, so whatever stands in front of a name with a dot stays as it is.
    if (name.contains(u'.')) FUZZ_CHECK(stripExtension(front + name) == front + listName);
    return 0;
}
