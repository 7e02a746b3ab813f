// Calls of a function library written as text, several of one rule together: "FV 0 10 100 5; PMT 0 10 1000".
#pragma once

#include "../Table.h"

#include <QStringList>

#include <cmath>

using RunLibrary = double (*)(const QString& name, const QList<double>& arguments, bool& ok, bool& handled);

/// Runs every call. The library must know the name; each must give `expected` within `relative` of it, or fail where
/// `expected` is NaN.
inline void VerifyCalls(RunLibrary run, const QString& calls, double expected, double relative)
{
    for (const QString& call : calls.split(u';')) {
        QStringList words = call.split(u' ', Qt::SkipEmptyParts);
        const QString name = words.takeFirst();
        QList<double> arguments;
        for (const QString& word : words)
            arguments << word.toDouble();
        bool ok = std::isnan(expected);
        bool handled = false;
        const double value = run(name, arguments, ok, handled);
        const QByteArray found = qPrintable(call + (ok ? QString::number(value, 'g', 17) : QStringLiteral("failed")));
        QVERIFY2(handled, found);
        QVERIFY2(ok != std::isnan(expected), found);
        QVERIFY2(ok ? std::fabs(value - expected) <= relative * std::fabs(expected) : value == 0, found);
    }
}
