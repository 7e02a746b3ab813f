#include "core/engine/SyntaxCatalog.h"

#include <QHash>

#include <algorithm>
#include <array>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

enum Kind { Function, Constant, Command, WordOperator };

// A function or command without a tail has its name as its syntax. Parameters are read from the tail unless the row
// gives them, separated by "|".
struct CatalogRow {
    Kind kind;
    QLatin1StringView name;
    QLatin1StringView tail{};
    QLatin1StringView parameters{};
};

// clang-format off
constexpr CatalogRow catalogRows[] = {
    {Function, "SIN"_L1, "(angle)"_L1},
    {Function, "COS"_L1, "(angle)"_L1},
    {Function, "TAN"_L1, "(angle)"_L1},
    {Function, "ASIN"_L1, "(value)"_L1},
    {Function, "ACOS"_L1, "(value)"_L1},
    {Function, "ATAN"_L1, "(value)"_L1},
    {Function, "ATAN2"_L1, "(y, x)"_L1},
    {Function, "RAD"_L1, "(degrees)"_L1},
    {Function, "DEG"_L1, "(radians)"_L1},
    {Function, "SQRT"_L1, "(value)"_L1},
    {Function, "ABS"_L1, "(value)"_L1},
    {Function, "SIGN"_L1, "(value)"_L1},
    {Function, "FRACTION"_L1, "(value)"_L1},
    {Function, "LOG"_L1, "(value)"_L1},
    {Function, "LN"_L1, "(value)"_L1},
    {Function, "EXP"_L1, "(value)"_L1},
    {Function, "ROUND"_L1, "([decimalPlaces,] value)"_L1},
    {Function, "FLOOR"_L1, "(value)"_L1},
    {Function, "CEIL"_L1, "(value)"_L1},
    {Function, "MIN"_L1, "(value1, value2, ...)"_L1},
    {Function, "MAX"_L1, "(value1, value2, ...)"_L1},
    {Function, "SUM"_L1, "(value1, value2, ...)"_L1},
    {Function, "AVG"_L1, "(value1, value2, ...)"_L1},
    {Function, "MEDIAN"_L1, "(value1, value2, ...)"_L1},
    {Function, "STDEV"_L1, "(value1, value2, ...)"_L1},
    {Function, "MODE"_L1, "(value1, value2, ...)"_L1},
    {Function, "COUNT"_L1, "(value1, value2, ...)"_L1},
    {Function, "RANGE"_L1, "(value1, value2, ...)"_L1},
    {Function, "STDEVP"_L1, "(value1, value2, ...)"_L1},
    {Function, "VARIANCE"_L1, "(value1, value2, ...)"_L1},
    {Function, "VARIANCEP"_L1, "(value1, value2, ...)"_L1},
    {Function, "GEOMEAN"_L1, "(value1, value2, ...)"_L1},
    {Function, "HARMEAN"_L1, "(value1, value2, ...)"_L1},
    {Function, "RMS"_L1, "(value1, value2, ...)"_L1},
    {Function, "SUMSQ"_L1, "(value1, value2, ...)"_L1},
    {Function, "PERCENTILE"_L1, "(percentile, value1, value2, ...)"_L1},
    {Function, "QUARTILE"_L1, "(number, value1, value2, ...)"_L1},
    {Function, "SKEW"_L1, "(value1, value2, ...)"_L1},
    {Function, "KURTOSIS"_L1, "(value1, value2, ...)"_L1},
    {Function, "RANDOM"_L1, "()"_L1},
    {Function, "RANDINT"_L1, "(minimum, maximum)"_L1},
    {Function, "GCD"_L1, "(integer1, integer2)"_L1},
    {Function, "LCM"_L1, "(integer1, integer2)"_L1},
    {Function, "POSITION"_L1, "(dx, dy)"_L1},
    {Function, "TRUEPOSITION"_L1, "(dx, dy)"_L1},
    {Function, "POSITION3D"_L1, "(dx, dy, dz)"_L1},
    {Function, "BONUSTOL"_L1, "(actualSize, materialConditionSize)"_L1},
    {Function, "TOTALTOL"_L1, "(statedTolerance, bonusTolerance)"_L1},
    {Function, "POSITIONALLOW"_L1, "(statedTolerance, actualSize, materialConditionSize)"_L1},
    {Function, "VCINTERNAL"_L1, "(mmcSize, geometricTolerance)"_L1},
    {Function, "VCEXTERNAL"_L1, "(mmcSize, geometricTolerance)"_L1},
    {Function, "RCINTERNAL"_L1, "(lmcSize, geometricTolerance)"_L1},
    {Function, "RCEXTERNAL"_L1, "(lmcSize, geometricTolerance)"_L1},
    {Function, "FIXEDFASTENER"_L1, "(holeMMC, fastenerMMC)"_L1},
    {Function, "FLOATINGFASTENER"_L1, "(holeMMC, fastenerMMC)"_L1},
    {Function, "COORDDEV"_L1, "(actual, basic)"_L1},
    {Function, "RADIALDEV"_L1, "(dx, dy)"_L1},
    {Function, "DIAMETRALDEV"_L1, "(dx, dy)"_L1},
    {Function, "ZEROTOLMMC"_L1, "(actualSize, mmcSize)"_L1},
    {Function, "BOUNDARYINTERNAL"_L1, "(featureSize, geometricTolerance)"_L1},
    {Function, "BOUNDARYEXTERNAL"_L1, "(featureSize, geometricTolerance)"_L1},
    {Function, "POSITIONMARGIN"_L1, "(allowedPosition, actualPosition)"_L1},
    {Function, "POSITIONUTIL"_L1, "(actualPosition, allowedPosition)"_L1},
    {Function, "BIN"_L1, "(integer)"_L1},
    {Function, "OCT"_L1, "(integer)"_L1},
    {Function, "HEX"_L1, "(integer)"_L1},
    {Function, "DEC"_L1, "(integer)"_L1},
    {Function, "AND"_L1, "(integer1, integer2)"_L1},
    {Function, "BITAND"_L1, "(integer1, integer2)"_L1},
    {Function, "OR"_L1, "(integer1, integer2)"_L1},
    {Function, "BITOR"_L1, "(integer1, integer2)"_L1},
    {Function, "XOR"_L1, "(integer1, integer2)"_L1},
    {Function, "BITXOR"_L1, "(integer1, integer2)"_L1},
    {Function, "NOT"_L1, "(integer)"_L1},
    {Function, "BITNOT"_L1, "(integer)"_L1},
    {Function, "SHL"_L1, "(integer, shiftCount)"_L1},
    {Function, "SHR"_L1, "(integer, shiftCount)"_L1},
    {Function, "LSHIFT"_L1, "(integer, shiftCount)"_L1},
    {Function, "RSHIFT"_L1, "(integer, shiftCount)"_L1},
    {Function, "0b"_L1, "(binaryDigits)"_L1},
    {Function, "0o"_L1, "(octalDigits)"_L1},
    {Function, "0x"_L1, "(hexadecimalDigits)"_L1},
    {Function, "DATE"_L1, "(\"M/D/YYYY [H:MM AM/PM]\")"_L1, "dateText"_L1},
    {Function, "DAYS"_L1, "(date1, date2)"_L1},
    {Function, "AGE"_L1, "(birthDate)"_L1},
    {Function, "WEEKDAY"_L1, "(date)"_L1},
    {Function, "DAY"_L1, "(date)"_L1},
    {Function, "MONTH"_L1, "(date)"_L1},
    {Function, "YEAR"_L1, "(date)"_L1},
    {Function, "HOUR"_L1, "(time)"_L1},
    {Function, "MINUTE"_L1, "(time)"_L1},
    {Function, "SECOND"_L1, "(time)"_L1},
    {Function, "FV"_L1, "(rate, periods, presentValue [, payment])"_L1},
    {Function, "PV"_L1, "(rate, periods, futureValue [, payment])"_L1},
    {Function, "PMT"_L1, "(rate, periods, presentValue [, futureValue])"_L1},
    {Function, "NPER"_L1, "(rate, payment, presentValue [, futureValue])"_L1},
    {Function, "RATE"_L1, "(periods, payment, presentValue [, futureValue])"_L1},
    {Function, "IPMT"_L1, "(rate, paymentNumber, periods, presentValue)"_L1},
    {Function, "PPMT"_L1, "(rate, paymentNumber, periods, presentValue)"_L1},
    {Function, "BALANCE"_L1, "(rate, periods, presentValue, paymentsMade)"_L1},
    {Function, "INTEREST"_L1, "(rate, periods, presentValue)"_L1},
    {Function, "COMPOUND"_L1, "(principal, annualRate, compoundsPerYear, years)"_L1},
    {Function, "APY"_L1, "(annualRate, compoundsPerYear)"_L1},
    {Function, "APR"_L1, "(effectiveAnnualRate, compoundsPerYear)"_L1},
    {Function, "NPV"_L1, "(rate, cashFlow0, cashFlow1, ...)"_L1},
    {Function, "IRR"_L1, "(cashFlow0, cashFlow1, ...)"_L1},
    {Function, "ROI"_L1, "(initialValue, finalValue)"_L1},
    {Function, "CAGR"_L1, "(initialValue, finalValue, years)"_L1},
    {Function, "PERCENTCHANGE"_L1, "(oldValue, newValue)"_L1},
    {Function, "MARKUP"_L1, "(cost, markupRate)"_L1},
    {Function, "MARGIN"_L1, "(revenue, cost)"_L1},
    {Function, "DISCOUNT"_L1, "(price, discountRate)"_L1},
    {Function, "TAX"_L1, "(price, taxRate)"_L1},
    {Constant, "PI"_L1},
    {Constant, "EULER"_L1},
    {Constant, "ANS"_L1},
    {Constant, "TODAY"_L1},
    {Constant, "NOW"_L1},
    {Command, "CLEAR"_L1},
    {Command, "CLR"_L1},
    {Command, "CLS"_L1},
    {Command, "VARS"_L1},
    {Command, "VARIABLES"_L1},
    {Command, "CLEAR VARIABLES"_L1},
    {Command, "EXIT"_L1},
    {Command, "END"_L1},
    {Command, "CLOSE"_L1},
    {Command, "QUIT"_L1},
    {Command, "INFO"_L1},
    {Command, "UPTIME"_L1},
    {Command, "MIN"_L1},
    {Command, "MAX"_L1},
    {Command, "RESTORE"_L1},
    {Command, "TOPMOST"_L1},
    {Command, "TOP MOST"_L1},
    {Command, "ONTOP"_L1},
    {Command, "ON TOP"_L1},
    {Command, "NOTONTOP"_L1},
    {Command, "NOT ON TOP"_L1},
    {Command, "NOT TOPMOST"_L1},
    {Command, "NOT TOP MOST"_L1},
    {Command, "MENU OUTPUT BASE DEC"_L1},
    {Command, "MENU OUTPUT BASE BIN"_L1},
    {Command, "MENU OUTPUT BASE OCT"_L1},
    {Command, "MENU OUTPUT BASE HEX"_L1},
    {Command, "MENU OUTPUT BASE DECIMAL"_L1},
    {Command, "MENU OUTPUT BASE BINARY"_L1},
    {Command, "MENU OUTPUT BASE OCTAL"_L1},
    {Command, "MENU OUTPUT BASE HEXADECIMAL"_L1},
    {Command, "HELP PROGRAMMER MATH"_L1},
    {Command, "FUNCTIONS"_L1},
    {Command, "FONT"_L1, " size"_L1},
    {Command, "FORMAT"_L1, "=formatString"_L1, "formatString"_L1},
    {Command, "MENU"_L1, " option [value]"_L1, "option|value"_L1},
    {Command, "MENU OUTPUT BASE"_L1, " [DEC/BIN/OCT/HEX]"_L1, "base"_L1},
    {Command, "HELP"_L1, " [topic]"_L1},
    {Command, "CREATE FUNCTION"_L1, " name(parameter, ...) = expression"_L1, "name(parameter, ...)|expression"_L1},
    {Command, "DELETE FUNCTION"_L1, " [name]"_L1},
    {Command, "SIMPLIFY"_L1, " expression-or-equation"_L1},
    {Command, "ISOLATE"_L1, " variable, equation"_L1},
    {Command, "HANDLE"_L1, " [title]"_L1},
    {Command, "SETTOPMOST"_L1, " [handle]"_L1},
    {Command, "SETNOTTOPMOST"_L1, " [handle]"_L1},
    {Command, "SHOW"_L1, " [handle]"_L1},
    {Command, "HIDE"_L1, " [handle]"_L1},
    {Command, "ENABLE"_L1, " [handle]"_L1},
    {Command, "DISABLE"_L1, " [handle]"_L1},
    {WordOperator, "RAISED TO THE POWER OF"_L1},
    {WordOperator, "TO THE POWER OF"_L1},
    {WordOperator, "RAISED TO"_L1},
    {WordOperator, "MULTIPLIED BY"_L1},
    {WordOperator, "DIVIDED BY"_L1},
    {WordOperator, "ADDED TO"_L1},
    {WordOperator, "PLUS"_L1},
    {WordOperator, "ADD"_L1},
    {WordOperator, "ADDED"_L1},
    {WordOperator, "MINUS"_L1},
    {WordOperator, "SUBTRACT"_L1},
    {WordOperator, "SUBTRACTED"_L1},
    {WordOperator, "MULTIPLY"_L1},
    {WordOperator, "MULTIPLIED"_L1},
    {WordOperator, "TIMES"_L1},
    {WordOperator, "OF"_L1},
    {WordOperator, "DIVIDE"_L1},
    {WordOperator, "DIVIDED"_L1},
    {WordOperator, "OVER"_L1},
    {WordOperator, "POWER"_L1},
    {WordOperator, "EXPONENT"_L1},
    {WordOperator, "EQUAL"_L1},
    {WordOperator, "EQUALS"_L1},
    {WordOperator, "POSITIVE"_L1},
    {WordOperator, "NEGATIVE"_L1},
    {WordOperator, "ZERO"_L1},
    {WordOperator, "ONE"_L1},
    {WordOperator, "TWO"_L1},
    {WordOperator, "THREE"_L1},
    {WordOperator, "FOUR"_L1},
    {WordOperator, "FIVE"_L1},
    {WordOperator, "SIX"_L1},
    {WordOperator, "SEVEN"_L1},
    {WordOperator, "EIGHT"_L1},
    {WordOperator, "NINE"_L1},
    {WordOperator, "TEN"_L1},
    {WordOperator, "ELEVEN"_L1},
    {WordOperator, "TWELVE"_L1},
    {WordOperator, "THIRTEEN"_L1},
    {WordOperator, "FOURTEEN"_L1},
    {WordOperator, "FIFTEEN"_L1},
    {WordOperator, "SIXTEEN"_L1},
    {WordOperator, "SEVENTEEN"_L1},
    {WordOperator, "EIGHTEEN"_L1},
    {WordOperator, "NINETEEN"_L1},
    {WordOperator, "TWENTY"_L1},
    {WordOperator, "THIRTY"_L1},
    {WordOperator, "FORTY"_L1},
    {WordOperator, "FIFTY"_L1},
    {WordOperator, "SIXTY"_L1},
    {WordOperator, "SEVENTY"_L1},
    {WordOperator, "EIGHTY"_L1},
    {WordOperator, "NINETY"_L1},
    {WordOperator, "HUNDRED"_L1},
    {WordOperator, "THOUSAND"_L1},
    {WordOperator, "MILLION"_L1},
    {WordOperator, "BILLION"_L1},
    {WordOperator, "TRILLION"_L1},
    {WordOperator, "POINT"_L1},
};
// clang-format on

