#include "core/workspace/DocumentText.h"

#include <algorithm>
#include <array>

namespace {

// What the first byte of a sequence says about it: the range of that byte, how many bytes follow, and the smallest
// code point that may be written so.
struct Utf8Sequence {
    unsigned char first;
    unsigned char last;
    int following;
    char32_t smallest;
};

constexpr Utf8Sequence sequences[] = {
    {0x00, 0x7f, 0, 0},
    {0xc2, 0xdf, 1, 0x80},
    {0xe0, 0xef, 2, 0x800},
    {0xf0, 0xf4, 3, 0x10000},
};

// 0x80 to 0x9f of Windows-1252. The five unassigned bytes stand for the control character of the same number.
constexpr std::array<char16_t, 32> windows1252 = {0x20ac, 0x0081, 0x201a, 0x0192, 0x201e, 0x2026, 0x2020, 0x2021,
                                                  0x02c6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008d, 0x017d, 0x008f,
                                                  0x0090, 0x2018, 0x2019, 0x201c, 0x201d, 0x2022, 0x2013, 0x2014,
                                                  0x02dc, 0x2122, 0x0161, 0x203a, 0x0153, 0x009d, 0x017e, 0x0178};

// The length of the sequence at the front of the bytes, or 0 where none that is allowed stands there.
qsizetype SequenceLength(QByteArrayView bytes)
{
    const auto lead = static_cast<unsigned char>(bytes.front());
    const auto* row = std::find_if(std::begin(sequences), std::end(sequences), [&](const Utf8Sequence& sequence) {
        return lead >= sequence.first && lead <= sequence.last;
    });
    if (row == std::end(sequences) || bytes.size() <= row->following)
        return 0;
    char32_t code = row->following == 0 ? lead : lead & (0x3f >> row->following);
    for (int i = 1; i <= row->following; ++i) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        if ((byte & 0xc0) != 0x80)
            return 0;
        code = (code << 6) | (byte & 0x3f);
    }
    const bool allowed = code >= row->smallest && code <= 0x10ffff && !(code >= 0xd800 && code <= 0xdfff);
    return allowed ? row->following + 1 : 0;
}

QString FromWindows1252(const QByteArray& bytes)
{
    QString text = QString::fromLatin1(bytes);
    for (QChar& c : text) {
        if (c.unicode() >= 0x80 && c.unicode() <= 0x9f)
            c = QChar(windows1252[c.unicode() - 0x80u]);
    }
    return text;
}

} // namespace

bool IsStrictUtf8(QByteArrayView bytes)
{
    while (!bytes.isEmpty()) {
        const qsizetype length = SequenceLength(bytes);
        if (length == 0)
            return false;
        bytes = bytes.sliced(length);
    }
    return true;
}

QString DecodeDocument(const QByteArray& bytes)
{
    return IsStrictUtf8(bytes) ? QString::fromUtf8(bytes) : FromWindows1252(bytes);
}
