// The default list name of an image, over arbitrary file names.
#include <QRegularExpression>
#include <QStringList>

#include "catalogue/stripextension.h"
#include "fuzzinput.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    const QString front = input.text();
    // Image extensions are rare in random bytes; half the names end in one, in any case.
    QString name = input.text();
    QString added;
    if (input.byte() % 2) {
        const QStringList some = {"jpg", "jpeg", "tif", "tiff", "pct", "psd", "gif",
                                  "png", "bmp",  "jpf", "jps",  "pdf", "pbm", "tga"};
        added = some[input.byte() % some.size()];
        for (QChar& letter : added)
            if (input.byte() % 2) letter = letter.toUpper();
        name += u'.' + added;
    }

    const QString listName = stripExtension(name);
    FUZZ_CHECK(name.startsWith(listName));
    if (!added.isEmpty()) FUZZ_CHECK(listName.size() == name.size() - added.size() - 1);
    // What goes is a dot and the three or four letters behind it, whose case never counts.
    static const QRegularExpression kEnding("\\A(\\.[A-Za-z]{3,4})?\\z");
    FUZZ_CHECK(kEnding.match(name.mid(listName.size())).hasMatch());
    QString flipped = name;
    for (qsizetype i = name.lastIndexOf(u'.') + 1; i < name.size(); ++i)
        if (name[i].unicode() < 128)
            flipped[i] = name[i].isUpper() ? name[i].toLower() : name[i].toUpper();
    FUZZ_CHECK(stripExtension(flipped).size() == listName.size());
    // Only the ending decides, so whatever stands in front of a name with a dot stays as it is.
    if (name.contains(u'.')) FUZZ_CHECK(stripExtension(front + name) == front + listName);
    return 0;
}
