// What equations and comparisons take from the workspace, as it stands when their line is submitted.
#pragma once

#include "core/engine/Evaluator.h"

#include <QString>

#include <functional>

struct EquationSetting {
    Variables variables;
    double lastAnswer = 0;
    bool useWordOperators = false;

    /// Word operators and number words as signs and digits; may change nothing but words of ASCII letters. Empty:
    /// there are none.
    std::function<QString(const QString&)> wordOp;

    /// Writes the calls of the user's functions out; false where that fails. Empty: there are none.
    std::function<bool(const QString& text, QString& expanded)> expandCustomFunctions;

    RandomSource random = GlobalRandomBits;

    /// A value as the user reads it.
    std::function<QString(double)> formatAnswer;
};
