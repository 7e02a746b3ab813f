// Equations as text: their two sides, their unknowns, and their value at a point by putting numbers into the text.
//
// An unknown is a name that is neither a variable nor a word of the language. Names are compared in upper case. The
// letters inside a number literal (the E of 1E3, the tail of 0x1F) are no names.
//
// The value of an equation is its left side minus its right side, read as one expression. The forms here put the
// numbers into the text and read it each time: they define what a value is, and reports use them. Searches take
// CompiledEquation.h, which gives the same values fast.
#pragma once

#include "core/solver/EquationSetting.h"

#include <QString>
#include <QStringList>

#include <span>

/// Takes an equation apart at its "=".
///
/// @param left, right  trimmed
/// @return false unless exactly one "=" stands in the text and something on both sides of it
bool SplitEquation(const QString& text, QString& left, QString& right);

/// Takes an equation in one unknown apart.
///
/// @param left, right  also filled where the number of unknowns is not one
/// @param variable     the unknown, in upper case
/// @return false unless the text is an equation with exactly one unknown
bool ParseSingleVariableEquation(const QString& text, QString& left, QString& right, QString& variable,
                                 const EquationSetting& setting);

/// The unknowns of a system, custom functions written out: upper case, sorted by code units.
///
/// @return false, with `names` empty, where there is no unknown, a custom function fails to expand, or the system is
///         too large: the unknowns, times the unknowns or the equations, more than a million
bool FindEquationSystemVariables(const QStringList& equations, QStringList& names, const EquationSetting& setting);

/// The strict road from text to value: custom functions are written out, variables and ANS are not known.
std::optional<double> EvaluateStrictly(const QString& text, const EquationSetting& setting);

/// Rewrites both sides into plain arithmetic: `texts[i]` in brackets stands for each `names[i]`, then ANS, custom
/// functions, variables and word operators are written out.
///
/// A name counts also straight behind a digit (the X of 2X), not before one (the X of X2).
///
/// @return false, with the sides half done, where a custom function fails to expand
bool PrepareEquationTexts(QString& left, QString& right, const QStringList& names, const QStringList& texts,
                          const EquationSetting& setting);

/// The same with numbers, at 17 significant digits. An infinite or NaN value stands as text that no expression can
/// have.
///
/// @return false also where there are not as many values as names
bool PrepareEquationExpressions(QString& left, QString& right, const QStringList& names, std::span<const double> values,
                                const EquationSetting& setting);

/// Left minus right of prepared sides.
///
/// @param ok  whether there is a value and it is finite
double EvaluateEquationResidual(const QString& left, const QString& right, bool& ok, const EquationSetting& setting);

/// Left minus right of an equation as entered; 0 where it is none or there are not as many values as names.
double EvaluateSystemEquation(const QString& equation, const QStringList& names, std::span<const double> values,
                              bool& ok, const EquationSetting& setting);

/// Left minus right with both sides read by themselves.
///
/// @param left, right  the values of the sides; unchanged where `ok` is false
/// @param ok           whether both sides have a finite value
double EvaluateSystemEquationSides(const QString& equation, const QStringList& names, std::span<const double> values,
                                   double& left, double& right, bool& ok, const EquationSetting& setting);
