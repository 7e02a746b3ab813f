// The one time that the program uses the network: it asks for the publisher's description of the newest release.
#pragma once

#include "core/release/ReleaseMetadata.h"
#include "core/release/ReleaseVersion.h"

#include <functional>

class QObject;
class QUrl;

namespace ReleaseDesk {

enum class ReleaseCheckResult {
    NoNewerRelease = 0,
    ReleaseAvailable = 1,
    CheckFailed = 3 ///< with an empty description and an unknown comparison
};

using ReleaseCallback = std::function<void(ReleaseCheckResult, const ReleaseMetadata&, ReleaseComparison)>;

/// Fetches a description and says what it means for the running program. Nothing is kept on disk, sent along or asked
/// of the user, and what is not signed is not passed on.
///
/// A redirection is followed within a host, or from one https address to another.
///
/// @param parent     ends the check when it is destroyed; the callback is not called then. Null: nothing happens, as
///                   without a callback or before Initialize
/// @param url        http or https; any other fails before this returns
/// @param callback   called once, from the event loop of the parent's thread
/// @param timeoutMs  for the whole check; at least a second
void CheckForReleaseAsync(QObject* parent, const QUrl& url, const ReleaseCallback& callback, int timeoutMs);

} // namespace ReleaseDesk
