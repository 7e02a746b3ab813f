// Reads a line of the date and time language into its value.
//
//   expression := operand { ("+" | "-" | "*" | "/") operand }     "*" and "/" bind tighter, all to the left
//   operand    := { "+" | "-" } ( "(" expression ")" | word | time | number )
//   word       := a word of the language, with its arguments in brackets, or a name that stands for a number
//   time       := hours ":" mm [ ":" ss ] [ "AM" | "PM" ]
//
// White space may stand between any two tokens; there is no implied multiplication. A time without AM or PM is a
// duration. An argument that takes a date may be a literal in double quotes instead of an expression: month, day and
// year, parted by "/", "-" or ".", then, if wanted, a time with AM or PM.
#pragma once

#include "core/datetime/DateTimeFunctions.h"

/// White space within a literal, narrower than that between tokens: what \s is in a pattern.
inline bool IsLiteralSpace(QChar c)
{
    return c == u' ' || (c >= u'\t' && c <= u'\r');
}

/// The value of the whole of `text`. Invalid where it is no expression, where an operator does not fit its operands,
/// or where a value leaves its range. Any depth of nesting is read; time and memory grow with the text's length.
DateTimeValue EvaluateDateTimeParser(QStringView text, DateTimeSources& sources);
