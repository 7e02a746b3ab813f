#include "core/release/ReleaseAuthentication.h"

#include "ReleaseConfiguration.h"

#include <QCryptographicHash>
#include <QJsonDocument>
#include <QLatin1StringView>
#include <QMessageAuthenticationCode>

#include <optional>

using namespace Qt::StringLiterals;

namespace ReleaseDesk {

namespace {

constexpr QLatin1StringView signatureKey("signature");
constexpr qsizetype signatureDigits = 64;

// The bytes of a signature. Reading hexadecimal passes over what is no digit, and the bytes would then not tell what
// stood there.
std::optional<QByteArray> SignatureBytes(const QString& text)
{
    if (text.size() != signatureDigits)
        return std::nullopt;
    const QByteArray digits = text.toLatin1().toLower();
    const QByteArray bytes = QByteArray::fromHex(digits);
    return bytes.toHex() == digits ? std::optional(bytes) : std::nullopt;
}

QByteArray Mac(const QByteArray& bytes, const QByteArray& key)
{
    return QMessageAuthenticationCode::hash(bytes, key, QCryptographicHash::Sha256);
}

// Takes the same time wherever the first difference stands.
bool AreEqual(const QByteArray& left, const QByteArray& right)
{
    if (left.size() != right.size())
        return false;
    int difference = 0;
    for (qsizetype i = 0; i < left.size(); ++i)
        difference |= left[i] ^ right[i];
    return difference == 0;
}

} // namespace

QByteArray CanonicalForm(const QJsonObject& description)
{
    QJsonObject rest = description;
    rest.remove(signatureKey);
    return QJsonDocument(rest).toJson(QJsonDocument::Compact);
}

QByteArray ReleaseSignature(const QJsonObject& description, const QByteArray& key)
{
    return Mac(CanonicalForm(description), key).toHex();
}

QByteArray ReleaseKey()
{
    QByteArray key(std::size(keyTables[0]), '\0');
    for (qsizetype i = 0; i < key.size(); ++i)
        key[i] = static_cast<char>(keyTables[0][i] ^ keyTables[1][i]);
    return key;
}

bool VerifyReleaseJsonAuthentication(const QByteArray& json)
{
    const QJsonDocument document = QJsonDocument::fromJson(json);
    if (!document.isObject())
        return false;
    const QJsonObject description = document.object();
    const std::optional<QByteArray> signature = SignatureBytes(description.value(signatureKey).toString());
    return signature && AreEqual(Mac(CanonicalForm(description), ReleaseKey()), *signature);
}

} // namespace ReleaseDesk
