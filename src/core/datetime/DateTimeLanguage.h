// The door of the date and time language: is a line of it, and if so, what does it come to?
//
// A line of this language is its own whatever comes of it: one that cannot be read ("1:60", "5:00 / 1:00") fails here
// and is no expression of any other kind.
#pragma once

#include "core/datetime/DateTimeFunctions.h"

#include <QString>
#include <QStringView>

struct DateTimeAnswer {
    bool recognised = false; ///< the line is of this language; all else is empty where it is not
    bool ok = false;         ///< it has a value; all that follows is empty where it has none
    QString answerText;      ///< the printed value; empty for a number, which the caller formats
    bool isNumeric = false;
    double number = 0;  ///< the value where it is a number
    QString newAnsText; ///< what `ANS` reads as from now on; empty for a number and for words ("Thursday")
};

/// Whether a line is of this language whatever `ANS` stands for: a time ("1:30", "1:30:00 pm"), one of the words DATE,
/// DAYS, AGE, HOUR, MINUTE, SECOND, WEEKDAY, TODAY and NOW, or DAY, MONTH or YEAR with an opening bracket, in any
/// case, anywhere in the line. Runs at every key: one pass, nothing allocated.
bool ExpressionLooksLikeDateTimeLanguage(QStringView text);

/// Reads and works out a line.
///
/// @param resolver    gives the numbers of names that are no words of this language
/// @param ansAllowed  whether the last answer was a date-time answer, so that ANS alone makes a line one of this
///                    language
/// @param ansText     that answer's `newAnsText`; if empty, ANS is the resolver's number
/// @param clock       asked once at most, so that NOW is one moment within a line
DateTimeAnswer EvaluateDateTimeLanguageInternal(QStringView text, const NumericResolver& resolver, bool ansAllowed,
                                                const QString& ansText,
                                                const DateTimeClock& clock = QDateTime::currentDateTime);
