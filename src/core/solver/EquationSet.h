// Equations as the pad submits them: solved by the cheapest solver that can, and answered with text.
//
// First as a linear system, then as one equation in one unknown, then by a search that goes on until it is stopped.
// Nothing is called solved before its values have been put back into the equations as entered.
#pragma once

#include "core/Submission.h"
#include "core/solver/EquationSetting.h"
#include "core/solver/SearchPulse.h"

#include <QStringList>

#include <optional>

/// What a set of equations has to say.
struct EquationAnswer {
    Submission submission;
    std::optional<double> lastAnswer; ///< the new value of ANS; nothing: it stays
};

/// Solves equations and reports the answer, an approximate one where the search was stopped.
///
/// @param equations  one line, or the lines of a block
/// @param onTick     called every 100 ms of a search that has no end of its own. It shows the status, lets events run
///                   and says whether to go on.
EquationAnswer HandleEquationSet(const QStringList& equations, const EquationSetting& setting,
                                 const SearchTick& onTick);
