#include "core/datetime/DateTimeParser.h"

#include "core/datetime/DateTimeArithmetic.h"
#include "core/engine/Characters.h"

#include <QRegularExpression>
#include <QVarLengthArray>

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

struct OperatorRow {
    char16_t sign;
    int strength;
    DateTimeOperator operation;
};

constexpr OperatorRow operators[] = {
    {u'+', 1, DateTimeOperator::Add},
    {u'-', 1, DateTimeOperator::Subtract},
    {u'*', 2, DateTimeOperator::Multiply},
    {u'/', 2, DateTimeOperator::Divide},
};
constexpr OperatorRow bracket = {u'(', 0, {}}; // nothing to its right binds what stands to its left
constexpr OperatorRow minusSign = {u'-', 3, {}};

const OperatorRow* FindOperator(QChar c)
{
    const auto* const row =
        std::find_if(std::begin(operators), std::end(operators), [&](const OperatorRow& o) { return c == o.sign; });
    return row == std::end(operators) ? nullptr : row;
}

// The hour 0 to 23 of an hour by AM or PM, nothing unless that is 1 to 12.
std::optional<int> HourOfDay(qint64 hour, bool afternoon)
{
    if (hour < 1 || hour > 12)
        return std::nullopt;
    return static_cast<int>(hour % 12) + (afternoon ? 12 : 0);
}

bool IsAfternoon(QStringView meridiem)
{
    return meridiem.startsWith(u'P', Qt::CaseInsensitive);
}

std::optional<qint64> TotalSeconds(qint64 hours, int minutes, int seconds)
{
    qint64 total = 0;
    if (minutes > 59 || seconds > 59 || qMulOverflow(hours, qint64(3600), &total) ||
        qAddOverflow(total, qint64(minutes) * 60 + seconds, &total))
        return std::nullopt;
    return total;
}

