#include "core/Submission.h"

Submission StatusOnly(const QString& status)
{
    return {status, {}};
}

Submission LineWithStatus(const QString& line, bool bold, const QString& status)
{
    return {status, {{line, bold}, {QStringLiteral("\n"), false}}};
}

Submission CannotSolve(const QString& status)
{
    return LineWithStatus(QStringLiteral("-Cannot Solve-"), false, status);
}
