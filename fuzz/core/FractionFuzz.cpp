// The fractions of a number. The first is the number, and approximations get better with more digits.
#include "core/engine/Fractions.h"
#include "fuzz/Harness.h"

#include <cmath>
#include <cstring>

extern "C" int LLVMFuzzerTestOneInput(const quint8* data, size_t size)
{
    double value = 0;
    if (size < sizeof value)
        return 0;
    std::memcpy(&value, data, sizeof value);
    const std::optional<QString> text = FractionText(value);
    if (!text)
        return 0;
    const QStringList parts = text->section('\n', 0, 0).split('/');
    const double fraction = parts[0].toDouble() / parts[1].toDouble();
    Require(std::abs(fraction - value) <= 2e-14 * std::max(1.0, std::abs(value)), "a fraction is its number", *text);
    double error = HUGE_VAL;
    for (const QString& row : text->split('\n').mid(3)) {
        const double next = row.section("error ", 1).toDouble();
        Require(next <= error, "more digits are nearer", *text);
        error = next;
    }
    return 0;
}
