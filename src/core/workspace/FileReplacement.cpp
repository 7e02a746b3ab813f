#include "core/workspace/FileReplacement.h"

#include <QFile>
#include <QSaveFile>

#include <cerrno>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <tuple>
#include <unistd.h>

namespace {

using FileState = struct stat;

std::optional<FileState> StateOf(const QByteArray& path)
{
    FileState state{};
    return stat(path.constData(), &state) == 0 ? std::optional(state) : std::nullopt;
}

class OpenDescriptor {
public:
    explicit OpenDescriptor(int opened) : descriptor(opened) {}
    ~OpenDescriptor() { close(descriptor); }
    Q_DISABLE_COPY_MOVE(OpenDescriptor)

    operator int() const { return descriptor; }

private:
    int descriptor;
};

// Access lists and labels, which the file system keeps as extended attributes.
bool CopyAttributes(const QByteArray& from, int to)
{
    QByteArray names(qMax(ssize_t(0), listxattr(from.constData(), nullptr, 0)), '\0');
    names.resize(qMax(ssize_t(0), listxattr(from.constData(), names.data(), names.size())));
    for (const QByteArray& name : names.split('\0')) {
        if (name.isEmpty())
            continue;
        QByteArray value(qMax(ssize_t(0), getxattr(from.constData(), name.constData(), nullptr, 0)), '\0');
        if (getxattr(from.constData(), name.constData(), value.data(), value.size()) != value.size() ||
            fsetxattr(to, name.constData(), value.constData(), value.size(), 0) != 0)
            return false;
    }
    return true;
}

// Changing the owner takes special permissions away, so those come behind it, and the access list behind those.
bool TakeOver(int file, const FileState& old, const QByteArray& oldPath)
{
    FileState own{};
    if (fstat(file, &own) != 0)
        return false;
    const bool owned = own.st_uid == old.st_uid && own.st_gid == old.st_gid;
    return (owned || fchown(file, old.st_uid, old.st_gid) == 0) && fchmod(file, old.st_mode & 07777) == 0 &&
           CopyAttributes(oldPath, file);
}

bool WriteFromStart(int file, const QByteArray& bytes)
{
    for (qsizetype written = 0; written < bytes.size();) {
        const ssize_t step = write(file, bytes.constData() + written, bytes.size() - written);
        if (step < 0 && errno == EINTR)
            continue;
        if (step <= 0)
            return false;
        written += step;
    }
    return true;
}

bool IsRefusedForSpace(int error)
{
    return error == ENOSPC || error == EDQUOT || error == EFBIG;
}

// The space is taken before the first byte is overwritten.
bool Overwrite(int file, const QByteArray& bytes)
{
    return TakeSpace(file, 0, bytes.size()) && WriteFromStart(file, bytes) && ReachesDisk(file);
}

QByteArray Contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

FileReplacement WriteInPlace(const QString& path, const QByteArray& bytes, NewFile created)
{
    const QByteArray name = QFile::encodeName(path);
    const std::optional<FileState> old = StateOf(name);
    const mode_t mode = created == NewFile::ForOwnerAlone ? 0600 : 0666;
    const int opened = open(name.constData(), O_WRONLY | O_CREAT | O_NONBLOCK | O_CLOEXEC, mode);
    if (opened < 0)
        return FileReplacement::CannotOpen;
    const OpenDescriptor file(opened);
    const bool regular = !old || S_ISREG(old->st_mode);
    const QByteArray before = old && regular ? Contents(path) : QByteArray();
    if (Overwrite(file, bytes) && (!regular || ftruncate(file, bytes.size()) == 0))
        return FileReplacement::Complete;
    if (old && before.size() == old->st_size && lseek(file, 0, SEEK_SET) == 0 && WriteFromStart(file, before))
        std::ignore = ftruncate(file, old->st_size);
    return FileReplacement::Incomplete;
}

} // namespace

FileReplacement ReplaceFileContents(const QString& path, const QByteArray& bytes, NewFile created)
{
    const QByteArray name = QFile::encodeName(path);
    const std::optional<FileState> old = StateOf(name);
    if (old && (!S_ISREG(old->st_mode) || old->st_nlink > 1))
        return WriteInPlace(path, bytes, created);

    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return WriteInPlace(path, bytes, created);
    if (old ? !TakeOver(file.handle(), *old, name)
            : created == NewFile::ForOwnerAlone && fchmod(file.handle(), S_IRUSR | S_IWUSR) != 0) {
        file.cancelWriting();
        return WriteInPlace(path, bytes, created);
    }
    // On a full disk commit() alone can succeed with fewer bytes written.
    if (file.write(bytes) != bytes.size() || !file.flush() || !ReachesDisk(file.handle())) {
        file.cancelWriting();
        return FileReplacement::Incomplete;
    }
    return file.commit() ? FileReplacement::Complete : WriteInPlace(path, bytes, created);
}

bool TakeSpace(int file, qint64 from, qint64 bytes)
{
    return bytes == 0 || fallocate(file, FALLOC_FL_KEEP_SIZE, from, bytes) == 0 || !IsRefusedForSpace(errno);
}

// Some file systems know only here that they are full.
bool ReachesDisk(int file)
{
    return fsync(file) == 0 || errno == EINVAL || errno == ENOTSUP;
}
