#include "core/engine/ReservedNames.h"

#include "core/CommandText.h"
#include "core/engine/WordSet.h"

namespace {

// clang-format off
constexpr const char* reservedWords[] = {
    // constants and answers
    "PI", "EULER", "ANS", "TODAY", "NOW",
    // mathematics
    "SIN", "COS", "TAN", "ASIN", "ACOS", "ATAN", "ATAN2", "RAD", "DEG", "SQRT", "ABS", "SIGN", "LOG", "LN", "EXP",
    "ROUND", "FLOOR", "CEIL", "MIN", "MAX", "GCD", "LCM",
    // statistics
    "SUM", "AVG", "MEDIAN", "STDEV", "MODE", "COUNT", "RANGE", "STDEVP", "VARIANCE", "VARIANCEP", "GEOMEAN",
    "HARMEAN", "RMS", "SUMSQ", "PERCENTILE", "QUARTILE", "SKEW", "KURTOSIS", "RANDOM", "RANDINT",
    // fractions and dates
    "FRACTION", "DATE", "DAYS", "AGE", "WEEKDAY", "DAY", "MONTH", "YEAR", "HOUR", "MINUTE", "SECOND",
    // finance
    "FV", "PV", "PMT", "NPER", "RATE", "IPMT", "PPMT", "BALANCE", "INTEREST", "COMPOUND", "APY", "APR", "NPV",
    "IRR", "ROI", "CAGR", "PERCENTCHANGE", "MARKUP", "MARGIN", "DISCOUNT", "TAX",
    // geometric tolerances
    "POSITION", "TRUEPOSITION", "POSITION3D", "RADIALDEV", "DIAMETRALDEV", "COORDDEV", "BONUSTOL", "TOTALTOL",
    "POSITIONALLOW", "ZEROTOLMMC", "VCINTERNAL", "VCEXTERNAL", "RCINTERNAL", "RCEXTERNAL", "BOUNDARYINTERNAL",
    "BOUNDARYEXTERNAL", "FLOATINGFASTENER", "FIXEDFASTENER", "POSITIONMARGIN", "POSITIONUTIL",
    // integers in other bases
    "BIN", "OCT", "HEX", "DEC", "AND", "BITAND", "OR", "BITOR", "XOR", "BITXOR", "NOT", "BITNOT", "SHL", "LSHIFT",
    "SHR", "RSHIFT",
    // word operators
    "PLUS", "ADD", "ADDED", "MINUS", "SUBTRACT", "SUBTRACTED", "MULTIPLY", "MULTIPLIED", "TIMES", "DIVIDE",
    "DIVIDED", "OVER", "POWER", "EXPONENT", "POSITIVE", "EQUAL", "EQUALS",
    // number words
    "ZERO", "ONE", "TWO", "THREE", "FOUR", "FIVE", "SIX", "SEVEN", "EIGHT", "NINE", "TEN", "ELEVEN", "TWELVE",
    "THIRTEEN", "FOURTEEN", "FIFTEEN", "SIXTEEN", "SEVENTEEN", "EIGHTEEN", "NINETEEN", "TWENTY", "THIRTY", "FORTY",
    "FIFTY", "SIXTY", "SEVENTY", "EIGHTY", "NINETY", "HUNDRED", "THOUSAND", "MILLION", "BILLION", "TRILLION",
    "POINT", "NEGATIVE",
};
// clang-format on

} // namespace

bool IsReservedBuiltInName(QStringView name)
{
    static const WordSet words(reservedWords);
    return words.Contains(name) || IsCommandName(name);
}
