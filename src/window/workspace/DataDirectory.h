// Where the settings and the log lie: one directory of the user's, and the files of an older installation that kept
// them beside the executable.
#pragma once

#include <QString>

/// The path of a file in the data directory. Where the platform names no such directory, the file lies in the working
/// directory.
QString DataFilePath(const QString& fileName);

/// Makes the data directory and copies settings and log from beside the executable where it has none of its own.
/// The copies can be read by their owner alone. What fails fails in silence; nothing is ever overwritten.
void PrepareDataDirectory();
