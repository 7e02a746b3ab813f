// The user's own functions: CREATE FUNCTION AREA(W, H) = W * H.
//
// A custom function is text substitution: before an expression is read, every call in it is replaced by the function's
// expression with each parameter replaced by the argument's text, both in brackets. The reader of expressions never
// sees a custom function. Names and parameters count in any case and are kept in upper case.
//
// Which names the language reserves, which are variables and whether an expression can be evaluated is the workspace's
// knowledge and handed in.
#pragma once

#include "core/Submission.h"
#include "core/engine/SyntaxCatalog.h"

#include <QMap>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

class QSettings;

struct CustomFunctionDefinition {
    QString name;           ///< upper case
    QStringList parameters; ///< upper case, in the order of declaration
    QString expression;     ///< as the user wrote it, trimmed

    bool operator==(const CustomFunctionDefinition&) const = default;
};

/// Definitions by name.
using CustomFunctionMap = QMap<QString, CustomFunctionDefinition>;

/// What the commands ask the workspace.
struct CustomFunctionSurroundings {
    std::function<bool(const QString& name)> isReserved; ///< by the language; custom functions do not count here
    std::function<bool(const QString& name)> isVariable;
    /// Whether the text of an expression has a value now, with its variables and the custom functions as they stand.
    std::function<bool(const QString& expression)> canEvaluate;
};

class CustomFunctions {
public:
    const CustomFunctionMap& Definitions() const { return definitions; }
    void SetDefinitions(const CustomFunctionMap& map) { definitions = map; }

    /// The text with all calls of custom functions replaced, also those that come from the replacing.
    ///
    /// @param expanded   the text as given if it holds no call (the same shared text) or if the expansion fails
    /// @param errorText  why it fails: a call without its closing bracket, an empty argument, a wrong number of
    ///                   arguments, more than 99 calls or more than 1000000 characters after a replacement
    /// @return whether it succeeded
    bool ExpandCustomFunctions(const QString& text, QString& expanded, QString& errorText) const;

    /// CREATE FUNCTION, FUNCTIONS and DELETE FUNCTION, in any case.
    ///
    /// A definition is refused, and leaves all as it was, if its name or a parameter is reserved, if functions would
    /// call each other in a circle, or if it has no value with 2 for every parameter.
    ///
    /// @param changed  whether the set of functions is another one now
    /// @return what the command has to say, nothing if the line is none of them
    std::optional<Submission> HandleCustomFunctionCommand(const QString& text, const CustomFunctionSurroundings& around,
                                                          bool& changed);

    /// A line per function, "AREA(W, H) = W * H", in the order of the names; no line feed at the end.
    QString GetCustomFunctionsList() const;

    /// A line per function, "DELETE FUNCTION AREA".
    QString GetDeleteCustomFunctionCommands() const;

    /// One catalog item per function, made at each call.
    QList<CalculatorSyntaxItem> GetCustomFunctionSyntaxItems() const;

    /// Writes the array "CustomFunctions" with the keys "Name", "Parameters" and "Expression".
    void SaveCustomFunctions(QSettings& settings) const;

    /// Replaces all functions by those of the settings. Entries with an invalid, reserved or repeated name or parameter
    /// or without an expression are skipped; circles are not looked for and end in the limit of the expansion.
    void LoadCustomFunctions(QSettings& settings, const std::function<bool(const QString& name)>& isReserved);

private:
    Submission CreateFunction(const QString& rest, const CustomFunctionSurroundings& around, bool& changed);
    Submission DeleteFunction(const QString& rest, bool& changed);

    CustomFunctionMap definitions;
};

/// The text with each identifier replaced whose upper-case form is a key of `replacements`.
///
/// An identifier begins with a letter or "_" wherever one stands that is not part of an identifier or a number: in
/// "10X" X is one. A number is one thing: nothing in 0x1F, 1e3 or 1E-06 is an identifier.
QString ReplaceIdentifierTokens(const QString& text, const QMap<QString, QString>& replacements);
