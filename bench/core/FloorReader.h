// The least that can read the benchmark's mixed lines and print their values: no names but two, no implied products,
// no checks, the shortest text of a number.
#pragma once

#include <QString>

#include <array>
#include <charconv>
#include <cmath>

class FloorReader {
public:
    static double Value(const QString& line)
    {
        FloorReader reader;
        reader.at = reinterpret_cast<const char16_t*>(line.utf16());
        return reader.Sum();
    }

    static QString Answer(const QString& line)
    {
        std::array<char, 32> text;
        const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), Value(line));
        return QString::fromLatin1(text.data(), end - text.data());
    }

private:
    double Sum()
    {
        double value = Product();
        while (*at == u'+' || *at == u'-')
            value = *at++ == u'+' ? value + Product() : value - Product();
        return value;
    }

    double Product()
    {
        double value = Power();
        while (*at == u'*' || *at == u'/')
            value = *at++ == u'*' ? value * Power() : value / Power();
        return value;
    }

    double Power()
    {
        double value = Primary();
        while (*at == u'%') {
            value /= 100;
            ++at;
        }
        if (*at != u'^')
            return value;
        ++at;
        return std::pow(value, Power());
    }

    double Primary()
    {
        if (*at == u'(' || *at == u'S') {
            const char16_t function = *at == u'(' ? u'(' : at[1];
            at += function == u'(' ? 1 : function == u'Q' ? 5 : 4;
            const double value = Sum();
            ++at;
            return function == u'(' ? value : function == u'Q' ? std::sqrt(value) : std::sin(value);
        }
        double value = 0;
        double scale = 1;
        for (; *at >= u'0' && *at <= u'9'; ++at)
            value = value * 10 + (*at - u'0');
        if (*at == u'.') {
            for (++at; *at >= u'0' && *at <= u'9'; ++at) {
                value = value * 10 + (*at - u'0');
                scale *= 10;
            }
        }
        return value / scale;
    }

    const char16_t* at = nullptr;
};
