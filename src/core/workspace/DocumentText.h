// The bytes of a document as text. Files are written as UTF-8; what is not valid UTF-8 is read as Windows-1252, so any
// bytes are some text.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

/// Whether the bytes are UTF-8 in its strict form: no overlong form, no surrogate, nothing above U+10FFFF, nothing cut
/// short (RFC 3629).
bool IsStrictUtf8(QByteArrayView bytes);

/// The text of a document's bytes.
QString DecodeDocument(const QByteArray& bytes);
