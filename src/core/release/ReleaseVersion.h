// Versions of releases, compared by their numbers.
#pragma once

#include <QString>

namespace ReleaseDesk {

struct ReleaseMetadata;

enum class ReleaseComparison {
    Unknown = 0,            ///< a version could not be read
    Current = 1,            ///< both are equal
    NewerMinorRelease = 2,  ///< the release is newer, with the same major number
    NewerMajorRelease = 3,  ///< the release has a higher major number
    RunningVersionNewer = 4 ///< the program is ahead of the release
};

QString ReleaseComparisonText(ReleaseComparison comparison);

/// Reads "major.minor.patch": three runs of ASCII digits, each a number of 32 bits, with any white space around them.
///
/// @return whether the text is a version; if not, the numbers stay as they were
bool ParseStrictVersion(const QString& text, int& major, int& minor, int& patch);

/// What the release's `currentVersion` is to the running program.
ReleaseComparison CompareReleaseVersion(const ReleaseMetadata& metadata);

} // namespace ReleaseDesk
