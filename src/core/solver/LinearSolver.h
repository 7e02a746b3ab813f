// Linear systems: recognised by their values, solved by Gauss-Jordan elimination.
//
// The order of the elimination and what counts as zero decide which of many solutions is found; free unknowns are 0.
#pragma once

#include "core/solver/EquationSystem.h"
#include "core/solver/SearchPulse.h"

/// A dense matrix, row by row.
struct Matrix {
    size_t rows = 0;
    size_t columns = 0;
    std::vector<double> entries;

    Matrix(size_t rowCount, size_t columnCount) : rows(rowCount), columns(columnCount), entries(rowCount * columnCount)
    {
    }

    double* Row(size_t row) { return entries.data() + row * columns; }
    const double* Row(size_t row) const { return entries.data() + row * columns; }
};

/// The row of an equation that is linear in all unknowns: residual = constant + sum of row[j] times unknown j.
///
/// @return false where it is not linear, as a probe at one point tells, has no value where it is looked at, or `pulse`
///         stops
bool GetLinearEquationRow(const CompiledEquation& equation, size_t unknowns, std::vector<double>& row, double& constant,
                          SearchPulse& pulse);

/// A solution of a system of linear equations, put to the proof in the equations as entered.
///
/// @param values           one for each unknown
/// @param underdetermined  there are more solutions
/// @return false where an equation is not linear, they contradict each other, the proof fails, or `pulse` stops
bool SolveLinearEquationSystem(const EquationSystem& system, Point& values, bool& underdetermined, SearchPulse& pulse);

/// The solution of a square system.
///
/// @param augmented  the system with its right side as the last column; used up
/// @return false where the sizes do not fit, a pivot is below 1e-15, the solution is not finite, or `pulse` stops
bool SolveNumericLinearSystem(Matrix& augmented, std::vector<double>& solution, SearchPulse& pulse);
