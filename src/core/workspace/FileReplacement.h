// Giving a file a new content so that, whatever happens meanwhile, its old content or the new one is there, whole.
//
// The bytes go to a new file beside the old one, which takes its place only when all of them are on the disk. The new
// file has the old one's owner, permissions and attributes; behind a symbolic link, the file that it leads to is
// replaced. What can't be replaced so is written in place, and gets its old bytes back if that fails: a file with more
// than one name (they go on naming one file), one whose owner or attributes we may not give to another, one in a
// directory that takes no new file. Only a process that is ended in the middle of that leaves such a file in pieces.
#pragma once

#include <QByteArray>
#include <QString>

enum class FileReplacement {
    Complete,
    CannotOpen, ///< the file can't be written at all; nothing has changed
    Incomplete, ///< not all bytes could be written; the old file is as it was
};

/// Who may read a file that did not exist.
enum class NewFile { AsUsual, ForOwnerAlone };

/// Makes `bytes` the content of the file. What is no file, like a directory or a pipe that nobody reads, cannot be
/// opened.
FileReplacement ReplaceFileContents(const QString& path, const QByteArray& bytes, NewFile created = NewFile::AsUsual);

/// Takes the space that bytes from a place of an open file on will need, so that they can be written whole or not at
/// all. The file's size stays.
///
/// @return false if there is not as much; a file system that cannot take space ahead counts as having it
bool TakeSpace(int file, qint64 from, qint64 bytes);

/// Waits until an open file's content is on the disk. Where the file system knows nothing of that, it counts as there.
bool ReachesDisk(int file);
