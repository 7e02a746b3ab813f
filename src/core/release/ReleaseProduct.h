// Which program this is, as the publisher's descriptions of releases know it, and where they are published.
#pragma once

#include <QString>
#include <QStringView>
#include <QUrl>

namespace ReleaseDesk {

inline constexpr QStringView quellbrookProductId = u"quellbrook-desktop";
inline constexpr QStringView quellbrookProductName = u"Quellbrook Desktop";

/// The version of this build: the project's.
QString BuiltVersion();

/// Says which product is running. Until then nothing of this room takes a description for good.
///
/// @param productId           not empty
/// @param applicationVersion  major.minor.patch
void Initialize(const QString& productId, const QString& productName, const QString& applicationVersion);
bool IsInitialized();

/// What Initialize was given; empty before it.
QString ApplicationVersion();
QString ProductId();
QString ProductName();

/// Where the newest release is described: on the host that the build names, over https. An invalid URL where it names
/// none.
QUrl ReleaseUrl();

/// Whether the URL is valid and leads into the web: http or https.
bool IsWebUrl(const QUrl& url);

} // namespace ReleaseDesk
