#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>
#include <functional>
#include <memory>

// How a replacement ended: when it failed, the file system's error and its words.
struct ReplaceOutcome {
    bool ok = false;
    QFileDevice::FileError error = QFileDevice::NoError;
    QString errorString;
};

// Makes the file object the bytes are written through; empty means a plain QFile. Tests hand in
// one whose writes fail on purpose.
using FileFactory = std::function<std::unique_ptr<QFile>()>;

// Puts `bytes` at `path` in one step: they go to a new hidden file in the same folder, which then
// takes the name by a rename. Whatever stands at `path` is replaced as a name and never written
// through, so a link swapped in at any moment is replaced itself and its target stays untouched
// (QSaveFile follows links on purpose). A regular file replaced keeps its permissions. On any
// failure what was at `path` stays as it was and no new file remains.
ReplaceOutcome replaceFile(const QString& path, const QByteArray& bytes,
                           const FileFactory& makeFile = {});