constexpr qsizetype longestName =
    std::max_element(std::begin(catalogRows), std::end(catalogRows), [](const CatalogRow& a, const CatalogRow& b) {
        return a.name.size() < b.name.size();
    })->name.size();

// The parameters of a tail such as "(rate, periods [, payment])". An ellipsis stays with the parameter before it, so
// that all further arguments count as that one.
QStringList ParametersOfTail(QLatin1StringView tail)
{
    QString text = tail;
    for (const QChar bracket : QStringView(u"()[]"))
        text.remove(bracket);
    QStringList parameters;
    for (const QString& piece : text.split(u',', Qt::SkipEmptyParts)) {
        const QString parameter = piece.trimmed();
        if (parameter == "..."_L1)
            parameters.last() += ", ..."_L1;
        else
            parameters += parameter;
    }
    return parameters;
}

CalculatorSyntaxItem ItemOfRow(const CatalogRow& row)
{
    CalculatorSyntaxItem item;
    item.name = row.name;
    if (row.kind == Function || row.kind == Command)
        item.syntax = row.name + row.tail;
    item.parameters = row.parameters.isEmpty() ? ParametersOfTail(row.tail) : QString(row.parameters).split(u'|');
    item.isFunction = row.kind == Function;
    item.isCommand = row.kind == Command;
    item.isWordOperator = row.kind == WordOperator;
    return item;
}

