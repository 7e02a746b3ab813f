#include "core/manual/HelpCommand.h"

#include "core/engine/SyntaxCatalog.h"
#include "core/manual/HelpArticles.h"
#include "core/manual/HelpMenus.h"
#include "core/manual/HelpText.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QList<HelpEntry> Manual()
{
    QList<HelpEntry> entries;
    BuildGeneralHelpEntries(entries);
    return entries;
}

// A manual of three articles, for what does not hang on the real one.
const QList<HelpEntry>& SmallManual()
{
    static const QList<HelpEntry> entries = [] {
        QList<HelpEntry> list;
        ReadHelpArticles(
            u"# FIRST\ncategory: BASICS\naliases: ONE, THE FIRST,\n  BEGINNING\nsummary: It comes first.\n\n"
            "  Indented text.\n\nfirst's end\n\n"
            "# LOG\ncategory: Basics\naliases: LG\n\nDescription:\nLogs a\n value.\n\nSyntax:\nLOG(x)\nLG(x)\n"
            "\nArguments:\nx: above 0\n\nExamples:\nLOG(10) -> 1\n\nPurpose:\nTo log.\n\nHow It Works:\nIt\n"
            "  does.\n# HANDLE\ncategory: WINDOWS\nsummary: Lists windows.\n\nNothing.\n"_s,
            list);
        return list;
    }();
    return entries;
}

} // namespace

class HelpCommandTest : public QObject {
    Q_OBJECT

private slots:
    void Pages_data();
    void Pages();
    void Switches_data();
    void Switches();
    void ArticlesAreRead();
    void TheWholeManual();
    void TheSearch_data();
    void TheSearch();
    void Menus_data();
    void Menus();
    void MenusListTheirCategory_data();
    void MenusListTheirCategory();
    void EveryNameHasAPage_data();
    void EveryNameHasAPage();
    void TheMenuOfBasicsWordForWord();
    void WindowsAppearWithTheirCategory();
    void HeadingsAreBoldInThePad();
};

void HelpCommandTest::Pages_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("key"); // "-": no help command
    QTest::addColumn<QString>("begin");
    // clang-format off
    QTest::newRow("HELP alone is the index")            << "help"             << "SPECIAL:INDEX"  << "==================== Quellbrook Help";
    QTest::newRow("so is a question mark")              << " ? "              << "SPECIAL:INDEX"  << "==================== Quellbrook Help";
    QTest::newRow("but not one with words")             << "? SQRT"           << "-"              << "";
    QTest::newRow("signs alone ask about HELP")         << "HELP / ?"         << "SPECIAL:ABOUT"  << "==================== Using HELP";
    QTest::newRow("also without a blank")               << "HELP!?!?!?!"      << "SPECIAL:ABOUT"  << "==================== Using HELP";
    QTest::newRow("an underscore is a sign")            << "HELP_"            << "SPECIAL:ABOUT"  << "==================== Using HELP";
    QTest::newRow("a longer word is no command")        << "HELPSQRT"         << "-"              << "";
    QTest::newRow("also with a letter beyond ASCII")    << u"HELPé"_s         << "-"              << "";
    QTest::newRow("a shorter word is none")             << "HEL"              << "-"              << "";
    QTest::newRow("all of it, by a slash")              << "HELP /ALL"        << "SPECIAL:ALL"    << "================ Quellbrook Complete Help";
    QTest::newRow("all of it, by a hyphen")             << "HELP -all !"      << "SPECIAL:ALL"    << "================ Quellbrook Complete Help";
    QTest::newRow("ALL with more words is a search")    << "HELP ALL XYZZY"   << ""               << "No help topic or description containing \"ALL XYZZY\" was found.\n\nTry HELP for the index";
    QTest::newRow("a topic in any case")                << "Help  Sqrt"       << "TOPIC:SQRT"     << "================ SQRT ================\n\nDescription:\nReturns";
    QTest::newRow("a topic by an alias")                << "HELP square root" << "TOPIC:SQRT"     << "================ SQRT";
    QTest::newRow("a topic beginning like a switch")    << "HELP SIN"         << "TOPIC:SIN"      << "================ SIN";
    QTest::newRow("signs do not count in a topic")      << "HELP gd t"        << "TOPIC:GDT"      << "================ GD&T";
    QTest::newRow("nor blanks")                         << "HELP GDT"         << "TOPIC:GDT"      << "================ GD&T";
    QTest::newRow("of two topics the first is opened")  << "HELP MIN"         << "TOPIC:MIN"      << "================ MIN ================\n\nDescription:\nReturns the smallest";
    QTest::newRow("a menu before a topic of its name")  << "HELP Programmer Math" << "CATEGORY:PROGRAMMERMATH" << "================ Programmer Math";
    QTest::newRow("the menu's key is the word typed")   << "HELP finance"     << "CATEGORY:FINANCE" << "================ Financial Functions ================";
    QTest::newRow("no menu without its category")       << "HELP WINDOWS"     << ""               << "No ";
    QTest::newRow("a search")                           << "HELP /S mortgage" << ""               << "================== Help Search ==================\n\nSearch: mortgage\n\nPMT\n";
    QTest::newRow("a search without a slash")           << "HELP desc mortgage" << ""             << "================== Help Search ==================\n\nSearch: mortgage\n\n";
    QTest::newRow("a search for nothing")               << "HELP SEARCH"      << ""               << "Help search needs something to search for.\n\nExample:\n  HELP /S window handle";
    QTest::newRow("an unknown word is searched for")    << "HELP mortgage rate" << ""             << "No exact help topic named \"mortgage rate\" was found.\n\nPossible matches:\n\n";
    // clang-format on
}

