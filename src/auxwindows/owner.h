#pragma once

#include <QString>

// The texts that belong to whoever publishes Velmora: the about window shows them and the
// donation button opens an address on the donation host. Change them here and nowhere else.
namespace owner {

inline const QString maker = QStringLiteral("Velmora authors");
// The maker's web site, shown and opened as it is written.
inline const QString webAddress = QStringLiteral("https://velmora.example");
// A one-line personal dedication under the description; empty for none.
inline const QString dedication = QString();
inline const QString donationHost = QStringLiteral("donate.velmora.example");

}  // namespace owner
