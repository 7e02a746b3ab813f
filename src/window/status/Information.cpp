#include "window/status/Information.h"

#include "core/Calculator.h"
#include "core/engine/SyntaxCatalog.h"
#include "window/workspace/Documents.h"

#include "ui_MainWindow.h"

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QMainWindow>

using namespace Qt::StringLiterals;

// A value behind its label; a section begins with the label before which its head stands.
struct Information::Row {
    QStringView section;
    QStringView label;
    QString (Information::*value)() const;
};

// clang-format off
const Information::Row Information::rows[] = {
    {u"Workspace",   u"Variables:",        &Information::VariableCount},
    {{},             u"Custom Functions:", &Information::CustomFunctionCount},
    {{},             u"ANS:",              &Information::Answer},
    {{},             u"Undo States:",      &Information::UndoCount},
    {{},             u"Redo States:",      &Information::RedoCount},
    {u"Calculation", u"Number Format:",    &Information::NumberFormat},
    {{},             u"Output Base:",      &Information::OutputBase},
    {{},             u"Word Operators:",   &Information::WordOperators},
    {{},             u"Ignore Text:",      &Information::IgnoreText},
    {u"Interface",   u"Predictive Text:",  &Information::PredictiveText},
    {{},             u"Predictive Items:", &Information::PredictiveItems},
    {{},             u"Syntax Help:",      &Information::SyntaxHelp},
    {{},             u"TopMost:",          &Information::TopMost},
    {{},             u"Font:",             &Information::FontFamily},
    {{},             u"Font Size:",        &Information::FontSize},
    {u"Document",    u"Name:",             &Information::DocumentName},
    {{},             u"Path:",             &Information::DocumentPath},
    {{},             u"Lines:",            &Information::LineCount},
    {{},             u"Characters:",       &Information::CharacterCount},
    {{},             u"Modified:",         &Information::Modified},
};
// clang-format on

namespace {

constexpr qsizetype labelWidth = 22;

QString Line(QStringView label, const QString& value)
{
    return u"\n  "_s + label.toString().leftJustified(labelWidth) + value;
}

QString OnOff(bool on)
{
    return on ? u"ON"_s : u"OFF"_s;
}

// Whether the file holds other bytes than these. Only as many of its bytes are read as it takes to know.
QString DifferenceFrom(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return u"UNKNOWN"_s;
    const QByteArray saved = file.read(bytes.size() + 1);
    if (file.error() != QFileDevice::NoError)
        return u"UNKNOWN"_s;
    return saved == bytes ? u"NO"_s : u"YES"_s;
}

} // namespace

QString Information::BuildInfoText() const
{
    QString text = u"Quellbrook Information\n\nApplication"_s + Line(u"Version:", u"2.0"_s) +
                   Line(u"Qt Version:", QString::fromLatin1(qVersion())) + Line(u"Platform:", u"Linux"_s);
    for (const Row& row : rows) {
        if (!row.section.isEmpty())
            text += u"\n\n"_s + row.section;
        text += Line(row.label, (this->*row.value)());
    }
    return text;
}

QString Information::BuildUptimeText() const
{
    return UptimeText(uptime.elapsed());
}

QString Information::VariableCount() const
{
    return QString::number(calculator.values.variables.size());
}

QString Information::CustomFunctionCount() const
{
    return QString::number(calculator.customFunctions.Definitions().size());
}

QString Information::Answer() const
{
    const WorkspaceValues& values = calculator.values;
    if (!values.ansIsDateTime)
        return calculator.FormatAnswer(values.lastAnswer);
    return values.ansDateTimeText.isEmpty() ? u"(Date/Time)"_s : values.ansDateTimeText;
}

QString Information::UndoCount() const
{
    return QString::number(undoStates());
}

QString Information::RedoCount() const
{
    return QString::number(redoStates());
}

QString Information::NumberFormat() const
{
    const QString& pattern = calculator.values.formatPattern;
    return pattern.isEmpty() ? u"Default"_s : pattern;
}

QString Information::OutputBase() const
{
    switch (calculator.Options().outputBase) {
    case 2:
        return u"Binary"_s;
    case 8:
        return u"Octal"_s;
    case 16:
        return u"Hexadecimal"_s;
    default:
        return u"Decimal"_s;
    }
}

QString Information::WordOperators() const
{
    return OnOff(calculator.Options().useWordOperators);
}

QString Information::IgnoreText() const
{
    return OnOff(calculator.Options().ignoreText);
}

QString Information::PredictiveText() const
{
    return OnOff(form.actionPredictive_Text_Complete->isChecked());
}

QString Information::PredictiveItems() const
{
    const auto catalog = GetCalculatorSyntaxCatalog(calculator.customFunctions.GetCustomFunctionSyntaxItems());
    return QString::number(catalog.size());
}

QString Information::SyntaxHelp() const
{
    return OnOff(form.actionSyntax_Help->isChecked());
}

QString Information::TopMost() const
{
    return OnOff(window.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
}

QString Information::FontFamily() const
{
    return form.Text1->font().family();
}

QString Information::FontSize() const
{
    return QString::number(form.Text1->font().pointSizeF());
}

QString Information::DocumentName() const
{
    return documents.Path().isEmpty() ? u"(Untitled)"_s : QFileInfo(documents.Path()).fileName();
}

QString Information::DocumentPath() const
{
    return documents.Path().isEmpty() ? u"(Not saved)"_s : QFileInfo(documents.Path()).absoluteFilePath();
}

QString Information::LineCount() const
{
    return QString::number(form.Text1->blockCount());
}

QString Information::CharacterCount() const
{
    return QString::number(form.Text1->toPlainText().size());
}

QString Information::Modified() const
{
    const QString text = form.Text1->toPlainText();
    if (documents.Path().isEmpty())
        return text.isEmpty() ? u"NO"_s : u"YES"_s;
    return DifferenceFrom(documents.Path(), text.toUtf8());
}

QString UptimeText(qint64 milliseconds)
{
    struct Part {
        qint64 count;
        QStringView word;
    };
    const qint64 seconds = milliseconds / 1000;
    const Part parts[] = {{seconds / 86400, u" day"},
                          {seconds % 86400 / 3600, u" hour"},
                          {seconds % 3600 / 60, u" minute"},
                          {seconds % 60, u" second"}};
    QStringList shown;
    for (const Part& part : parts) {
        const bool isLast = &part == std::end(parts) - 1;
        if (part.count > 0 || !shown.isEmpty() || isLast)
            shown.append(QString::number(part.count) + part.word + (part.count == 1 ? u""_s : u"s"_s));
    }
    return shown.join(u", "_s);
}
