// The settings file itself: an INI file in the data directory that several rooms keep their keys in.
//
// Whoever wants to know a key opens the path with QSettings. Whoever changes one does it here, since QSettings alone
// loses keys on a full disk and tells nobody.
#pragma once

#include <QString>

#include <functional>

class QSettings;

/// The file's path.
QString SettingsFilePath();

/// Changes keys of the file. All other keys stay, and the file is either changed whole or as it was. A file that this
/// makes can be read by its owner alone.
///
/// @param change  sets and removes keys; what it reads is what the file holds
/// @return whether the file holds the changed keys now
bool ChangeSettingsFile(const std::function<void(QSettings& settings)>& change);
