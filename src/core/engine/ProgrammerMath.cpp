#include "core/engine/ProgrammerMath.h"

#include "core/engine/Brackets.h"
#include "core/engine/Characters.h"
#include "core/engine/NumberText.h"

#include <algorithm>

namespace {

struct BaseName {
    QLatin1StringView function;
    QChar literalMark; // lower case; null where no literal has this base
    int base;
};

constexpr BaseName baseNames[] = {
    {QLatin1StringView("BIN"), u'b', 2},
    {QLatin1StringView("OCT"), u'o', 8},
    {QLatin1StringView("HEX"), u'x', 16},
    {QLatin1StringView("DEC"), QChar(), 10},
};

int BaseOfLiteral(QChar mark)
{
    const QChar lower(static_cast<char16_t>(mark.unicode() | 0x20));
    const auto row = std::find_if(std::begin(baseNames), std::end(baseNames),
                                  [&](const BaseName& name) { return name.literalMark == lower; });
    return row->base;
}

// The value of a digit in any base up to 16, or 16 for what is no digit.
int DigitValue(QChar c)
{
    if (IsDigit(c))
        return c.digitValue();
    const char16_t lower = c.unicode() | 0x20;
    return c.unicode() <= 127 && lower >= u'a' && lower <= u'f' ? lower - u'a' + 10 : 16;
}

// Calls `operation` with the arguments as integers, unless one of them is no safe integer.
template <typename Operation>
Value WithIntegers(Arguments arguments, Operation operation)
{
    if (!std::all_of(arguments.begin(), arguments.end(), IsSafeInteger))
        return std::nullopt;
    if constexpr (std::is_invocable_v<Operation, qint64>)
        return operation(static_cast<qint64>(arguments[0]));
    else
        return operation(static_cast<qint64>(arguments[0]), static_cast<qint64>(arguments[1]));
}

Value Same(Arguments arguments)
{
    return WithIntegers(arguments, [](qint64 a) { return static_cast<double>(a); });
}

Value Complement(Arguments arguments)
{
    return WithIntegers(arguments, [](qint64 a) { return static_cast<double>(~a); });
}

Value And(Arguments arguments)
{
    return WithIntegers(arguments, [](qint64 a, qint64 b) { return static_cast<double>(a & b); });
}

Value Or(Arguments arguments)
{
    return WithIntegers(arguments, [](qint64 a, qint64 b) { return static_cast<double>(a | b); });
}

Value Xor(Arguments arguments)
{
    return WithIntegers(arguments, [](qint64 a, qint64 b) { return static_cast<double>(a ^ b); });
}

constexpr qint64 largestShift = 52;

// Only where the result is a safe integer again.
Value ShiftLeft(Arguments arguments)
{
    return WithIntegers(arguments, [](qint64 a, qint64 count) -> Value {
        if (count < 0 || count > largestShift)
            return std::nullopt;
        const qint64 factor = qint64(1) << count;
        if (a > largestSafeInteger / factor || a < -largestSafeInteger / factor)
            return std::nullopt;
        return static_cast<double>(a * factor);
    });
}

// Arithmetic: the sign is kept.
Value ShiftRight(Arguments arguments)
{
    return WithIntegers(arguments, [](qint64 a, qint64 count) -> Value {
        if (count < 0 || count > largestShift)
            return std::nullopt;
        return static_cast<double>(a >> count);
    });
}

// clang-format off
constexpr FunctionRow functions[] = {
    {QLatin1StringView("BIN"),    1, 1, Same},
    {QLatin1StringView("OCT"),    1, 1, Same},
    {QLatin1StringView("HEX"),    1, 1, Same},
    {QLatin1StringView("DEC"),    1, 1, Same},
    {QLatin1StringView("NOT"),    1, 1, Complement},
    {QLatin1StringView("BITNOT"), 1, 1, Complement},
    {QLatin1StringView("AND"),    2, 2, And},
    {QLatin1StringView("BITAND"), 2, 2, And},
    {QLatin1StringView("OR"),     2, 2, Or},
    {QLatin1StringView("BITOR"),  2, 2, Or},
    {QLatin1StringView("XOR"),    2, 2, Xor},
    {QLatin1StringView("BITXOR"), 2, 2, Xor},
    {QLatin1StringView("SHL"),    2, 2, ShiftLeft},  // integer, count 0 to 52
    {QLatin1StringView("LSHIFT"), 2, 2, ShiftLeft},
    {QLatin1StringView("SHR"),    2, 2, ShiftRight}, // integer, count 0 to 52
    {QLatin1StringView("RSHIFT"), 2, 2, ShiftRight},
};
// clang-format on

} // namespace

namespace ProgrammerMath {

bool IsBaseLiteralIdentifier(const QString& text, int position)
{
    if (position < 1 || !BeginsBaseLiteral(text, position - 1))
        return false;
    return position == 1 || !(IsIdentifierPart(text[position - 2]) || text[position - 2] == u'.');
}

bool TryParseBaseLiteral(QStringView text, qsizetype& position, double& value, bool& invalid)
{
    invalid = BeginsBaseLiteral(text, position);
    if (!invalid)
        return false;
    const int base = BaseOfLiteral(text[position + 1]);
    qint64 sum = 0;
    qsizetype end = position + 2;
    for (; end < text.size(); ++end) {
        const int digit = DigitValue(text[end]);
        if (digit >= base)
            break;
        if ((largestSafeInteger - digit) / base < sum)
            return false;
        sum = sum * base + digit;
    }
    if (end == position + 2 || (end < text.size() && IsIdentifierPart(text[end])))
        return false;
    position = end;
    value = static_cast<double>(sum);
    invalid = false;
    return true;
}

bool ContainsInvalidBaseLiteral(QStringView text)
{
    for (qsizetype i = 0; i + 1 < text.size(); ++i) {
        if (i > 0 && (IsIdentifierPart(text[i - 1]) || text[i - 1] == u'.'))
            continue;
        qsizetype position = i;
        double value = 0;
        bool invalid = false;
        if (!TryParseBaseLiteral(text, position, value, invalid) && invalid)
            return true;
    }
    return false;
}

FunctionLibrary Functions()
{
    return functions;
}

double RunFunction(const QString& name, const QList<double>& arguments, double& value, bool& ok, bool& handled)
{
    value = RunLibraryFunction(functions, name.toUpper(), arguments, ok, handled);
    return value;
}

bool FormatInteger(double value, int base, QString& text)
{
    const auto known = [&](const BaseName& name) { return name.base == base; };
    if (!IsSafeInteger(value) || std::none_of(std::begin(baseNames), std::end(baseNames), known))
        return false;
    text = QString::number(static_cast<qint64>(value), base).toUpper();
    return true;
}

bool TryExtractOutputConversion(QStringView text, QString& inner, int& base)
{
    const QStringView line = text.trimmed();
    const qsizetype open = line.indexOf(u'(');
    if (open < 1)
        return false;
    const QStringView name = line.first(open).trimmed();
    const auto row = std::find_if(std::begin(baseNames), std::end(baseNames), [&](const BaseName& candidate) {
        return name.size() == candidate.function.size() && name.compare(candidate.function, Qt::CaseInsensitive) == 0;
    });
    if (row == std::end(baseNames) || ClosingBracket(line, open) != line.size() - 1)
        return false;
    const QStringView between = line.mid(open + 1, line.size() - open - 2).trimmed();
    if (between.isEmpty())
        return false;
    inner = between.toString();
    base = row->base;
    return true;
}

} // namespace ProgrammerMath
