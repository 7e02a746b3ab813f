// What all doors share: bytes as text, rules that must hold, a calculator that answers the same each time, and the road
// of a line through the core.
#pragma once

#include "core/LineAnswers.h"

/// The text of UTF-8 bytes. What is no UTF-8 becomes U+FFFD; U+E000 to U+E7FF stand for the lone surrogates.
QString TextOf(const quint8* data, size_t size);

/// Ends the program, as a finding, where a rule is broken.
void Require(bool holds, const char* rule, const QString& text);

/// A calculator whose random numbers and whose time are the same in each run.
///
/// @param options  the lowest four bits: word operators, ignoring text, and the output base, 10, 2, 8 or 16
Calculator PredictableCalculator(unsigned options);

/// A line through the tries that need no window, in the order of the pad's.
Submission SubmitLine(Calculator& calculator, const QString& line, const SearchTick& onTick);

/// For lines that search longer than a finding is worth.
inline bool StopSearch(const QString&)
{
    return false;
}

/// The preview's text; a preview that changes anything in the workspace is a finding.
QString PreviewChangingNothing(Calculator& calculator, const QString& line);

/// Whether two texts are numbers so close that the one may be the other without its floating-point residue.
bool DifferByResidue(const QString& a, const QString& b);

/// An answer typed back in that does not give itself is a finding, where it is one that can be typed.
void RequireAnswerGivesItself(const Calculator& calculator, const Submission& answer);
