// The description of a release: as it comes, and signed by its publisher whatever is in it.
#include "core/release/ReleaseAuthentication.h"
#include "core/release/ReleaseMetadata.h"
#include "core/release/ReleaseProduct.h"
#include "core/release/ReleaseVersion.h"
#include "fuzz/Harness.h"

#include <QJsonDocument>

using namespace ReleaseDesk;

extern "C" int LLVMFuzzerTestOneInput(const quint8* data, size_t size)
{
    Initialize(quellbrookProductId.toString(), quellbrookProductName.toString(), BuiltVersion());
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    ReleaseMetadata metadata;
    const ReleaseMetadataResult asItComes = ParseReleaseMetadata(bytes, metadata);
    QJsonObject description = QJsonDocument::fromJson(bytes).object();
    const QString signature = ReleaseSignature(description, ReleaseKey());
    const bool genuine = description.value("signature").toString().toLower() == signature;
    Require(genuine || asItComes != ReleaseMetadataResult::Success, "nothing is taken unsigned", bytes);
    Require(asItComes == ReleaseMetadataResult::Success || metadata.currentVersion.isEmpty(), "or kept", bytes);

    description.insert("signature", signature);
    const ReleaseMetadataResult compact = ParseReleaseMetadata(QJsonDocument(description).toJson(), metadata);
    Require(compact != ReleaseMetadataResult::AuthenticationFailed, "a signature holds in any layout", bytes);
    const bool isVersion = CompareReleaseVersion(metadata) != ReleaseComparison::Unknown;
    Require(isVersion == (compact == ReleaseMetadataResult::Success), "what is taken can be compared", bytes);
    return 0;
}
