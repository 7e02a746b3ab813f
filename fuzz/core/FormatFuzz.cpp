// A number, a base and a pattern.
#include "core/engine/AnswerFormat.h"

#include <cstring>

extern "C" int LLVMFuzzerTestOneInput(const quint8* data, size_t size)
{
    double value = 0;
    if (size < sizeof value + 1)
        return 0;
    std::memcpy(&value, data, sizeof value);
    const auto* pattern = reinterpret_cast<const char*>(data + sizeof value + 1);
    const auto length = static_cast<qsizetype>(size - sizeof value - 1);
    FormatAnswer(value, {QString::fromUtf8(pattern, length), data[sizeof value] % 17});
    return 0;
}
