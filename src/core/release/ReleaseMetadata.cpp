#include "core/release/ReleaseMetadata.h"

#include "core/release/ReleaseAuthentication.h"
#include "core/release/ReleaseProduct.h"
#include "core/release/ReleaseVersion.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QLatin1StringView>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ReleaseDesk {

namespace {

enum class Content { Text, TextOrNothing, WebPage };

struct Field {
    QLatin1StringView key;
    QString ReleaseMetadata::*value;
    Content content;
};

// clang-format off
constexpr Field fields[] = {
    {QLatin1StringView("productId"),      &ReleaseMetadata::productId,      Content::Text},
    {QLatin1StringView("currentVersion"), &ReleaseMetadata::currentVersion, Content::Text},
    {QLatin1StringView("purchasePrice"),  &ReleaseMetadata::purchasePrice,  Content::Text},
    {QLatin1StringView("purchaseUrl"),    &ReleaseMetadata::purchaseUrl,    Content::WebPage},
    {QLatin1StringView("upgradePrice"),   &ReleaseMetadata::upgradePrice,   Content::Text},
    {QLatin1StringView("upgradeUrl"),     &ReleaseMetadata::upgradeUrl,     Content::WebPage},
    {QLatin1StringView("downloadUrl"),    &ReleaseMetadata::downloadUrl,    Content::WebPage},
    {QLatin1StringView("detailsUrl"),     &ReleaseMetadata::detailsUrl,     Content::WebPage},
    {QLatin1StringView("message"),        &ReleaseMetadata::message,        Content::TextOrNothing},
    {QLatin1StringView("signature"),      &ReleaseMetadata::signature,      Content::Text},
};
// clang-format on

bool HasOtherKeys(const QJsonObject& description)
{
    return std::ranges::any_of(description.keys(), [](const QString& key) {
        return std::ranges::none_of(fields, [&](const Field& field) { return field.key == key; });
    });
}

// Whether each field is there as a string, and not an empty one where it must say something.
bool TakeFields(const QJsonObject& description, ReleaseMetadata& metadata)
{
    return std::ranges::all_of(fields, [&](const Field& field) {
        const QJsonValue value = description.value(field.key);
        metadata.*field.value = value.toString().trimmed();
        return value.isString() && (field.content == Content::TextOrNothing || !(metadata.*field.value).isEmpty());
    });
}

bool LeadIntoTheWeb(const ReleaseMetadata& metadata)
{
    return std::ranges::all_of(fields, [&](const Field& field) {
        return field.content != Content::WebPage || IsWebUrl(QUrl(metadata.*field.value, QUrl::TolerantMode));
    });
}

ReleaseMetadataResult TakeDescription(const QByteArray& json, ReleaseMetadata& metadata)
{
    if (!IsInitialized())
        return ReleaseMetadataResult::NotInitialized;
    const QJsonDocument document = QJsonDocument::fromJson(json);
    if (!document.isObject())
        return ReleaseMetadataResult::InvalidJson;
    if (!VerifyReleaseJsonAuthentication(json))
        return ReleaseMetadataResult::AuthenticationFailed;
    if (HasOtherKeys(document.object()))
        return ReleaseMetadataResult::InvalidField;
    if (!TakeFields(document.object(), metadata))
        return ReleaseMetadataResult::MissingField;
    if (metadata.productId != ProductId())
        return ReleaseMetadataResult::WrongProduct;
    if (!ParseStrictVersion(metadata.currentVersion, metadata.majorVersion, metadata.minorVersion,
                            metadata.patchVersion) ||
        !LeadIntoTheWeb(metadata))
        return ReleaseMetadataResult::InvalidField;
    return ReleaseMetadataResult::Success;
}

} // namespace

QString ReleaseMetadataResultText(ReleaseMetadataResult result)
{
    switch (result) {
    case ReleaseMetadataResult::Success:
        return u"Success"_s;
    case ReleaseMetadataResult::NotInitialized:
        return u"Release metadata module is not initialized"_s;
    case ReleaseMetadataResult::InvalidJson:
        return u"Release metadata is not valid JSON"_s;
    case ReleaseMetadataResult::MissingField:
        return u"Release metadata is missing a required field"_s;
    case ReleaseMetadataResult::InvalidField:
        return u"Release metadata contains an invalid field"_s;
    case ReleaseMetadataResult::WrongProduct:
        return u"Release metadata is for a different product"_s;
    case ReleaseMetadataResult::AuthenticationFailed:
        return u"Release metadata authentication failed"_s;
    }
    return u"Unknown release metadata result"_s;
}

ReleaseMetadataResult ParseReleaseMetadata(const QByteArray& json, ReleaseMetadata& metadata)
{
    metadata = {};
    ReleaseMetadata description;
    const ReleaseMetadataResult result = TakeDescription(json, description);
    if (result == ReleaseMetadataResult::Success)
        metadata = description;
    return result;
}

QString DismissalValue(const ReleaseMetadata& metadata)
{
    return ProductId() + u'|' + metadata.currentVersion.trimmed() + u'|' + metadata.signature.trimmed();
}

} // namespace ReleaseDesk
