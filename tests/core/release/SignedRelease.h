// Descriptions of releases for tests, signed with the key of the build.
#pragma once

#include "core/release/ReleaseAuthentication.h"

#include <QJsonDocument>
#include <QJsonObject>

/// The fields of a description of 2.0.0, but for what is changed.
inline QJsonObject ReleaseFields(const QJsonObject& changes = {})
{
    QJsonObject fields{{"productId", "quellbrook-desktop"},
                       {"currentVersion", "2.0.0"},
                       {"purchasePrice", "$29"},
                       {"purchaseUrl", "https://example.org/buy"},
                       {"upgradePrice", "$15"},
                       {"upgradeUrl", "https://example.org/upgrade"},
                       {"downloadUrl", "https://example.org/download"},
                       {"detailsUrl", "https://example.org/details"},
                       {"message", ""}};
    for (auto change = changes.begin(); change != changes.end(); ++change)
        fields.insert(change.key(), change.value());
    return fields;
}

inline QJsonObject Without(QJsonObject fields, const QString& key)
{
    fields.remove(key);
    return fields;
}

inline QByteArray SignatureOf(const QJsonObject& fields)
{
    return ReleaseDesk::ReleaseSignature(fields, ReleaseDesk::ReleaseKey());
}

inline QByteArray WithSignature(QJsonObject fields, const QString& signature)
{
    fields.insert("signature", signature);
    return QJsonDocument(fields).toJson();
}

inline QByteArray Signed(const QJsonObject& fields)
{
    return WithSignature(fields, QString(SignatureOf(fields)));
}
