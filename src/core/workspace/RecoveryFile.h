// A text that outlives its process: kept in a file for as long as the process lives, and found there by the next one
// if it dies.
//
// The file is locked by its owner, and the system takes the lock away when the owner is no more, however it ended. So
// nobody takes what another still keeps, and of several who look for what was left only one gets it. A file system that
// knows no locks keeps no texts.
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <functional>
#include <memory>

class QFile;

/// Longer texts are not kept, and longer files are none of ours.
constexpr qsizetype largestRecoveryText = qsizetype(256) << 20; // bytes

class RecoveryFile {
public:
    /// A file in a directory, under a name of its own. There is none until a text is written.
    explicit RecoveryFile(const QString& directory);

    /// The file stays, and is free to be taken.
    ~RecoveryFile();
    Q_DISABLE_COPY_MOVE(RecoveryFile)

    /// Makes `text`, in UTF-8, the file's content. At each moment the old content or the new one is there, whole.
    ///
    /// @return whether it is on the disk; if not, the old content stays
    bool Write(const QByteArray& text);

    void Remove();

private:
    QString path;
    std::unique_ptr<QFile> kept; // open and locked; null: there is no file
};

/// What a dead process has left.
struct AbandonedText {
    QByteArray text; ///< in UTF-8, not empty
    QDateTime changed;
};

/// Offers the texts that dead processes have left in a directory, the oldest first, and removes those that `take` has
/// taken. What only looks like one of their files (another user's, a link, a directory, a pipe, bytes that are no
/// UTF-8) is left alone.
void TakeAbandonedTexts(const QString& directory, const std::function<bool(const AbandonedText& left)>& take);
