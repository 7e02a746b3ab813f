// Enough arithmetic to check what conversions come out as: + - * / with brackets, in the precision of Number.
#pragma once

#include <QByteArray>
#include <QStringView>

#include <cmath>
#include <cstdlib>
#include <type_traits>

template <typename Number>
class Arithmetic {
public:
    /// The value of a text that is arithmetic and nothing else; NaN otherwise.
    static Number Value(QStringView text)
    {
        const QByteArray bytes = text.toLatin1();
        Arithmetic reader(bytes.constData());
        const Number value = reader.Sum();
        return *reader.next == '\0' ? value : Number(NAN);
    }

private:
    explicit Arithmetic(const char* text) : next(text) {}

    bool Take(char c)
    {
        while (*next == ' ')
            ++next;
        if (*next != c)
            return false;
        ++next;
        return true;
    }

    Number Sum()
    {
        Number value = Product();
        for (;;) {
            if (Take('+'))
                value += Product();
            else if (Take('-'))
                value -= Product();
            else
                return value;
        }
    }

    Number Product()
    {
        Number value = Primary();
        for (;;) {
            if (Take('*'))
                value *= Primary();
            else if (Take('/'))
                value /= Primary();
            else
                return value;
        }
    }

    Number Primary()
    {
        if (Take('-'))
            return -Primary();
        if (Take('(')) {
            const Number value = Sum();
            return Take(')') ? value : Number(NAN);
        }
        char* end = nullptr;
        Number value;
        if constexpr (std::is_same_v<Number, long double>)
            value = std::strtold(next, &end);
        else
            value = std::strtod(next, &end);
        value = end == next ? Number(NAN) : value;
        next = end;
        return value;
    }

    const char* next;
};
