#include "catalogue/folderitems.h"

#include <dirent.h>

#include <QCollator>
#include <QDir>
#include <QLocale>
#include <algorithm>
#include <memory>

#include "platform/nativename.h"

namespace {
// The names as the file system holds them: Qt's own listing reads every name as UTF-8 and
// loses the files whose names are not.
QStringList namesIn(const QString& folder) {
    const std::unique_ptr<DIR, int (*)(DIR*)> dir(
        ::opendir(nativeName::toBytes(folder).constData()), ::closedir);
    QStringList names;
    if (!dir) return names;
    while (const dirent* entry = ::readdir(dir.get())) {
        const QByteArray name(entry->d_name);
        if (name != "." && name != "..") names << nativeName::fromBytes(name);
    }
    return names;
}
}  // namespace

QStringList folderItemsByName(const QString& folder) {
    QStringList names = namesIn(folder);
    // The C locale compares plain character codes, numbers included; a file manager still sorts
    // by value there, so take the common order of English instead.
    const QLocale locale =
        QLocale().language() == QLocale::C ? QLocale(QLocale::English) : QLocale();
    QCollator collator(locale);
    collator.setNumericMode(true);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    // Names that collate alike ("a.png", "A.png") keep one fixed order between them.
    std::sort(names.begin(), names.end(), [&collator](const QString& a, const QString& b) {
        const int order = collator.compare(a, b);
        return order != 0 ? order < 0 : a < b;
    });
    return names;
}

QString cleanFolder(const QString& folder) {
    return QDir::cleanPath(QDir::fromNativeSeparators(folder));
}