void HelpCommandTest::Pages()
{
    QFETCH(QString, line);
    QFETCH(QString, key);
    QFETCH(QString, begin);
    const std::optional<HelpPage> page = HandleHelpCommand(line);
    QCOMPARE(page.has_value(), key != u"-");
    if (page) {
        QCOMPARE(page->key, key);
        QCOMPARE(page->text.first(std::min(page->text.size(), begin.size())), begin);
    }
}

void HelpCommandTest::Switches_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("rest"); // "-": no switch
    QTest::newRow("signs in front and within are skipped") << "/ A.L L"
                                                           << "";
    QTest::newRow("signs behind go too") << "/ALL: the rest "
                                         << "the rest";
    QTest::newRow("a longer word is another") << "ALLOY"
                                              << "-";
    QTest::newRow("a text that ends too early") << "/AL"
                                                << "-";
    QTest::newRow("signs only") << "/?"
                                << "-";
}

void HelpCommandTest::Switches()
{
    QFETCH(QString, text);
    QFETCH(QString, rest);
    QString left = text;
    QCOMPARE(RemoveHelpSwitch(left, u"ALL"), rest != u"-");
    QCOMPARE(left, rest == u"-" ? text : rest);
}

void HelpCommandTest::ArticlesAreRead()
{
    QCOMPARE(SmallManual().size(), 3);
    const HelpEntry& first = SmallManual()[0];
    QCOMPARE(first.title, u"FIRST"_s);
    QCOMPARE(first.aliases, QStringList({"ONE", "THE FIRST", "BEGINNING"}));
    QCOMPARE(first.summary, u"It comes first."_s);
    QCOMPARE(first.details, u"FIRST\n\n  Indented text.\n\nfirst's end"_s);
    const HelpEntry& log = SmallManual()[1];
    QCOMPARE(log.summary, u"Logs a value."_s);
    QCOMPARE(HelpSection(log, u"Syntax"), u"LOG(x)\nLG(x)"_s);
    QVERIFY(log.details.endsWith(u"\n\nPurpose:\nTo log.\n\nHow It Works:\nIt does."_s));
}

