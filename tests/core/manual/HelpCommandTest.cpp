#include "core/manual/HelpCommand.h"
#include "../Table.h"

#include "core/engine/SyntaxCatalog.h"
#include "core/manual/HelpArticles.h"
#include "core/manual/HelpMenus.h"
#include "core/manual/HelpText.h"

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
    void Pages() { CheckRow(); }
    void Switches_data();
    void Switches() { CheckRow(); }
    void ArticlesAreRead();
    void TheWholeManual();
    void TheSearch_data();
    void TheSearch() { CheckRow(); }
    void Menus_data();
    void Menus() { CheckRow(); }
    void MenusListTheirCategory_data();
    void MenusListTheirCategory() { CheckRow(); }
    void EveryNameHasAPage_data();
    void EveryNameHasAPage() { CheckRow(); }
    void TheMenuOfBasicsWordForWord();
    void WindowsAppearWithTheirCategory();
    void HeadingsAreBoldInThePad();
};

void HelpCommandTest::Pages_data()
{
    // The key is "-" where the line is no help command.
    const Table row([](const QString& line, const QString& key, const QString& begin) {
        const std::optional<HelpPage> page = HandleHelpCommand(line);
        QCOMPARE(page.has_value(), key != u"-");
        if (page) {
            QCOMPARE(page->key, key);
            QCOMPARE(page->text.first(std::min(page->text.size(), begin.size())), begin);
        }
    });
    // clang-format off
    row("HELP alone is the index",            "help",             "SPECIAL:INDEX",  "==================== Quellbrook Help");
    row("so is a question mark",              " ? ",              "SPECIAL:INDEX",  "==================== Quellbrook Help");
    row("but not one with words",             "? SQRT",           "-",              "");
    row("signs alone ask about HELP",         "HELP / ?",         "SPECIAL:ABOUT",  "==================== Using HELP");
    row("also without a blank",               "HELP!?!?!?!",      "SPECIAL:ABOUT",  "==================== Using HELP");
    row("an underscore is a sign",            "HELP_",            "SPECIAL:ABOUT",  "==================== Using HELP");
    row("a longer word is no command",        "HELPSQRT",         "-",              "");
    row("also with a letter beyond ASCII",    u"HELPé"_s,         "-",              "");
    row("a shorter word is none",             "HEL",              "-",              "");
    row("all of it, by a slash",              "HELP /ALL",        "SPECIAL:ALL",    "================ Quellbrook Complete Help");
    row("all of it, by a hyphen",             "HELP -all !",      "SPECIAL:ALL",    "================ Quellbrook Complete Help");
    row("ALL with more words is a search",    "HELP ALL XYZZY",   "",               "No help topic or description containing \"ALL XYZZY\" was found.\n\nTry HELP for the index");
    row("a topic in any case",                "Help  Sqrt",       "TOPIC:SQRT",     "================ SQRT ================\n\nDescription:\nReturns");
    row("a topic by an alias",                "HELP square root", "TOPIC:SQRT",     "================ SQRT");
    row("a topic beginning like a switch",    "HELP SIN",         "TOPIC:SIN",      "================ SIN");
    row("signs do not count in a topic",      "HELP gd t",        "TOPIC:GDT",      "================ GD&T");
    row("nor blanks",                         "HELP GDT",         "TOPIC:GDT",      "================ GD&T");
    row("of two topics the first is opened",  "HELP MIN",         "TOPIC:MIN",      "================ MIN ================\n\nDescription:\nReturns the smallest");
    row("a menu before a topic of its name",  "HELP Programmer Math", "CATEGORY:PROGRAMMERMATH", "================ Programmer Math");
    row("the menu's key is the word typed",   "HELP finance",     "CATEGORY:FINANCE", "================ Financial Functions ================");
    row("no menu without its category",       "HELP WINDOWS",     "",               "No ");
    row("a search",                           "HELP /S mortgage", "",               "================== Help Search ==================\n\nSearch: mortgage\n\nPMT\n");
    row("a search without a slash",           "HELP desc mortgage", "",             "================== Help Search ==================\n\nSearch: mortgage\n\n");
    row("a search for nothing",               "HELP SEARCH",      "",               "Help search needs something to search for.\n\nExample:\n  HELP /S window handle");
    row("an unknown word is searched for",    "HELP mortgage rate", "",             "No exact help topic named \"mortgage rate\" was found.\n\nPossible matches:\n\n");
    // clang-format on
}

