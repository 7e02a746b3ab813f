// The workspace's values, and the road from a line's text to its value and from a value to its text.
//
// There is one of it in a window. It knows no widget: the options are asked for when they are needed, the random bits
// are handed in. Grammar, functions and formats stand in engine/; what a line means to the pad stands in
// LineAnswers.h and, for commands that need the window, with the window.
#pragma once

#include "core/datetime/DateTimeLanguage.h"
#include "core/engine/CustomFunctions.h"
#include "core/engine/Evaluator.h"
#include "core/engine/FunctionTable.h"
#include "core/solver/EquationSetting.h"

#include <QString>

#include <functional>
#include <optional>

/// The user's choices that decide how a line is read and shown. The menus' check marks hold them.
struct CalculatorOptions {
    bool useWordOperators = true;
    bool ignoreText = true; ///< a line that can't be solved is tried again without its words
    int outputBase = 10;    ///< 2, 8, 10 or 16
};

/// What the calculator needs from outside. Each is called when it is needed, never kept as a value.
struct Surroundings {
    std::function<CalculatorOptions()> options = [] { return CalculatorOptions(); };
    RandomSource random = GlobalRandomBits;
    DateTimeClock clock = QDateTime::currentDateTime;
};

/// All that a workspace remembers besides its text. Copies share their data.
struct WorkspaceValues {
    Variables variables;     ///< by upper-case name
    double lastAnswer = 0;   ///< `ANS` as a number
    QString ansDateTimeText; ///< `ANS` as the date-time language reads it, if `ansIsDateTime`
    bool ansIsDateTime = false;
    QString formatPattern; ///< empty: the default format; see engine/AnswerFormat.h
};

/// A line that assigns a variable, or tries to.
struct VariableAssignment {
    QString name;                ///< as typed
    QString expression;          ///< trimmed; may be empty
    bool reserved = false;       ///< no variable can have this name
    std::optional<double> value; ///< nothing where `reserved`, where the expression is empty or where it has no value
};

class Calculator {
public:
    explicit Calculator(Surroundings outside = {});

    WorkspaceValues values;
    CustomFunctions customFunctions;

    CalculatorOptions Options() const { return surroundings.options(); }

    /// The forgiving road: `ANS` and variables get their values, and a text that is no expression is tried again with
    /// word operators read as signs and then, unless it calls a function or holds a broken base literal, without its
    /// words.
    ///
    /// @param ok             whether there is a value
    /// @param processedText  the text as it stood at the last try
    /// @return the value, 0 where there is none. It may be infinite or NaN.
    double EvaluateExpression(const QString& text, bool& ok, QString& processedText);

    /// The same for who does not show the processed text.
    std::optional<double> EvaluateExpression(const QString& text);

    /// The strict road: one expression of numbers and functions, the user's own included.
    double Eval(const QString& text, bool& ok) const;

    /// A line of the date and time language. Names that are none of its words stand for variables, constants and the
    /// last numeric answer. A numeric answer's text is formatted.
    DateTimeAnswer EvaluateDateTimeExpression(const QString& text);

    /// The text with `ANS` replaced by the last numeric answer.
    QString ReplaceANS(const QString& text) const;

    /// The text with all calls of custom functions replaced; see CustomFunctions.h.
    bool ExpandCustomFunctions(const QString& text, QString& expanded, QString& errorText) const;

    /// The text with all variables replaced by their values.
    QString ReplaceVariables(const QString& text) const;

    /// A submitted line as the tries read it: trimmed, and the words of the language written out as arithmetic. HELP
    /// lines and function definitions keep their own words.
    QString NormalizeSubmittedMath(const QString& text) const;

    /// What equations and comparisons take from the workspace as it stands now. It must not outlive the calculator.
    EquationSetting SettingForEquations();

    /// The text of a number by the number format and the output base. A base that the last evaluation asked for, as
    /// `HEX(255)` does, serves for this one text.
    QString FormatAnswer(double value);

    /// For who uses a value without showing it: the base that its evaluation asked for serves no other.
    void ForgetOneTimeOutputBase() { oneTimeOutputBase = 0; }

    /// Whether no variable can have this name: the language has it, or a custom function.
    bool IsReservedVariableName(const QString& name) const;

    /// Takes a line of the form `name = expression` apart and evaluates it; nothing is stored. Nothing where the line
    /// has not that form.
    std::optional<VariableAssignment> EvaluateVariableAssignment(const QString& text);

    /// A line for each variable, "-No Variables-" where there are none; no line feed at the end.
    QString GetVariablesList();

private:
    std::optional<double> Evaluate(const QString& text, QString* processedText);
    std::optional<double> EvaluateTries(const QString& text, QString* processedText) const;
    std::optional<double> EvaluateForgiving(QString& text) const;

    Surroundings surroundings;
    int oneTimeOutputBase = 0; // 0: none
};