void HelpCommandTest::TheWholeManual()
{
    const QString text = BuildFullHelp(SmallManual().mid(1));
    QVERIFY(text.startsWith(u"================ Quellbrook Complete Help ================\n"
                            "\n\n-------------------- BASICS --------------------\n\n"
                            "================ LOG ================\n\nDescription:\n"_s));
    QVERIFY(text.endsWith(u"\n============================================================\n\n"
                          "\n\n-------------------- WINDOWS --------------------\n\n"
                          "================ HANDLE ================\n\nNothing.\n"
                          "============================================================\n\n"
                          "====================== End Help =========================="_s));
    QCOMPARE(BuildFullHelp(SmallManual()).count(u"- BASICS -"_s), 1);
}

void HelpCommandTest::TheSearch_data()
{
    QTest::addColumn<QString>("query");
    QTest::addColumn<bool>("afterFailedTopic");
    QTest::addColumn<QString>("text");
    const QString header = u"================== Help Search ==================\n\nSearch: "_s;
    QTest::newRow("words may stand in different fields")
        << "beginning  END" << false << header + u"beginning  END\n\nFIRST\n  It comes first.\n\n1 match found."_s;
    QTest::newRow("all words must occur")
        << "first log" << false << "No help description containing \"first log\" was found.";
    QTest::newRow("matches stand in the manual's order")
        << "basics" << true
        << "No exact help topic named \"basics\" was found.\n\nPossible matches:\n\nFIRST\n  It comes first.\n\n"
           "LOG\n  Logs a value.\n\n2 matches found.";
    QTest::newRow("without words nothing matches") << " " << false << "No help description containing \" \" was found.";
}

void HelpCommandTest::TheSearch()
{
    QFETCH(QString, query);
    QFETCH(bool, afterFailedTopic);
    QTEST(BuildSearchResults(SmallManual(), query, afterFailedTopic), "text");
}

void HelpCommandTest::Menus_data()
{
    QTest::addColumn<QString>("word");
    for (const char* word : {"BASICS", "CUSTOMFUNCTION", "FUNCTIONS", "BASES", "STATISTICS", "FINANCE", "CONSTANTS",
                             "EQUATIONS", "COMMANDS", "OPTION", "PAD", "WINDOW", "CONVERSIONS"})
        QTest::newRow(word) << word;
}

// Every item of a menu opens something, and a rule stands above each.
void HelpCommandTest::Menus()
{
    QFETCH(QString, word);
    const QList<HelpEntry> entries = Manual();
    QString text;
    QVERIFY(BuildHelpSubmenu(word, entries, text));
    QVERIFY(text.endsWith(u'\n' + QString(52, u'=')));
    const QStringList lines = text.split(u'\n');
    for (qsizetype i = 1; i < lines.size(); ++i) {
        QVERIFY2(lines[i].size() <= 80, qPrintable(lines[i]));
        if (!lines[i].startsWith(u"  HELP "))
            continue;
        const QString topic = lines[i].sliced(7);
        QString menu;
        QVERIFY2(FindHelpTopic(entries, topic) || BuildHelpSubmenu(topic, entries, menu), qPrintable(topic));
        QCOMPARE(lines[i - 1], QString(60, u'-'));
        QVERIFY2(lines[i + 1].startsWith(u"      "), qPrintable(topic));
    }
}

void HelpCommandTest::MenusListTheirCategory_data()
{
    QTest::addColumn<QString>("category");
    for (const char* category : {"FUNCTIONS", "PROGRAMMER MATH", "STATISTICS", "FINANCIAL", "CONVERSIONS", "COMMANDS",
                                 "EQUATIONS", "CUSTOM FUNCTIONS", "VARIABLES", "WINDOW", "SETTINGS"})
        QTest::newRow(category) << category;
}

void HelpCommandTest::MenusListTheirCategory()
{
    QFETCH(QString, category);
    const QList<HelpEntry> entries = Manual();
    QString text;
    QVERIFY(BuildHelpSubmenu(category, entries, text));
    QStringList listed;
    for (const QString& line : text.split(u'\n').filter(u"  HELP "_s)) {
        if (const HelpEntry* entry = FindHelpTopic(entries, QStringView(line).sliced(7)))
            listed.append(entry->details);
    }
    for (const HelpEntry& entry : entries)
        QVERIFY2(entry.category != category || listed.contains(entry.details), qPrintable(entry.title));
}

