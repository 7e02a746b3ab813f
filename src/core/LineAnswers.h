// What a line answers that the calculator alone can answer: the handlers of the core, and the live preview of a line.
#pragma once

#include "core/Calculator.h"
#include "core/Submission.h"
#include "core/solver/SearchPulse.h"

#include <optional>

/// The answer to an expression; `ANS` takes its value. A line without a value says so and changes nothing.
Submission SubmitExpression(Calculator& calculator, const QString& line);

/// Stores a variable and says so; nothing where the line has not the form of an assignment.
std::optional<Submission> SubmitAssignment(Calculator& calculator, const QString& line);

/// TRUE or FALSE, or that the line cannot be compared; nothing where it is no comparison.
std::optional<Submission> SubmitComparison(Calculator& calculator, const QString& line);

/// Solves equations; `ANS` takes the answer of a single one in one unknown.
///
/// @param onTick  called every 100 ms of a search without an end of its own; see EquationSet.h
Submission SubmitEquations(Calculator& calculator, const QStringList& equations, const SearchTick& onTick);

/// The same for a line; nothing where no "=" stands in it. Two of them make no equation.
std::optional<Submission> SubmitEquation(Calculator& calculator, const QString& line, const SearchTick& onTick);

/// CREATE FUNCTION, FUNCTIONS and DELETE FUNCTION; nothing where the line is none of them.
///
/// @param changed  whether there are other custom functions now
std::optional<Submission> SubmitCustomFunctionCommand(Calculator& calculator, const QString& line, bool& changed);

/// FRACTION(expression); `ANS` takes the expression's value. Nothing where the line is not this command.
std::optional<Submission> SubmitFraction(Calculator& calculator, const QString& line);

/// The list of all variables.
Submission ListVariables(Calculator& calculator);

/// Forgets all variables.
Submission ClearVariables(Calculator& calculator);

/// FORMAT, FORMAT = pattern.
///
/// @param rest  what stands behind the command, trimmed
Submission SubmitFormat(Calculator& calculator, const QString& rest);

/// What the status label says of a line while it is being typed. Nothing in the workspace changes.
///
/// @param line  as it stands in the pad
QString PreviewText(Calculator& calculator, const QString& line);
