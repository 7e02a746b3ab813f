#include "core/release/ReleaseVersion.h"

#include "core/release/ReleaseMetadata.h"
#include "core/release/ReleaseProduct.h"

#include <QRegularExpression>

#include <array>
#include <optional>

using namespace Qt::StringLiterals;

namespace ReleaseDesk {

namespace {

using Version = std::array<int, 3>;

std::optional<Version> VersionOf(const QString& text)
{
    static const QRegularExpression form(u"^(\\d+)\\.(\\d+)\\.(\\d+)$"_s);
    const QRegularExpressionMatch match = form.match(text.trimmed());
    Version version{};
    for (int i = 0; i < 3; ++i) {
        bool ok = false;
        version[i] = match.captured(i + 1).toInt(&ok);
        if (!ok)
            return std::nullopt;
    }
    return version;
}

} // namespace

QString ReleaseComparisonText(ReleaseComparison comparison)
{
    switch (comparison) {
    case ReleaseComparison::Current:
        return u"Current"_s;
    case ReleaseComparison::NewerMinorRelease:
        return u"Newer minor release available"_s;
    case ReleaseComparison::NewerMajorRelease:
        return u"Newer major release available"_s;
    case ReleaseComparison::RunningVersionNewer:
        return u"Running version is newer than release metadata"_s;
    case ReleaseComparison::Unknown:
        break;
    }
    return u"Unknown"_s;
}

bool ParseStrictVersion(const QString& text, int& major, int& minor, int& patch)
{
    const std::optional<Version> version = VersionOf(text);
    if (!version)
        return false;
    major = (*version)[0];
    minor = (*version)[1];
    patch = (*version)[2];
    return true;
}

ReleaseComparison CompareReleaseVersion(const ReleaseMetadata& metadata)
{
    const std::optional<Version> release = VersionOf(metadata.currentVersion);
    const std::optional<Version> running = VersionOf(ApplicationVersion());
    if (!release || !running)
        return ReleaseComparison::Unknown;
    if (*release == *running)
        return ReleaseComparison::Current;
    if (*release < *running)
        return ReleaseComparison::RunningVersionNewer;
    return release->front() > running->front() ? ReleaseComparison::NewerMajorRelease
                                               : ReleaseComparison::NewerMinorRelease;
}

} // namespace ReleaseDesk
