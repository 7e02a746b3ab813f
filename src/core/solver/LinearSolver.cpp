#include "core/solver/LinearSolver.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double probeTolerance = 1e-9;
constexpr double zeroTolerance = 1e-12; // of an entry, by the largest one
constexpr double smallestPivot = 1e-15;

double ProbeValue(size_t unknown)
{
    return 1.75 + 0.625 * static_cast<double>(unknown);
}

// Whether the equation has the value that its row predicts at a point with no pattern in it.
bool IsLinear(const CompiledEquation& equation, const std::vector<double>& row, double constant)
{
    Point probe(row.size());
    double predicted = constant;
    for (size_t i = 0; i < row.size(); ++i) {
        probe[i] = ProbeValue(i);
        predicted += row[i] * probe[i];
    }
    const Value actual = equation.Residual(probe);
    if (!actual)
        return false;
    const double scale = std::max({std::fabs(predicted), std::fabs(*actual), 1.0});
    return !(std::fabs(*actual - predicted) > probeTolerance * scale);
}

// A row for each equation: the coefficients, then the negated constant.
bool BuildAugmentedMatrix(const EquationSystem& system, Matrix& matrix, SearchPulse& pulse)
{
    std::vector<double> row;
    double constant = 0;
    for (size_t i = 0; i < matrix.rows; ++i) {
        if (!GetLinearEquationRow(system.compiled[i], system.Unknowns(), row, constant, pulse))
            return false;
        std::copy(row.begin(), row.end(), matrix.Row(i));
        matrix.Row(i)[row.size()] = -constant;
    }
    return true;
}

// The row from `first` down with the largest entry in a column, the first of equals.
size_t PivotRow(const Matrix& matrix, size_t column, size_t first)
{
    size_t best = first;
    for (size_t row = first + 1; row < matrix.rows; ++row) {
        if (std::fabs(matrix.Row(row)[column]) > std::fabs(matrix.Row(best)[column]))
            best = row;
    }
    return best;
}

// Puts a pivot row into its place and makes its pivot 1. Columns before `first` stay as they are.
void PlacePivotRow(Matrix& matrix, size_t from, size_t place, size_t pivotColumn, size_t first)
{
    double* pivotRow = matrix.Row(place);
    if (from != place)
        std::swap_ranges(matrix.Row(from), matrix.Row(from) + matrix.columns, pivotRow);
    const double pivot = pivotRow[pivotColumn];
    for (size_t column = first; column < matrix.columns; ++column)
        pivotRow[column] /= pivot;
}

void SubtractRow(Matrix& matrix, size_t row, size_t pivotRow, double factor, size_t first)
{
    double* target = matrix.Row(row);
    const double* source = matrix.Row(pivotRow);
    for (size_t column = first; column < matrix.columns; ++column)
        target[column] -= factor * source[column];
}

// Gauss-Jordan on an augmented matrix whose last column is the right side. Entries within `tolerance` count as zero and
// stay as they are. Gives the pivots' columns, in the order of their rows; a stopped pulse leaves it unfinished.
std::vector<size_t> Eliminate(Matrix& matrix, double tolerance, SearchPulse& pulse)
{
    std::vector<size_t> pivotColumns;
    for (size_t column = 0; column + 1 < matrix.columns && pivotColumns.size() < matrix.rows; ++column) {
        const size_t place = pivotColumns.size();
        const size_t best = PivotRow(matrix, column, place);
        if (std::fabs(matrix.Row(best)[column]) <= tolerance)
            continue;
        PlacePivotRow(matrix, best, place, column, 0);
        for (size_t row = 0; row < matrix.rows && pulse.MayGoOn(matrix.columns); ++row) {
            const double factor = matrix.Row(row)[column];
            if (row != place && std::fabs(factor) > tolerance)
                SubtractRow(matrix, row, place, factor, 0);
        }
        pivotColumns.push_back(column);
    }
    return pivotColumns;
}

// Whether no row says that zero is something else.
bool IsConsistent(const Matrix& matrix, double tolerance)
{
    for (size_t i = 0; i < matrix.rows; ++i) {
        const double* row = matrix.Row(i);
        const bool empty = std::all_of(row, row + matrix.columns - 1,
                                       [&](double coefficient) { return std::fabs(coefficient) <= tolerance; });
        if (empty && std::fabs(row[matrix.columns - 1]) > tolerance)
            return false;
    }
    return true;
}

double LargestEntry(const Matrix& matrix)
{
    double largest = 1;
    for (const double entry : matrix.entries)
        largest = std::max(largest, std::fabs(entry));
    return largest;
}

} // namespace

bool GetLinearEquationRow(const CompiledEquation& equation, size_t unknowns, std::vector<double>& row, double& constant,
                          SearchPulse& pulse)
{
    Point point(unknowns);
    const Value atZero = equation.Residual(point);
    if (!atZero)
        return false;
    constant = *atZero;
    row.assign(unknowns, 0);
    for (size_t i = 0; i < unknowns; ++i) {
        if (!equation.DependsOn(i))
            continue;
        if (!pulse.MayGoOn(equation.Work()))
            return false;
        point[i] = 1;
        const Value atUnit = equation.Residual(point);
        if (!atUnit)
            return false;
        row[i] = *atUnit - constant;
        point[i] = 0;
    }
    return IsLinear(equation, row, constant);
}

bool SolveLinearEquationSystem(const EquationSystem& system, Point& values, bool& underdetermined, SearchPulse& pulse)
{
    values.clear();
    underdetermined = false;
    Matrix matrix(system.compiled.size(), system.Unknowns() + 1);
    if (!BuildAugmentedMatrix(system, matrix, pulse))
        return false;
    const double tolerance = LargestEntry(matrix) * zeroTolerance;
    const std::vector<size_t> pivotColumns = Eliminate(matrix, tolerance, pulse);
    if (pulse.IsStopped() || !IsConsistent(matrix, tolerance))
        return false;
    Point solution(system.Unknowns());
    for (size_t i = 0; i < pivotColumns.size(); ++i)
        solution[pivotColumns[i]] = matrix.Row(i)[system.Unknowns()];
    if (!system.IsSolvedBy(solution, acceptedResidual))
        return false;
    values = solution;
    underdetermined = pivotColumns.size() < system.Unknowns();
    return true;
}

bool SolveNumericLinearSystem(Matrix& augmented, std::vector<double>& solution, SearchPulse& pulse)
{
    const size_t size = augmented.rows;
    if (size == 0 || augmented.columns != size + 1)
        return false;
    for (size_t column = 0; column < size; ++column) {
        if (!pulse.MayGoOn(size * (size - column)))
            return false;
        const size_t best = PivotRow(augmented, column, column);
        if (std::fabs(augmented.Row(best)[column]) < smallestPivot)
            return false;
        PlacePivotRow(augmented, best, column, column, column);
        for (size_t row = 0; row < size; ++row) {
            if (row != column)
                SubtractRow(augmented, row, column, augmented.Row(row)[column], column);
        }
    }
    solution.resize(size);
    for (size_t i = 0; i < size; ++i)
        solution[i] = augmented.Row(i)[size];
    return std::all_of(solution.begin(), solution.end(), [](double value) { return std::isfinite(value); });
}