// A name in the form under which equal names in any case are one. Empty where no built-in name can be equal.
class FoldedName {
public:
    explicit FoldedName(QStringView name)
    {
        if (name.size() > longestName)
            return;
        for (const QChar c : name)
            letters[static_cast<size_t>(size++)] = c.toCaseFolded();
    }
    QStringView View() const { return {letters.data(), size}; }

private:
    std::array<QChar, static_cast<size_t>(longestName)> letters;
    qsizetype size = 0;
};

const CalculatorSyntaxItem* FindBuiltIn(QStringView name)
{
    struct Index {
        QStringList keys; // what the hash's views look at
        QHash<QStringView, const CalculatorSyntaxItem*> items;
    };
    static const Index index = [] {
        Index built;
        const QList<CalculatorSyntaxItem>& catalog = BuiltInSyntaxCatalog();
        for (const CalculatorSyntaxItem& item : catalog)
            built.keys += FoldedName(item.name).View().toString();
        for (qsizetype i = catalog.size() - 1; i >= 0; --i) // backwards, so that the first of equals stays
            built.items.insert(built.keys[i], &catalog[i]);
        return built;
    }();
    return index.items.value(FoldedName(name).View());
}

} // namespace

const QList<CalculatorSyntaxItem>& BuiltInSyntaxCatalog()
{
    static const QList<CalculatorSyntaxItem> catalog = [] {
        QList<CalculatorSyntaxItem> items;
        items.reserve(std::size(catalogRows));
        for (const CatalogRow& row : catalogRows)
            items += ItemOfRow(row);
        return items;
    }();
    return catalog;
}

QList<CalculatorSyntaxItem> GetCalculatorSyntaxCatalog(const QList<CalculatorSyntaxItem>& customItems)
{
    return customItems.isEmpty() ? BuiltInSyntaxCatalog() : BuiltInSyntaxCatalog() + customItems;
}

const CalculatorSyntaxItem* FindCalculatorSyntaxItem(const QString& name)
{
    return FindBuiltIn(name);
}

const CalculatorSyntaxItem* FindCalculatorSyntaxItem(const QString& name,
                                                     const QList<CalculatorSyntaxItem>& customItems)
{
    if (const CalculatorSyntaxItem* builtIn = FindBuiltIn(name))
        return builtIn;
    const auto custom = std::find_if(customItems.begin(), customItems.end(), [&](const CalculatorSyntaxItem& item) {
        return item.name.compare(name, Qt::CaseInsensitive) == 0;
    });
    return custom == customItems.end() ? nullptr : &*custom;
}

bool IsCatalogFunction(QStringView name)
{
    const CalculatorSyntaxItem* item = FindBuiltIn(name);
    return item && item->isFunction;
}
