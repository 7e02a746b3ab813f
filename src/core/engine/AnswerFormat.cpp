#include "core/engine/AnswerFormat.h"

#include "core/engine/NumberText.h"
#include "core/engine/ProgrammerMath.h"

#include <QLocale>

#include <algorithm>
#include <cmath>

namespace {

constexpr double residue = 1e-14;
constexpr int mostSnappedDecimals = 12;
constexpr int defaultDigits = 15;

bool IsPlaceholder(QChar c)
{
    return c == u'0' || c == u'#';
}

int CountPlaceholders(QStringView pattern)
{
    return static_cast<int>(std::count_if(pattern.begin(), pattern.end(), IsPlaceholder));
}

const QLocale& EnglishLocale()
{
    static const QLocale locale(QLocale::English, QLocale::UnitedStates);
    return locale;
}

// The E or e of an exponent form, or -1.
qsizetype ExponentMark(QStringView section)
{
    for (qsizetype i = 0; i + 1 < section.size(); ++i) {
        const bool sign = section[i + 1] == u'+' || section[i + 1] == u'-';
        if (sign && (section[i] == u'E' || section[i] == u'e'))
            return i;
    }
    return -1;
}

QString ExponentForm(double value, QStringView section, qsizetype mark)
{
    const QStringView mantissaPattern = section.first(mark);
    const QStringView exponentPattern = section.sliced(mark + 2);
    const qsizetype point = mantissaPattern.indexOf(u'.');
    const int decimals = point < 0 ? 0 : CountPlaceholders(mantissaPattern.sliced(point));
    const QString text = QString::number(value, 'E', decimals);
    const qsizetype split = text.indexOf(u'E');
    const int exponent = split < 0 ? 0 : QStringView(text).sliced(split + 1).toInt();
    const QString sign = exponent < 0                ? QStringLiteral("-")
                         : section[mark + 1] == u'+' ? QStringLiteral("+")
                                                     : QString();
    const QString digits = QString::number(std::abs(exponent)).rightJustified(exponentPattern.count(u'0'), u'0');
    return text.first(split < 0 ? text.size() : split) + section[mark] + sign + digits;
}

// What the integer part of a section says besides its literal text.
struct IntegerPattern {
    qsizetype thousands; // commas that scale, each by a thousand
    bool grouping;
    qsizetype leastDigits;
};

IntegerPattern ReadIntegerPattern(QStringView pattern)
{
    const auto lastDigit = std::find_if(pattern.rbegin(), pattern.rend(), IsPlaceholder);
    auto behind = lastDigit.base();
    const auto scaleEnd = std::find_if(behind, pattern.end(), [](QChar c) { return c != u','; });
    const qsizetype thousands = lastDigit == pattern.rend() ? 0 : scaleEnd - behind;
    return {thousands, pattern.count(u',') > thousands, pattern.count(u'0')};
}

// Drops zeros off the end while more than `required` decimals stand, and then a point that nothing follows.
void TrimDecimals(QString& text, qsizetype required)
{
    const qsizetype point = text.indexOf(u'.');
    if (point < 0)
        return;
    while (text.endsWith(u'0') && text.size() - point - 1 > required)
        text.chop(1);
    if (text.endsWith(u'.'))
        text.chop(1);
}

QString IntegerText(const QString& text, const IntegerPattern& pattern)
{
    QString digits = text;
    digits.remove(u',');
    digits = digits.rightJustified(pattern.leastDigits, u'0');
    if (!pattern.grouping)
        return digits;
    bool fits = false;
    const qlonglong integer = digits.toLongLong(&fits);
    return fits ? EnglishLocale().toString(integer) : text;
}

// The number itself, its sign taken off.
QString FixedNumber(double value, QStringView integerPattern, QStringView fractionPattern)
{
    const IntegerPattern integer = ReadIntegerPattern(integerPattern);
    const auto required = fractionPattern.count(u'0');
    const int most = CountPlaceholders(fractionPattern);
    for (qsizetype i = 0; i < integer.thousands && value != 0; ++i)
        value /= 1000.0;
    QString text = integer.grouping ? EnglishLocale().toString(value, 'f', most) : QString::number(value, 'f', most);
    if (required < most)
        TrimDecimals(text, required);
    const QString sign = text.startsWith(u'-') ? QStringLiteral("-") : QString();
    text.remove(0, sign.size());
    const qsizetype point = text.indexOf(u'.');
    const qsizetype integerSize = point < 0 ? text.size() : point;
    return sign + IntegerText(text.first(integerSize), integer) + QStringView(text).sliced(integerSize);
}

QString WithoutCommas(QStringView text)
{
    return text.toString().remove(u',');
}

// The number with what stands around it in the section. A section without a placeholder is printed as it is.
QString FixedForm(double value, QStringView section)
{
    const auto first = std::find_if(section.begin(), section.end(), IsPlaceholder);
    if (first == section.end())
        return section.toString();
    const auto behindLast = std::find_if(section.rbegin(), section.rend(), IsPlaceholder).base();
    const qsizetype point = section.indexOf(u'.');
    const QStringView integerPattern = point < 0 ? section : section.first(point);
    const QStringView fractionPattern = point < 0 ? QStringView() : section.sliced(point + 1);
    if (section.contains(u'%'))
        value *= 100.0;
    QString suffix = WithoutCommas(section.sliced(behindLast - section.begin()));
    if (suffix.startsWith(u'.'))
        suffix.remove(0, 1);
    return WithoutCommas(section.first(first - section.begin())) + FixedNumber(value, integerPattern, fractionPattern) +
           suffix;
}

// The sign stands between prefix and number: FixedNumber gives it in front of its digits.
QString PatternText(double value, QStringView pattern)
{
    const QList<QStringView> sections = pattern.split(u';');
    qsizetype chosen = 0;
    if (sections.size() == 2)
        chosen = value < 0 ? 1 : 0;
    else if (sections.size() > 2)
        chosen = value > 0 ? 0 : value < 0 ? 1 : 2;
    if (value < 0 && sections.size() > 1)
        value = -value; // the section for negative values brings its own sign
    return FormatNumberSection(value, sections[chosen].toString());
}

} // namespace

// Most values are near no short number, and that is told without the division: what is within the tolerance of one
// lies at each scale within the scaled tolerance, and a little for the roundings, of an integer. Adding and taking off
// a number whose last place is the units' rounds to such an integer, or leaves a larger value as it is.
double SnapResidue(double value)
{
    const double tolerance = std::max(residue, std::fabs(value) * residue);
    constexpr double units = 0x1.8p52;
    double scale = 1;
    for (int decimals = 0; decimals <= mostSnappedDecimals; ++decimals, scale *= 10.0) {
        const double scaled = value * scale;
        const double distance = std::fabs(scaled - ((scaled + units) - units));
        if (!(distance <= 1.1 * tolerance * scale)) // infinite values have no distance
            continue;
        const double snapped = std::round(scaled) / scale;
        if (std::fabs(value - snapped) <= tolerance)
            return snapped;
    }
    return value;
}

QString FormatNumberSection(double value, const QString& section)
{
    if (section.isEmpty())
        return QString();
    const qsizetype mark = ExponentMark(section);
    return mark < 0 ? FixedForm(value, section) : ExponentForm(value, section, mark);
}

QString FormatAnswer(double value, const AnswerStyle& style)
{
    const double snapped = SnapResidue(value);
    QString text;
    if (style.outputBase != 10 && ProgrammerMath::FormatInteger(snapped, style.outputBase, text))
        return text;
    return style.pattern.isEmpty() ? GeneralText(snapped, defaultDigits) : PatternText(snapped, style.pattern);
}
