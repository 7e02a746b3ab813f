// Who wrote a description of a release: its HMAC-SHA256 (RFC 2104, FIPS 180-4) under the key that the publisher and the
// program share.
//
// What is signed is the canonical form, so that order and layout of the served file do not count: the JSON object
// without its signature, as Qt writes it without blanks and with its keys sorted.
#pragma once

#include <QByteArray>
#include <QJsonObject>

namespace ReleaseDesk {

/// The bytes that the signature of a description is made over.
QByteArray CanonicalForm(const QJsonObject& description);

/// The signature that a description has under a key: 64 lower-case hexadecimal digits.
QByteArray ReleaseSignature(const QJsonObject& description, const QByteArray& key);

/// The 32 bytes of the key that this build checks signatures with.
QByteArray ReleaseKey();

/// Whether the bytes are a JSON object whose "signature" is the one that it has under ReleaseKey(), in 64 hexadecimal
/// digits of either case.
bool VerifyReleaseJsonAuthentication(const QByteArray& json);

} // namespace ReleaseDesk
