// The settings file itself: an INI file in the data directory that several rooms keep their keys in.
//
// It is read and changed here alone. QSettings would wait for a pipe in the file's place, take minutes over a file of
// gigabytes, and lose keys on a full disk and tell nobody.
#pragma once

#include <QString>

#include <functional>
#include <memory>

class QSettings;

/// The file's path.
QString SettingsFilePath();

/// The keys, to be read and not to be changed. None where there is no file, or what lies there cannot be the settings.
std::unique_ptr<QSettings> ReadSettingsFile();

/// Changes keys of the file. All other keys stay, and the file is either changed whole or as it was; what
/// cannot be the settings stays. A file that this makes can be read by its owner alone.
///
/// @param change  sets and removes keys; what it reads is what the file holds
/// @return whether the file holds the changed keys now; whatever fails is the access to a file
bool ChangeSettingsFile(const std::function<void(QSettings& settings)>& change);