void HelpCommandTest::EveryNameHasAPage_data()
{
    QTest::addColumn<QString>("name");
    for (const CalculatorSyntaxItem& item : BuiltInSyntaxCatalog()) {
        if (!item.isCommand && !item.isWordOperator)
            QTest::newRow(qPrintable(item.name)) << item.name;
    }
    // What the Help menu asks for.
    for (const char* name : {"MATH",
                             "OF",
                             "VARIABLE",
                             "SIMPLIFY",
                             "ISOLATE",
                             "FUNCTIONS",
                             "PROGRAMMER MATH",
                             "STATISTICS",
                             "FINANCIAL",
                             "GD&T",
                             "DATE TIME",
                             "CLEAR",
                             "INFO",
                             "UPTIME",
                             "TOPMOST",
                             "NOTONTOP",
                             "FONT",
                             "FORMAT",
                             "MENU",
                             "WORD OPERATORS",
                             "IGNORE TEXT",
                             "PREDICTIVE TEXT",
                             "SYNTAX HELP",
                             "USER FUNCTIONS",
                             "CREATE FUNCTION",
                             "DELETE FUNCTION",
                             "EQUATION",
                             "SYSTEM",
                             "SOLVER",
                             "APPROXIMATE",
                             "ENTER",
                             "CONTINUE ANSWER",
                             "EXECUTE SELECTED LINES"})
        QTest::addRow("menu: %s", name) << name;
}

void HelpCommandTest::EveryNameHasAPage()
{
    QFETCH(QString, name);
    const std::optional<HelpPage> page = HandleHelpCommand(QString(u"HELP "_s + name));
    QVERIFY(page);
    QVERIFY2(page->key.startsWith(u"TOPIC:") || page->key.startsWith(u"CATEGORY:"), qPrintable(page->text));
}

void HelpCommandTest::TheMenuOfBasicsWordForWord()
{
    QString text;
    QVERIFY(BuildHelpSubmenu(u"Basic", Manual(), text));
    QCOMPARE(text,
             FormatHelpMenu(u"================ Calculator Basics ================\n\n  HELP MATH\n      expression\n"
                            "      Basic arithmetic, powers, parentheses, and implicit multiplication.\n\n"
                            "  HELP PERCENT\n      value%\n      Postfix percentage operator.\n\n"
                            "  HELP FACTORIAL\n      wholeNumber!\n      Postfix factorial operator.\n\n"
                            "  HELP WORD OPERATORS\n      Written forms such as TWO PLUS THREE.\n\n"
                            "Type any HELP topic above for the full explanation.\n"
                            "===================================================="_s));
}

void HelpCommandTest::WindowsAppearWithTheirCategory()
{
    QString text;
    QVERIFY(!BuildHelpSubmenu(u"WINDOWS", Manual(), text));
    QVERIFY(BuildHelpSubmenu(u"WINDOWS", SmallManual(), text));
    QVERIFY(!BuildHelpIndex(Manual()).contains(u"HELP WINDOWS"));
    QVERIFY(BuildHelpIndex(SmallManual())
                .contains(
                    u"window-control commands\n\n  HELP WINDOWS\n      Windows-only external window-handle commands\n\n"
                    "OTHER HELP COMMANDS\n"_s));
    QVERIFY(BuildHelpSubmenu(u"WINDOW", SmallManual(), text));
    QVERIFY(text.contains(u"\nExternal Windows-handle commands are under:\n  HELP WINDOWS\n===="));
}

void HelpCommandTest::HeadingsAreBoldInThePad()
{
    QString text;
    for (const PadRun& run : FormattedHelpText(u"== A ==\n\nx = y\n====\n= B ="_s))
        text += run.bold ? u"<b>"_s + run.text + u"</b>"_s : run.text;
    QCOMPARE(text, u"<b>== A ==</b>\n\nx = y\n====\n<b>= B =</b>\n"_s);
}

QTEST_APPLESS_MAIN(HelpCommandTest)
#include "HelpCommandTest.moc"