void HelpCommandTest::Switches_data()
{
    // The rest is "-" where there is no switch.
    const Table row([](const QString& text, const QString& rest) {
        QString left = text;
        QCOMPARE(RemoveHelpSwitch(left, u"ALL"), rest != u"-");
        QCOMPARE(left, rest == u"-" ? text : rest);
    });
    row("signs in front and within are skipped", "/ A.L L", "");
    row("signs behind go too", "/ALL: the rest ", "the rest");
    row("a longer word is another", "ALLOY", "-");
    row("a text that ends too early", "/AL", "-");
    row("signs only", "/?", "-");
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
    const Table row([](const QString& query, bool afterFailedTopic, const QString& text) {
        QCOMPARE(BuildSearchResults(SmallManual(), query, afterFailedTopic), text);
    });
    const QString header = u"================== Help Search ==================\n\nSearch: "_s;
    row("words may stand in different fields", "beginning  END", false,
        header + u"beginning  END\n\nFIRST\n  It comes first.\n\n1 match found."_s);
    row("all words must occur", "first log", false, "No help description containing \"first log\" was found.");
    row("matches stand in the manual's order", "basics", true,
        "No exact help topic named \"basics\" was found.\n\nPossible matches:\n\nFIRST\n  It comes first.\n\n"
        "LOG\n  Logs a value.\n\n2 matches found.");
    row("without words nothing matches", " ", false, "No help description containing \" \" was found.");
}

// Every item of a menu opens something, and a rule stands above each.
void HelpCommandTest::Menus_data()
{
    const Table row([](const QString& word) {
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
    });
    for (const char* word : {"BASICS", "CUSTOMFUNCTION", "FUNCTIONS", "BASES", "STATISTICS", "FINANCE", "CONSTANTS",
                             "EQUATIONS", "COMMANDS", "OPTION", "PAD", "WINDOW", "CONVERSIONS"})
        row(word, word);
}

void HelpCommandTest::MenusListTheirCategory_data()
{
    const Table row([](const QString& category) {
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
    });
    for (const char* category : {"FUNCTIONS", "PROGRAMMER MATH", "STATISTICS", "FINANCIAL", "CONVERSIONS", "COMMANDS",
                                 "EQUATIONS", "CUSTOM FUNCTIONS", "VARIABLES", "WINDOW", "SETTINGS"})
        row(category, category);
}

void HelpCommandTest::EveryNameHasAPage_data()
{
    const Table row([](const QString& name) {
        const std::optional<HelpPage> page = HandleHelpCommand(QString(u"HELP "_s + name));
        QVERIFY(page);
        QVERIFY2(page->key.startsWith(u"TOPIC:") || page->key.startsWith(u"CATEGORY:"), qPrintable(page->text));
    });
    for (const CalculatorSyntaxItem& item : BuiltInSyntaxCatalog()) {
        if (!item.isCommand && !item.isWordOperator)
            row(qPrintable(item.name), item.name);
    }
    // What the Help menu asks for.
    const QString asked =
        u"MATH|OF|VARIABLE|SIMPLIFY|ISOLATE|FUNCTIONS|PROGRAMMER MATH|STATISTICS|FINANCIAL|GD&T|DATE TIME|"
        "CLEAR|INFO|UPTIME|TOPMOST|NOTONTOP|FONT|FORMAT|MENU|WORD OPERATORS|IGNORE TEXT|PREDICTIVE TEXT|"
        "SYNTAX HELP|USER FUNCTIONS|CREATE FUNCTION|DELETE FUNCTION|EQUATION|SYSTEM|SOLVER|APPROXIMATE|"
        "ENTER|CONTINUE ANSWER|EXECUTE SELECTED LINES"_s;
    for (const QString& name : asked.split(u'|'))
        row(qPrintable(u"menu: "_s + name), name);
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
