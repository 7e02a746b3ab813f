// Comparisons: expressions joined by <, <=, =, >=, > and <>, in chains of any length. Brackets protect no operator.
#pragma once

#include "core/Submission.h"
#include "core/solver/EquationSetting.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

/// Compares each operand of a chain with the next. Two values are equal if they differ by at most 1e-12, relative to
/// the larger magnitude where that is above 1; < and > have no tolerance.
///
/// @param valid      whether the chain could be evaluated; the lists are filled only then
/// @param result     whether every link holds
/// @param operands   as typed, trimmed; one more than operators. May be null, as the other lists.
/// @return whether the text is a comparison. A chain of "=" alone with an operand that has no value is none: it may be
///         an equation.
bool EvaluateComparison(const QString& text, bool& valid, bool& result, QStringList* operands, QStringList* operators,
                        std::vector<double>* values, const EquationSetting& setting);

/// The answer to a comparison: TRUE, or FALSE with all operands and their values; nothing where the text is none. A
/// chain whose report would have more than ten million characters cannot be compared.
std::optional<Submission> HandleComparisonSubmission(const QString& text, const EquationSetting& setting);
