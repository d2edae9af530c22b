#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

class QFile;

// File names and paths as text that holds every name a file system can. A byte that is not part
// of well-formed UTF-8 (a Latin-1 name from an old camera card, say) is kept as a lone surrogate
// from U+DC80 to U+DCFF, which no well-formed text contains, so that a name goes from the disk to
// text and back to the disk unchanged.
namespace nativeName {

QString fromBytes(const QByteArray& bytes);
QByteArray toBytes(const QString& name);
// Whether the text keeps bytes that are no text: Qt's own file functions, which speak UTF-8,
// cannot reach such a file.
bool keepsBytes(const QString& name);
// The text to show a person: every kept byte appears as the replacement character.
QString shown(const QString& name);

// Whether `path` names a regular file, or a folder, after following links.
bool isFile(const QString& path);
bool isFolder(const QString& path);
// The program's arguments, each taken as the system's file name, whatever its bytes.
QStringList fromArguments(int argc, char** argv);
// Opens `path` for reading in `file`, by its bytes where it keeps any.
bool openForReading(QFile& file, const QString& path);

}  // namespace nativeName
