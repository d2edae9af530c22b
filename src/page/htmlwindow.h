#pragma once

#include <QString>

// The fixed blocks of the gallery page. Within a block the lines are separated by carriage
// returns, and every block ends with one.
namespace htmlWindow {

inline const QString packageCdnHost = QStringLiteral("cdn.jsdelivr.net");
inline const QString jqueryCdnHost = QStringLiteral("code.jquery.com");

const QString& head01();
const QString& head02();
const QString& carousel01();
// Kept with the other blocks; the page does not use it.
const QString& carousel02();
const QString& bodyClose();

}  // namespace htmlWindow