DateTimeValue ParseDateLiteral(QStringView literal)
{
    // month, day, year, hour, minute, second, AM or PM
    static const QRegularExpression pattern(
        u"^\\s*(\\d{1,2})\\s*[/.-]\\s*(\\d{1,2})\\s*[/.-]\\s*(\\d{4})"
        "(?:\\s+(\\d{1,2})\\s*:\\s*(\\d{2})(?:\\s*:\\s*(\\d{2}))?\\s*(AM|PM))?\\s*$"_s,
        QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = pattern.match(literal.toString());
    if (!match.hasMatch())
        return {};
    const auto field = [&](int group) { return match.capturedView(group).toInt(); };
    const QDate date(field(3), field(1), field(2));
    if (!match.hasCaptured(7))
        return MakeDateValue(date);
    const std::optional<int> hour = HourOfDay(field(4), IsAfternoon(match.capturedView(7)));
    const QTime time = hour ? QTime(*hour, field(5), field(6)) : QTime();
    if (!date.isValid() || !time.isValid())
        return {};
    return MakeStampValue(QDateTime(date, time), match.hasCaptured(6));
}

// Brackets, calls and signs wait on a stack of their own, so that no depth of nesting costs the thread's stack.
class DateTimeParser {
public:
    DateTimeParser(QStringView line, DateTimeSources& lineSources) : text(line), sources(lineSources) {}

    DateTimeValue Evaluate();

private:
    struct Pending {
        const OperatorRow* row;
        const DateTimeWord* word = nullptr; // the word that a call's bracket belongs to
        int argumentsRead = 0;
    };

    void ReadOperand();
    bool ReadBehindOperand();
    bool ReadValue();
    bool ParseIdentifier();
    bool ParseDateArgument(const DateTimeWord& word);
    DateTimeValue ParseTime();
    DateTimeValue ParseNumber();
    bool NextArgument();
    void CloseBracket();
    void FinishCall(const DateTimeWord& word);
    void Reduce(int strength);
    void Push(const DateTimeValue& value);
    void Fail() { ok = false; }

    void SkipSpaces();
    bool Consume(QChar c);
    bool ConsumeWord(QLatin1StringView word);
    QChar At(qsizetype index) const { return index < text.size() ? text[index] : QChar(); }
    qsizetype DigitsEnd(qsizetype from) const;
    std::optional<int> ParseTwoDigits();

    QStringView text;
    DateTimeSources& sources;
    qsizetype position = 0;
    bool ok = true;
    bool behindLiteral = false; // a date literal is an argument of its own: nothing is added to it
    QVarLengthArray<Pending, 16> pending;
    QVarLengthArray<DateTimeValue, 4> values;
};

DateTimeValue DateTimeParser::Evaluate()
{
    do
        ReadOperand();
    while (ok && ReadBehindOperand());
    return ok && pending.isEmpty() ? values.last() : DateTimeValue();
}

// Signs and opening brackets up to the value behind them.
void DateTimeParser::ReadOperand()
{
    for (bool found = false; ok && !found;) {
        SkipSpaces();
        if (At(position) == u'+')
            ++position;
        else if (Consume(u'-'))
            pending.append({&minusSign});
        else if (Consume(u'('))
            pending.append({&bracket});
        else
            found = ReadValue();
    }
}

// What follows a value, up to where the next operand is due. False at the end of the text, and where all has failed.
bool DateTimeParser::ReadBehindOperand()
{
    while (ok) {
        SkipSpaces();
        if (position == text.size()) {
            Reduce(1);
            return false;
        }
        if (const OperatorRow* row = FindOperator(text[position]); row && !behindLiteral) {
            ++position;
            Reduce(row->strength);
            pending.append({row});
            return ok;
        }
        if (Consume(u')'))
            CloseBracket();
        else if (!Consume(u','))
            Fail();
        else if (!NextArgument())
            return ok;
    }
    return false;
}

// False if no value stands here yet: a call has begun, and the operand of its first argument is due.
bool DateTimeParser::ReadValue()
{
    const QChar c = At(position);
    if (IsIdentifierStart(c))
        return ParseIdentifier();
    Push(At(DigitsEnd(position)) == u':' ? ParseTime() : ParseNumber());
    return true;
}

bool DateTimeParser::ParseIdentifier()
{
    const qsizetype start = position;
    while (position < text.size() && IsIdentifierPart(text[position]))
        ++position;
    const QString name = text.mid(start, position - start).toString().toUpper();
    const DateTimeWord* const word = FindDateTimeWord(name);
    if (!word) {
        Push(ResolveNumber(name, sources));
        return true;
    }
    if (word->arguments == 0) {
        Push(word->value({}, sources));
        return true;
    }
    SkipSpaces();
    if (!Consume(u'('))
        Fail();
    pending.append({&bracket, word});
    return ParseDateArgument(*word);
}

// A date literal, if one stands here for the call's next argument.
bool DateTimeParser::ParseDateArgument(const DateTimeWord& word)
{
    SkipSpaces();
    if (!word.takesDates || !Consume(u'"'))
        return false;
    const qsizetype end = text.indexOf(u'"', position);
    Push(end < 0 ? DateTimeValue() : ParseDateLiteral(text.mid(position, end - position)));
    position = end + 1;
    behindLiteral = true;
    return true;
}

// Behind a comma: whether the call's next argument stands there as a literal.
bool DateTimeParser::NextArgument()
{
    behindLiteral = false;
    Reduce(1);
    if (!ok || pending.isEmpty())
        Fail();
    else if (Pending& call = pending.last(); call.word && ++call.argumentsRead < call.word->arguments)
        return ParseDateArgument(*call.word);
    else
        Fail();
    return false;
}

void DateTimeParser::CloseBracket()
{
    behindLiteral = false;
    Reduce(1);
    if (pending.isEmpty())
        Fail();
    if (!ok)
        return;
    const Pending opened = pending.last();
    pending.removeLast();
    if (!opened.word)
        return;
    if (opened.argumentsRead + 1 == opened.word->arguments)
        FinishCall(*opened.word);
    else
        Fail();
}

// Puts the call's value in the place of its arguments.
void DateTimeParser::FinishCall(const DateTimeWord& word)
{
    const qsizetype first = values.size() - word.arguments;
    const DateTimeValue value = word.value({values.cbegin() + first, values.cend()}, sources);
    values.resize(first);
    Push(value);
}

// Works out what waits on the stack down to the last open bracket, as long as it binds at least that strongly.
void DateTimeParser::Reduce(int strength)
{
    while (ok && !pending.isEmpty() && pending.last().row->strength >= strength) {
        const OperatorRow* const row = pending.last().row;
        pending.removeLast();
        const DateTimeValue right = values.last();
        values.removeLast();
        if (row == &minusSign) {
            Push(NegateValue(right));
            continue;
        }
        const DateTimeValue left = values.last();
        values.removeLast();
        Push(CombineValues(row->operation, left, right));
    }
}

void DateTimeParser::Push(const DateTimeValue& value)
{
    ok = ok && value.IsValid();
    values.append(value);
}

// A match is taken as long as it goes. What the literal may not be followed by is no operator and fails there.
DateTimeValue DateTimeParser::ParseTime()
{
    const qsizetype colon = DigitsEnd(position);
    bool hoursFit = false;
    const qint64 hours = text.mid(position, colon - position).toLongLong(&hoursFit);
    position = colon + 1;
    const std::optional<int> minutes = ParseTwoDigits();
    const bool secondsGiven = Consume(u':');
    const std::optional<int> seconds = secondsGiven ? ParseTwoDigits() : 0;
    if (!hoursFit || !minutes || !seconds)
        return {};

    const qsizetype end = position;
    while (IsLiteralSpace(At(position)))
        ++position;
    const bool afternoon = ConsumeWord("PM"_L1);
    if (!afternoon && !ConsumeWord("AM"_L1)) {
        position = end;
        return MakeTimeValue(DateTimeKind::Duration, TotalSeconds(hours, *minutes, *seconds), secondsGiven);
    }
    const std::optional<int> hour = HourOfDay(hours, afternoon);
    if (!hour)
        return {};
    return MakeTimeValue(DateTimeKind::ClockTime, TotalSeconds(*hour, *minutes, *seconds), secondsGiven);
}

DateTimeValue DateTimeParser::ParseNumber()
{
    const qsizetype start = position;
    while (IsAsciiDigit(At(position)) || At(position) == u'.')
        ++position;
    if (At(position).toUpper() == u'E') {
        const bool isSigned = At(position + 1) == u'+' || At(position + 1) == u'-';
        const qsizetype exponent = position + (isSigned ? 2 : 1);
        if (DigitsEnd(exponent) > exponent)
            position = DigitsEnd(exponent);
    }
    bool isNumber = false;
    const double number = text.mid(start, position - start).toDouble(&isNumber);
    return isNumber ? MakeNumberValue(number) : DateTimeValue();
}

void DateTimeParser::SkipSpaces()
{
    while (position < text.size() && IsSpace(text[position]))
        ++position;
}

bool DateTimeParser::Consume(QChar c)
{
    const bool found = position < text.size() && text[position] == c;
    position += found ? 1 : 0;
    return found;
}

bool DateTimeParser::ConsumeWord(QLatin1StringView word)
{
    const bool found = text.mid(position).startsWith(word, Qt::CaseInsensitive);
    position += found ? word.size() : 0;
    return found;
}

qsizetype DateTimeParser::DigitsEnd(qsizetype from) const
{
    while (IsAsciiDigit(At(from)))
        ++from;
    return from;
}

std::optional<int> DateTimeParser::ParseTwoDigits()
{
    if (!IsAsciiDigit(At(position)) || !IsAsciiDigit(At(position + 1)))
        return std::nullopt;
    position += 2;
    return text.mid(position - 2, 2).toInt();
}

} // namespace

DateTimeValue EvaluateDateTimeParser(QStringView text, DateTimeSources& sources)
{
    return DateTimeParser(text, sources).Evaluate();
}
