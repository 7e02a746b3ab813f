// The bytes of a document: any are some text, and what is written comes back as it was.
#include "core/workspace/DocumentText.h"
#include "fuzz/Harness.h"

extern "C" int LLVMFuzzerTestOneInput(const quint8* data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QString text = DecodeDocument(bytes);
    const QByteArray mark = QByteArray::fromHex("efbbbf");
    const bool marked = bytes.startsWith(mark);
    if (IsStrictUtf8(bytes))
        Require((marked ? mark : QByteArray()) + text.toUtf8() == bytes, "UTF-8 is read as it stands", text);
    const QString again = DecodeDocument(text.toUtf8());
    Require(again == text || text.startsWith(QChar::ByteOrderMark), "a document comes back as it was", text);
    return 0;
}
