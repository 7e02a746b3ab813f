#include "core/workspace/RecoveryFile.h"

#include "core/workspace/DocumentText.h"
#include "core/workspace/FileReplacement.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QUuid>

#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

using FileState = struct stat;

// A new content is written beside the file before it takes the file's place. What is left of one is worth nothing.
constexpr QStringView draftSuffix(u".new");

// Between its making and its locking a draft looks like one that was left.
constexpr qint64 draftAge = 60; // seconds

bool Lock(const QFile& file)
{
    return flock(file.handle(), LOCK_EX | LOCK_NB) == 0;
}

// Whether an open file is one that a process of ours may have written, and still the one that the path leads to.
bool IsOurs(int file, const QByteArray& path, FileState& state)
{
    FileState named{};
    return fstat(file, &state) == 0 && lstat(path.constData(), &named) == 0 && state.st_ino == named.st_ino &&
           state.st_dev == named.st_dev && S_ISREG(state.st_mode) && state.st_nlink == 1 && state.st_uid == geteuid() &&
           state.st_size <= largestRecoveryText;
}

// Opens and locks a file that nobody keeps; false if it is somebody's.
bool OpenAbandoned(const QByteArray& path, QFile& file, FileState& state)
{
    const int descriptor = open(path.constData(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0)
        return false;
    if (!file.open(descriptor, QIODevice::ReadWrite, QFileDevice::AutoCloseHandle)) {
        close(descriptor);
        return false;
    }
    // Only under the lock is it certain that the owner has not put another content in its place meanwhile.
    return Lock(file) && IsOurs(descriptor, path, state);
}

bool TakeText(QFile& file, const FileState& state, const std::function<bool(const AbandonedText&)>& take)
{
    const QByteArray text = file.readAll();
    if (text.size() != state.st_size || !IsStrictUtf8(text))
        return false;
    return text.isEmpty() || take({text, QDateTime::fromSecsSinceEpoch(state.st_mtim.tv_sec)});
}

bool IsOldDraft(const FileState& state)
{
    return QDateTime::currentSecsSinceEpoch() - state.st_mtim.tv_sec > draftAge;
}

} // namespace

RecoveryFile::RecoveryFile(const QString& directory)
    : path(QDir(directory).filePath(u"Quellbrook-"_s + QUuid::createUuid().toString(QUuid::WithoutBraces) +
                                    u".recovery"_s))
{
}

RecoveryFile::~RecoveryFile() = default;

bool RecoveryFile::Write(const QByteArray& text)
{
    if (text.size() > largestRecoveryText)
        return false;
    auto draft = std::make_unique<QFile>(path + draftSuffix);
    if (!draft->open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered,
                     QFileDevice::ReadOwner | QFileDevice::WriteOwner))
        return false;
    const bool written = Lock(*draft) && TakeSpace(draft->handle(), 0, text.size()) &&
                         draft->write(text) == text.size() && ReachesDisk(draft->handle());
    const QByteArray draftName = QFile::encodeName(draft->fileName());
    if (!written || rename(draftName.constData(), QFile::encodeName(path).constData()) != 0) {
        draft->remove();
        return false;
    }
    kept = std::move(draft);
    return true;
}

void RecoveryFile::Remove()
{
    if (kept)
        QFile::remove(path); // while it is locked
    kept.reset();
}

void TakeAbandonedTexts(const QString& directory, const std::function<bool(const AbandonedText& left)>& take)
{
    static const QRegularExpression ours(
        u"^Quellbrook-[0-9a-f]{8}(-[0-9a-f]{4}){3}-[0-9a-f]{12}\\.recovery(\\.new)?$"_s);
    const QFileInfoList files =
        QDir(directory).entryInfoList({u"Quellbrook-*.recovery*"_s}, QDir::Files, QDir::Time | QDir::Reversed);
    for (const QFileInfo& each : files) {
        QFile file;
        FileState state{};
        if (!ours.match(each.fileName()).hasMatch() || !OpenAbandoned(QFile::encodeName(each.filePath()), file, state))
            continue;
        if (each.fileName().endsWith(draftSuffix) ? IsOldDraft(state) : TakeText(file, state, take))
            QFile::remove(each.filePath());
    }
}
