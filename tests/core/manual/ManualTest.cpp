// The manual never lies: what its articles show is what the calculator does.
#include "../Table.h"
#include "core/LineAnswers.h"
#include "core/engine/SyntaxCatalog.h"
#include "core/manual/HelpArticles.h"
#include "core/manual/HelpMenus.h"
#include "core/symbolic/SymbolicCommands.h"

using namespace Qt::StringLiterals;

namespace {

const QList<HelpEntry>& Manual()
{
    static const QList<HelpEntry> entries = [] {
        QList<HelpEntry> list;
        BuildGeneralHelpEntries(list);
        return list;
    }();
    return entries;
}

// The moment of which the articles' examples speak.
Calculator WorkspaceOfTheManual()
{
    Surroundings outside;
    outside.clock = [] { return QDateTime(QDate(2026, 9, 10), QTime(13, 30, 45)); };
    return Calculator(outside);
}

std::optional<Submission> SymbolicCommand(Calculator&, const QString& line)
{
    return HandleSymbolicCommand(line);
}

std::optional<Submission> EquationLine(Calculator& calculator, const QString& line)
{
    return SubmitEquation(calculator, line, [](const QString&) { return false; });
}

// The first line of what the pad shows for a line.
QString Answer(Calculator& calculator, const QString& typed)
{
    const QString line = calculator.NormalizeSubmittedMath(typed);
    bool changed = false;
    std::optional<Submission> submission = SubmitCustomFunctionCommand(calculator, line, changed);
    for (const auto submit : {SubmitFraction, SymbolicCommand, SubmitAssignment, SubmitComparison, EquationLine}) {
        if (!submission)
            submission = submit(calculator, line);
    }
    if (!submission)
        submission = SubmitExpression(calculator, line);
    return submission->runs.isEmpty() ? QString() : submission->runs.first().text.section(u'\n', 0, 0);
}

QStringList ExampleLines(const HelpEntry& entry)
{
    return entry.details.split(u'\n').filter(u" -> "_s);
}

} // namespace

class ManualTest : public QObject {
    Q_OBJECT

private slots:
    void Examples_data();
    void Examples() { CheckRow(); }
    void FunctionArticlesAreWhole_data();
    void FunctionArticlesAreWhole() { CheckRow(); }
    void SyntaxLinesCall_data();
    void SyntaxLinesCall();
    void ArticlesCanBeOpened();
};

// The examples of an article build on each other; the last of the row is the one to look at.
void ManualTest::Examples_data()
{
    const Table row([](const QStringList& lines) {
        Calculator calculator = WorkspaceOfTheManual();
        QString answer;
        QString shown;
        for (const QString& line : lines) {
            const auto arrow = line.indexOf(u" -> "_s);
            answer = Answer(calculator, line.first(arrow).trimmed());
            shown = line.sliced(arrow + 4).trimmed();
        }
        QCOMPARE(answer, shown);
    });
    for (const HelpEntry& entry : Manual()) {
        const QStringList lines = ExampleLines(entry);
        for (qsizetype i = 0; i < lines.size(); ++i)
            row(qPrintable(entry.title + u" | "_s + lines[i].trimmed()), lines.first(i + 1));
    }
}

void ManualTest::FunctionArticlesAreWhole_data()
{
    const Table row([](int index) {
        const HelpEntry& entry = Manual()[index];
        for (const QStringView heading :
             {u"Description", u"Syntax", u"Arguments", u"Examples", u"Purpose", u"How It Works"})
            QVERIFY2(!HelpSection(entry, heading).isEmpty(), qPrintable(heading.toString()));
        QVERIFY2(ExampleLines(entry).size() >= 2, "two worked examples at least");
        const QStringList syntax = HelpSection(entry, u"Syntax").split(u'\n');
        const CalculatorSyntaxItem* item = FindCalculatorSyntaxItem(syntax.first().section(u'(', 0, 0));
        QVERIFY(item);
        QVERIFY2(syntax.contains(item->syntax) || syntax.contains(item->name), "the syntax hint says something else");
    });
    for (int i = 0; i < Manual().size(); ++i) {
        if (Manual()[i].details.contains(u"\nDescription:\n"))
            row(qPrintable(Manual()[i].title), i);
    }
}

