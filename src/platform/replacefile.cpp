#include "platform/replacefile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QRandomGenerator>
#include <cerrno>
#include <cstring>

#include "platform/nativename.h"

namespace {

ReplaceOutcome failed(QFileDevice::FileError error, const QString& why) {
    return {false, error, why};
}

ReplaceOutcome failedWithErrno(QFileDevice::FileError error) {
    return failed(error, QString::fromLocal8Bit(std::strerror(errno)));
}

// A new file of a name nobody uses, created with the permissions any new file gets.
int createBeside(const QByteArray& folder, QByteArray& name) {
    for (int attempt = 0; attempt < 100; ++attempt) {
        name = folder + ".velmora-" +
               QByteArray::number(QRandomGenerator::global()->generate(), 36) + ".tmp";
        const int fd =
            ::open(name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666);
        if (fd >= 0 || errno != EEXIST) return fd;
    }
    return -1;
}

// Writes all of `bytes`; some full disks report success for bytes that never arrive, so the size
// on disk is checked as well.
bool writeAll(QFile& file, const QByteArray& bytes) {
    qint64 put = 0;
    // A write may take only a part of the bytes; the next one then fails and says why.
    while (put < bytes.size()) {
        const qint64 taken = file.write(bytes.constData() + put, bytes.size() - put);
        if (taken <= 0) break;
        put += taken;
    }
    return put == bytes.size() && file.flush() && file.size() == bytes.size();
}

}  // namespace

ReplaceOutcome replaceFile(const QString& path, const QByteArray& bytes,
                           const FileFactory& makeFile) {
    const QByteArray target = nativeName::toBytes(path);
    const qsizetype slash = target.lastIndexOf('/');
    const QByteArray folder = target.first(slash + 1);
    QByteArray temporary;
    const int fd = createBeside(folder, temporary);
    if (fd < 0) return failedWithErrno(QFileDevice::OpenError);

    struct stat earlier {};
    if (::lstat(target.constData(), &earlier) == 0 && S_ISREG(earlier.st_mode))
        ::fchmod(fd, earlier.st_mode & 07777);

    const std::unique_ptr<QFile> file = makeFile ? makeFile() : std::make_unique<QFile>();
    // Unbuffered, so that a write that fails says why at once, not as an "Unknown error" of a
    // later flush.
    if (!file->open(fd, QIODevice::WriteOnly | QIODevice::Unbuffered,
                    QFileDevice::AutoCloseHandle)) {
        ::close(fd);
        ::unlink(temporary.constData());
        return failed(file->error(), file->errorString());
    }
    ReplaceOutcome outcome{true, QFileDevice::NoError, {}};
    if (!writeAll(*file, bytes))
        outcome = failed(file->error(), file->errorString());
    else if (::fsync(fd) != 0)
        outcome = failedWithErrno(QFileDevice::WriteError);
    file->close();
    // rename() replaces the name: a link there is replaced, never followed.
    if (outcome.ok && ::rename(temporary.constData(), target.constData()) != 0)
        outcome = failedWithErrno(QFileDevice::RenameError);
    if (!outcome.ok) ::unlink(temporary.constData());
    return outcome;
}
