#include "window/pad/PadCommands.h"

#include "core/Calculator.h"
#include "window/MainWindow.h"
#include "window/pad/Pad.h"

#include "ui_MainWindow.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

using FormAction = QAction* Ui::MainWindow::*;

// An option of MENU: what is typed, what it does (no action: it only asks) and what it answers with. An answer without
// a value ends in the state of the switch, or in the current base.
struct MenuOption {
    QLatin1StringView words;
    FormAction action;
    bool checked;
    QLatin1StringView label;
    QLatin1StringView value;
    FormAction state;
};

constexpr QLatin1StringView wordOperators("Word Operators = ");
constexpr QLatin1StringView ignoreText("Ignore Text = ");
constexpr QLatin1StringView predictiveText("Predictive Text Complete = ");
constexpr QLatin1StringView syntaxHelp("Syntax Help = ");
constexpr QLatin1StringView outputBase("Output Base = ");
constexpr QLatin1StringView on("ON");
constexpr QLatin1StringView off("OFF");

using Form = Ui::MainWindow;

// clang-format off
constexpr FormAction words = &Form::actionUse_Word_Oporators;
constexpr FormAction ignore = &Form::actionIgnore_Text_When_Cannot_Solve;
constexpr FormAction predict = &Form::actionPredictive_Text_Complete;
constexpr FormAction syntax = &Form::actionSyntax_Help;
constexpr FormAction decimal = &Form::actionOutputBaseDecimal;
constexpr FormAction binary = &Form::actionOutputBaseBinary;
constexpr FormAction octal = &Form::actionOutputBaseOctal;
constexpr FormAction hexadecimal = &Form::actionOutputBaseHexadecimal;

using Text = QLatin1StringView;

constexpr MenuOption menuOptions[] = {
    {Text("WORD OPERATORS"),               nullptr,     false, wordOperators,  Text(),              words},
    {Text("WORD OPERATORS ON"),            words,       true,  wordOperators,  on,                  nullptr},
    {Text("WORD OPERATORS OFF"),           words,       false, wordOperators,  off,                 nullptr},
    {Text("IGNORE TEXT"),                  nullptr,     false, ignoreText,     Text(),              ignore},
    {Text("IGNORE TEXT ON"),               ignore,      true,  ignoreText,     on,                  nullptr},
    {Text("IGNORE TEXT OFF"),              ignore,      false, ignoreText,     off,                 nullptr},
    {Text("PREDICTIVE TEXT"),              nullptr,     false, predictiveText, Text(),              predict},
    {Text("PREDICTIVE TEXT COMPLETE"),     nullptr,     false, predictiveText, Text(),              predict},
    {Text("PREDICTIVE TEXT ON"),           predict,     true,  predictiveText, on,                  nullptr},
    {Text("PREDICTIVE TEXT COMPLETE ON"),  predict,     true,  predictiveText, on,                  nullptr},
    {Text("PREDICTIVE TEXT OFF"),          predict,     false, predictiveText, off,                 nullptr},
    {Text("PREDICTIVE TEXT COMPLETE OFF"), predict,     false, predictiveText, off,                 nullptr},
    {Text("SYNTAX HELP"),                  nullptr,     false, syntaxHelp,     Text(),              syntax},
    {Text("SYNTAX HELP ON"),               syntax,      true,  syntaxHelp,     on,                  nullptr},
    {Text("SYNTAX HELP OFF"),              syntax,      false, syntaxHelp,     off,                 nullptr},
    {Text("OUTPUT BASE"),                  nullptr,     false, outputBase,     Text(),              nullptr},
    {Text("OUTPUT BASE DEC"),              decimal,     true,  outputBase,     Text("Decimal"),     nullptr},
    {Text("OUTPUT BASE DECIMAL"),          decimal,     true,  outputBase,     Text("Decimal"),     nullptr},
    {Text("OUTPUT BASE BIN"),              binary,      true,  outputBase,     Text("Binary"),      nullptr},
    {Text("OUTPUT BASE BINARY"),           binary,      true,  outputBase,     Text("Binary"),      nullptr},
    {Text("OUTPUT BASE OCT"),              octal,       true,  outputBase,     Text("Octal"),       nullptr},
    {Text("OUTPUT BASE OCTAL"),            octal,       true,  outputBase,     Text("Octal"),       nullptr},
    {Text("OUTPUT BASE HEX"),              hexadecimal, true,  outputBase,     Text("Hexadecimal"), nullptr},
    {Text("OUTPUT BASE HEXADECIMAL"),      hexadecimal, true,  outputBase,     Text("Hexadecimal"), nullptr},
};
// clang-format on

// The value of the checked base: the one of its row.
QLatin1StringView CurrentBase(const Ui::MainWindow& form)
{
    for (const FormAction base : {binary, octal, hexadecimal}) {
        const auto row = std::find_if(std::begin(menuOptions), std::end(menuOptions),
                                      [base](const MenuOption& option) { return option.action == base; });
        if ((form.*base)->isChecked())
            return row->value;
    }
    return QLatin1StringView("Decimal");
}

QLatin1StringView ValueOf(const MenuOption& option, const Ui::MainWindow& form)
{
    if (!option.value.isEmpty())
        return option.value;
    if (!option.state)
        return CurrentBase(form);
    return (form.*option.state)->isChecked() ? on : off;
}

} // namespace

Submission PadCommands::Clear()
{
    if (form.actionSave_Log_On_Clear->isChecked())
        window.WriteLog();
    calculator.values.variables.clear();
    pad.Clear();
    return StatusOnly(QString());
}

Submission PadCommands::CloseWindow()
{
    window.close();
    return {};
}

Submission PadCommands::Minimize()
{
    window.showMinimized();
    return {};
}

Submission PadCommands::Maximize()
{
    window.showMaximized();
    return {};
}

Submission PadCommands::Restore()
{
    window.showNormal();
    return {};
}

Submission PadCommands::SetTopmost()
{
    return KeepOnTop(true, u"Topmost set"_s);
}

Submission PadCommands::ClearTopmost()
{
    return KeepOnTop(false, u"Topmost cleared"_s);
}

// Changing a window's flags hides it.
Submission PadCommands::KeepOnTop(bool topmost, const QString& status)
{
    window.setWindowFlag(Qt::WindowStaysOnTopHint, topmost);
    window.show();
    return StatusOnly(status);
}

Submission PadCommands::SetFontSize(const QString& rest)
{
    bool ok = false;
    const double size = rest.toDouble(&ok);
    if (!ok || !(size > 0))
        return StatusOnly(u"Invalid font size"_s);
    QFont font = pad.Editor()->font();
    font.setPointSizeF(size);
    pad.Editor()->setFont(font);
    return StatusOnly(u"Font size = "_s + QString::number(size, 'g', 6));
}

Submission PadCommands::SetMenuOption(const QString& rest)
{
    const QString asked = rest.toUpper();
    const auto option = std::find_if(std::begin(menuOptions), std::end(menuOptions),
                                     [&](const MenuOption& candidate) { return asked == candidate.words; });
    if (option == std::end(menuOptions)) {
        return LineWithStatus(u"MENU options: WORD OPERATORS, IGNORE TEXT, PREDICTIVE TEXT, SYNTAX HELP, OUTPUT BASE"_s,
                              false, u"Invalid MENU command"_s);
    }
    if (option->action)
        (form.*option->action)->setChecked(option->checked);
    const QString answer = QString(option->label) + ValueOf(*option, form);
    return LineWithStatus(answer, false, answer);
}
