#pragma once

#include <limits>
#include <optional>

/// A number or nothing: what a function gives at a point, nothing outside its domain. NaN is nothing.
///
/// It has the size of a number and is handed back in a register. A std::optional of the same comes back through memory,
/// written by the byte and read by the word, and the wait for that was half the time of a search over an equation.
class Value {
public:
    constexpr Value() = default;
    constexpr Value(std::nullopt_t) {}
    constexpr Value(double value) : number(value) {}

    constexpr bool has_value() const { return number == number; }
    constexpr explicit operator bool() const { return has_value(); }
    constexpr const double& operator*() const { return number; }
    constexpr double value_or(double other) const { return has_value() ? number : other; }

private:
    double number = std::numeric_limits<double>::quiet_NaN();
};