void ManualTest::SyntaxLinesCall_data()
{
    QTest::addColumn<QString>("syntax");
    for (const HelpEntry& entry : Manual()) {
        for (const QString& line : HelpSection(entry, u"Syntax").split(u'\n', Qt::SkipEmptyParts)) {
            if (line.contains(u'(') && !line.contains(u'"'))
                QTest::newRow(qPrintable(line)) << line;
        }
    }
}

namespace {

// Something to stand for a parameter; 3 serves for all that are not told here.
QString ArgumentFor(const QString& parameter)
{
    static const QHash<QString, QString> values = {
        {"value", "0.5"},           {"rate", "0.01"},      {"periods", "10"},      {"presentValue", "100"},
        {"payment", "20"},          {"futureValue", "50"}, {"cashFlow0", "-100"},  {"mmcSize", "10"},
        {"lmcSize", "10"},          {"featureSize", "10"}, {"holeMMC", "10"},      {"maximum", "5"},
        {"date", "\"1/1/2020\""},   {"time", "1:23:45"},   {"date1", "TODAY - 1"}, {"date2", "TODAY"},
        {"birthDate", "TODAY - 9"}, {"...", "3, 8, 9"},
    };
    return values.value(parameter, u"3"_s);
}

QString Call(const QString& name, const QStringList& parameters)
{
    QStringList arguments;
    std::transform(parameters.begin(), parameters.end(), std::back_inserter(arguments), ArgumentFor);
    return name + u'(' + arguments.join(u", "_s) + u')';
}

} // namespace

// A call with the arguments of its syntax line has an answer, with one more or one less it has none.
void ManualTest::SyntaxLinesCall()
{
    QFETCH(QString, syntax);
    const QString name = syntax.section(u'(', 0, 0);
    const QString inside = syntax.section(u'(', 1).chopped(1);
    static const QRegularExpression optional(u"\\[[^\\]]*\\]"_s);
    static const QRegularExpression separator(u"[\\[\\], ]+"_s);
    QStringList most = inside.split(separator, Qt::SkipEmptyParts);
    const QStringList fewest = QString(inside).remove(optional).split(separator, Qt::SkipEmptyParts);
    Calculator calculator = WorkspaceOfTheManual();
    QVERIFY(Answer(calculator, Call(name, fewest)) != u"-Cannot Solve-");
    QVERIFY(Answer(calculator, Call(name, most)) != u"-Cannot Solve-");
    if (!inside.contains(u"...")) {
        most.append(u"more"_s);
        QCOMPARE(Answer(calculator, Call(name, most)), u"-Cannot Solve-"_s);
        if (!fewest.isEmpty())
            QCOMPARE(Answer(calculator, Call(name, fewest.mid(1))), u"-Cannot Solve-"_s);
    }
}

// Every article and every alias has a way in: a word that opens it, or a menu's word, which stands before all articles.
void ManualTest::ArticlesCanBeOpened()
{
    QCOMPARE(Manual().size(), 171); // so that none gets lost
    for (const HelpEntry& entry : Manual()) {
        QStringList words = entry.aliases + QStringList(entry.title);
        const bool opened = std::any_of(words.begin(), words.end(), [&](const QString& word) {
            QString menu;
            return FindHelpTopic(Manual(), word) == &entry && !BuildHelpSubmenu(word, Manual(), menu);
        });
        const bool secondOfItsTitle = entry.title == u"FRACTION" && FindHelpTopic(Manual(), entry.title) != &entry;
        QVERIFY2(opened || secondOfItsTitle, qPrintable(entry.title));
    }
}

QTEST_APPLESS_MAIN(ManualTest)
#include "ManualTest.moc"
