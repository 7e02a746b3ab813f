// The words of the date and time language: what each takes, what it gives, and whether a line that holds it is of
// this language. One table says it all; parser and recognition read it.
#pragma once

#include "core/datetime/DateTimeValue.h"

#include <QLatin1StringView>

#include <functional>
#include <optional>
#include <span>

/// The number that a name stands for elsewhere in the calculator, or nothing. The name comes in upper case.
using NumericResolver = std::function<std::optional<double>(const QString& name)>;

/// Tells the local time.
using DateTimeClock = std::function<QDateTime()>;

/// What a line may draw on besides its own text.
struct DateTimeSources {
    const NumericResolver& resolver;
    const DateTimeClock& clock;
    QString ansText{}; ///< the last date-time answer, as text of this language; empty: `ANS` is the resolver's number
    std::optional<QDateTime> moment{}; ///< when the line first asked for the time

    /// The local time in whole seconds, the same however often the line asks.
    QDateTime Now();
};

enum class WordRecognition {
    Alone,         ///< the word makes its line one of this language
    BeforeBracket, ///< only with an opening bracket behind it
    AsAnswer,      ///< only while the last answer was a date-time answer
};

using DateTimeArguments = std::span<const DateTimeValue>;

struct DateTimeWord {
    QLatin1StringView name; // upper case, ASCII
    WordRecognition recognition;
    int arguments;   // 0: the word stands without brackets
    bool takesDates; // a date literal in double quotes may stand for an argument
    DateTimeValue (*value)(DateTimeArguments arguments, DateTimeSources& sources);
};

/// All words.
std::span<const DateTimeWord> DateTimeWords();

/// The word of that name, in upper case, or null.
const DateTimeWord* FindDateTimeWord(QStringView name);

/// The number that a name in upper case stands for outside this language, or Invalid.
DateTimeValue ResolveNumber(const QString& name, DateTimeSources& sources);

/// Years, months and days from a birth date to today: "1 year, 0 months, 12 days". Nothing where the birth date lies
/// after today. Whole years are counted from the birth date, months from the last anniversary, days from there; a
/// day that a month lacks is the month's last.
std::optional<QString> AgeText(QDate birth, QDate today);
