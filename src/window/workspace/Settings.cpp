#include "window/workspace/Settings.h"

#include "core/Calculator.h"
#include "core/engine/ReservedNames.h"
#include "window/MainWindow.h"
#include "window/workspace/SettingsFile.h"

#include "ui_MainWindow.h"

#include <QSettings>

using namespace Qt::StringLiterals;

namespace {

using FormAction = QAction* Ui::MainWindow::*;

struct OptionKey {
    QLatin1StringView key;
    FormAction action;
};

// clang-format off
constexpr OptionKey optionKeys[] = {
    {QLatin1StringView("UseWordOperators"),       &Ui::MainWindow::actionUse_Word_Oporators},
    {QLatin1StringView("IgnoreText"),             &Ui::MainWindow::actionIgnore_Text_When_Cannot_Solve},
    {QLatin1StringView("SaveLogOnClear"),         &Ui::MainWindow::actionSave_Log_On_Clear},
    {QLatin1StringView("PredictiveTextComplete"), &Ui::MainWindow::actionPredictive_Text_Complete},
    {QLatin1StringView("SyntaxHelp"),             &Ui::MainWindow::actionSyntax_Help},
};

// In the order in which they are asked; decimal where none is.
constexpr OptionKey baseKeys[] = {
    {QLatin1StringView("BIN"), &Ui::MainWindow::actionOutputBaseBinary},
    {QLatin1StringView("OCT"), &Ui::MainWindow::actionOutputBaseOctal},
    {QLatin1StringView("HEX"), &Ui::MainWindow::actionOutputBaseHexadecimal},
    {QLatin1StringView("DEC"), &Ui::MainWindow::actionOutputBaseDecimal},
};
// clang-format on

void LoadOutputBase(Ui::MainWindow& form, const QString& name)
{
    for (const OptionKey& base : baseKeys)
        (form.*base.action)->setChecked(false);
    for (const OptionKey& base : baseKeys) {
        if (name == base.key || base.action == &Ui::MainWindow::actionOutputBaseDecimal) {
            (form.*base.action)->setChecked(true);
            return;
        }
    }
}

QString SavedOutputBase(const Ui::MainWindow& form)
{
    for (const OptionKey& base : baseKeys) {
        if ((form.*base.action)->isChecked())
            return base.key;
    }
    return u"DEC"_s;
}

} // namespace

void LoadWorkspaceSettings(MainWindow& window, Ui::MainWindow& form, Calculator& calculator)
{
    const std::unique_ptr<QSettings> settings = ReadSettingsFile();
    if (settings->contains(u"Font"_s))
        form.Text1->setFont(settings->value(u"Font"_s).value<QFont>());
    if (settings->contains(u"Format"_s))
        calculator.values.formatPattern = settings->value(u"Format"_s).toString();
    for (const OptionKey& option : optionKeys) {
        if (settings->contains(option.key))
            (form.*option.action)->setChecked(settings->value(option.key).toBool());
    }
    if (settings->contains(u"OutputBase"_s))
        LoadOutputBase(form, settings->value(u"OutputBase"_s).toString().trimmed().toUpper());
    calculator.customFunctions.LoadCustomFunctions(*settings, IsReservedBuiltInName);
    if (settings->contains(u"TopMost"_s))
        ApplyTopMostState(window, settings->value(u"TopMost"_s).toBool());
    if (settings->contains(u"WindowGeometry"_s))
        window.restoreGeometry(settings->value(u"WindowGeometry"_s).toByteArray());
}

void SaveWorkspaceSettings(const MainWindow& window, const Ui::MainWindow& form, const Calculator& calculator)
{
    ChangeSettingsFile([&](QSettings& settings) {
        settings.setValue(u"Font"_s, form.Text1->font());
        settings.setValue(u"Format"_s, calculator.values.formatPattern);
        for (const OptionKey& option : optionKeys)
            settings.setValue(option.key, (form.*option.action)->isChecked());
        settings.setValue(u"OutputBase"_s, SavedOutputBase(form));
        calculator.customFunctions.SaveCustomFunctions(settings);
        settings.setValue(u"TopMost"_s, window.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
        settings.setValue(u"WindowGeometry"_s, window.saveGeometry());
    });
}

void ApplyTopMostState(MainWindow& window, bool on)
{
    window.setWindowFlag(Qt::WindowStaysOnTopHint, on);
    window.show();
    const QString platform = QGuiApplication::platformName().toLower();
    if (on && (platform.contains(u"xcb") || platform.contains(u"wayland")))
        window.raise();
}
