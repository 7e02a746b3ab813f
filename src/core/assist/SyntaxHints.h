// Which signature is shown for a line: the call that the cursor stands in, or the command that the line begins with.
#pragma once

#include <QString>
#include <QStringView>

#include <optional>

class Calculator;
struct CalculatorSyntaxItem;

struct ActiveCall {
    QString name;          ///< as typed
    int argumentIndex = 0; ///< of the argument that the cursor stands in

    bool operator==(const ActiveCall&) const = default;
};

/// The innermost named call that is still open at the end of the text. Brackets without a name group and are passed.
std::optional<ActiveCall> FindActiveFunctionCall(QStringView before);

/// The syntax as HTML, with one parameter bold wherever it stands in it. A negative index makes none bold, one past
/// the last parameter means the last.
QString BuildSyntaxHintText(const CalculatorSyntaxItem& item, int argumentIndex);

/// The hint for a line up to the cursor as HTML; empty where there is none.
QString SyntaxHintFor(const Calculator& calculator, QStringView before);
