// The solver's searches over functions that the compiler has seen: what the same steps cost where nothing is read,
// nothing is interpreted and every size is known.
#pragma once

#include <array>
#include <cmath>
#include <optional>

/// One root of `function`, a double of a double; where it is not finite it has no value.
template <typename Function>
class FloorRootSearch {
public:
    explicit FloorRootSearch(Function equation) : function(equation) {}

    std::optional<double> Run() const
    {
        if (std::fabs(function(0.0)) < 1e-10)
            return 0.0;
        for (const double limit : {10.0, 100.0, 1000.0, 10000.0, 1000000.0}) {
            if (const auto root = FindInRange(limit))
                return *root < 0 && std::fabs(function(-*root)) < 1e-8 ? -*root : *root;
        }
        return std::nullopt;
    }

private:
    std::optional<double> FindInRange(double limit) const
    {
        double previous = -limit;
        double before = function(previous);
        for (int i = 1; i <= 400; ++i) {
            const double x = (i * (limit + limit)) / 400 - limit;
            const double value = function(x);
            if (std::fabs(value) < 1e-10)
                return x;
            if (std::isfinite(value) && std::isfinite(before) && (before < 0) != (value < 0)) {
                if (const auto root = Bisect(previous, before, x))
                    return root;
            }
            previous = x;
            before = value;
        }
        return std::nullopt;
    }

    std::optional<double> Bisect(double low, double below, double high) const
    {
        double middle = (low + high) * 0.5;
        for (int i = 0; i < 100; ++i) {
            const double value = function(middle);
            if (!std::isfinite(value))
                break;
            if (std::fabs(value) < 1e-12)
                return middle;
            if ((below < 0) != (value < 0)) {
                high = middle;
            } else {
                low = middle;
                below = value;
            }
            const double next = (low + high) * 0.5;
            if (next == middle)
                break;
            middle = next;
        }
        return std::fabs(function(middle)) < 1e-8 ? std::optional(middle) : std::nullopt;
    }

    Function function;
};

/// A root of two equations in two unknowns. `Function` gives both residuals at a point, which are finite everywhere.
template <typename Function>
class FloorSystemSearch {
public:
    using Pair = std::array<double, 2>;

    explicit FloorSystemSearch(Function equations) : function(equations) {}

    Pair Run()
    {
        for (unsigned start = 0;; ++start) {
            constexpr double scales[] = {1, 5, 10, 100};
            damping = 0.001;
            for (unsigned i = 0; i < 2; ++i)
                point[i] = start == 0 ? 0 : scales[start % 4] * std::sin((start + 1.0) * (i + 2.0));
            residuals = function(point);
            for (int i = 0; i < 400; ++i) {
                if (std::fmax(std::fabs(residuals[0]), std::fabs(residuals[1])) < 1e-12)
                    return Snapped();
                if (Step())
                    damping = std::fmax(1e-12, damping / 10);
                else if ((damping *= 10) > 1e12)
                    break;
            }
        }
    }

private:
    static double Cost(const Pair& residuals) { return residuals[0] * residuals[0] + residuals[1] * residuals[1]; }

    bool Step()
    {
        const Pair byFirst = Differentiate(0);
        const Pair bySecond = Differentiate(1);
        const double a = Cost(byFirst);
        const double b = byFirst[0] * bySecond[0] + byFirst[1] * bySecond[1];
        const double d = Cost(bySecond);
        const Pair descent = {-(byFirst[0] * residuals[0] + byFirst[1] * residuals[1]),
                              -(bySecond[0] * residuals[0] + bySecond[1] * residuals[1])};
        Pair step;
        return (Solve(a, b, d, descent, step) || Solve(a + damping, b, d + damping, descent, step)) && Accept(step);
    }

    Pair Differentiate(size_t unknown)
    {
        const double h = (std::fabs(point[unknown]) + 1) * 1e-6;
        Pair moved = point;
        moved[unknown] = point[unknown] + h;
        const Pair above = function(moved);
        moved[unknown] = point[unknown] - h;
        const Pair below = function(moved);
        return {(above[0] - below[0]) / (2 * h), (above[1] - below[1]) / (2 * h)};
    }

    // The symmetric matrix a b, b d with the larger pivot first.
    static bool Solve(double a, double b, double d, const Pair& right, Pair& solution)
    {
        const bool swap = std::fabs(b) > std::fabs(a);
        const double pivot = swap ? b : a;
        if (std::fabs(pivot) < 1e-15)
            return false;
        const double beside = (swap ? d : b) / pivot;
        const double first = right[swap ? 1 : 0] / pivot;
        const double factor = swap ? a : b;
        const double last = (swap ? b : d) - factor * beside;
        if (std::fabs(last) < 1e-15)
            return false;
        solution[1] = (right[swap ? 0 : 1] - factor * first) / last;
        solution[0] = first - beside * solution[1];
        return true;
    }

    bool Accept(const Pair& step)
    {
        double fraction = 1;
        for (int i = 0; i < 16; ++i, fraction *= 0.5) {
            const Pair candidate = {point[0] + fraction * step[0], point[1] + fraction * step[1]};
            const Pair there = function(candidate);
            if (Cost(there) < Cost(residuals)) {
                point = candidate;
                residuals = there;
                return true;
            }
        }
        return false;
    }

    Pair Snapped() const
    {
        Pair snapped = point;
        for (double& value : snapped) {
            if (std::fabs(value - std::round(value)) < 1e-9)
                value = std::round(value);
        }
        const Pair there = function(snapped);
        return std::fmax(std::fabs(there[0]), std::fabs(there[1])) < 1e-12 ? snapped : point;
    }

    Function function;
    Pair point = {};
    Pair residuals = {};
    double damping = 0;
};
