// The publisher's description of the newest release, release.json: a JSON object of strings, trusted only with a valid
// signature.
#pragma once

#include <QByteArray>
#include <QString>

namespace ReleaseDesk {

/// A description longer than this many bytes is none. One is about 1 KiB.
inline constexpr qsizetype longestReleaseJson = 64 * qsizetype(1024);

struct ReleaseMetadata {
    QString productId;
    QString currentVersion; ///< as it is written: major.minor.patch
    QString purchasePrice;
    QString purchaseUrl;
    QString upgradePrice; ///< of a new major release
    QString upgradeUrl;   ///< page of a new major release
    QString downloadUrl;  ///< page of any other release
    QString detailsUrl;   ///< page for where the others are missing
    QString message;      ///< in place of the program's own words; may be empty
    QString signature;
    int majorVersion = 0;
    int minorVersion = 0;
    int patchVersion = 0;
};

enum class ReleaseMetadataResult {
    Success = 0,
    NotInitialized = 1,
    InvalidJson = 2,
    MissingField = 3,
    InvalidField = 4,
    WrongProduct = 5,
    AuthenticationFailed = 6
};

/// For diagnostics; users are told nothing.
QString ReleaseMetadataResultText(ReleaseMetadataResult result);

/// Reads a description. Nothing of it is looked at before its signature has held.
///
/// @param metadata  every text trimmed; empty where the description is refused
ReleaseMetadataResult ParseReleaseMetadata(const QByteArray& json, ReleaseMetadata& metadata);

/// What is remembered of a notice that the user has dismissed: another version or another signature differs.
QString DismissalValue(const ReleaseMetadata& metadata);

} // namespace ReleaseDesk
