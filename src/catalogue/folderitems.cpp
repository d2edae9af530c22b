#include "catalogue/folderitems.h"

#include <QCollator>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <algorithm>

QStringList folderItemsByName(const QString& folder) {
    if (!QFileInfo(folder).isDir()) return {};
    QStringList names = QDir(folder).entryList(
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::NoSort);
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
