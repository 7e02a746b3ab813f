#include "window/assist/HelpWindow.h"

#include "core/manual/HelpArticles.h"
#include "core/manual/HelpCommand.h"
#include "core/manual/HelpText.h"
#include "window/DataHome.h"
#include "window/TypedWindow.h"
#include "window/assist/RuledLines.h"

#include <QFontMetrics>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSplitter>
#include <QStandardItem>
#include <QTextLayout>
#include <QTreeView>

#include <memory>

namespace {

// A help window and what a reader sees of it.
struct Reader {
    explicit Reader(HelpWindow* helpWindow) : window(helpWindow) {}

    QTreeView* tree() { return window->findChild<QTreeView*>("helpTree"); }
    QPlainTextEdit* text() { return window->findChild<QPlainTextEdit*>("helpText"); }
    QLineEdit* search() { return window->findChild<QLineEdit*>("searchEdit"); }
    QString Status() { return window->findChild<QLabel*>("statusLabel")->text(); }
    QModelIndex Root() { return tree()->model()->index(0, 0); }

    static QString Path(const QModelIndex& index)
    {
        const QString above = index.parent().isValid() ? Path(index.parent()) + "/" : QString();
        return above + index.data().toString();
    }

    /// The selected row below the root; empty: none.
    QString Selected()
    {
        const QModelIndexList rows = tree()->selectionModel()->selectedRows();
        return rows.isEmpty() ? QString() : Path(rows.first());
    }

    /// The rows that the filter leaves, each with an indent for each row above it.
    QStringList Visible(const QModelIndex& above = {}, const QString& indent = {})
    {
        QStringList rows;
        for (int row = 0; row < tree()->model()->rowCount(above); ++row) {
            const QModelIndex index = tree()->model()->index(row, 0, above);
            if (!tree()->isRowHidden(row, above))
                rows << indent + index.data().toString() << Visible(index, indent + "-");
        }
        return rows;
    }

    HelpWindow* window;
};

// A text without its ruled lines, which each width draws differently.
QString WithoutRules(const QString& text)
{
    QStringList lines = text.split('\n');
    lines.removeIf([](const QString& line) { return line.startsWith('=') && line.endsWith('='); });
    return lines.join('\n');
}

HelpWindowArticle Article(const QString& title, const QString& category, const QString& body)
{
    return {title, category, {"alias of " + title}, "About " + title, "== " + title + " ==\n" + body};
}

} // namespace

class HelpWindowTest : public QObject {
    Q_OBJECT

private slots:
    void init() { home = std::make_unique<DataHome>(); }
    void RuledLine_data();
    void RuledLine();
    void Widths();
    void Command_data();
    void Command();
    void EveryArticle();
    void Tree();
    void Find_data();
    void Find();
    void Filter_data();
    void Filter();
    void FilteredOutPageIsShown();
    void Layout();
    void RulesStayOneLine();
    void PlaceInTheText();
    void CurrentRowAfterTextWithoutRow();
    void KeysAlone();

private:
    std::unique_ptr<DataHome> home;
    // Known categories out of their order, an unknown one, a title that stands twice, a category with a menu.
    HelpWindow small{{Article("Loose", "ODDS", "nothing <b>else</b>"), Article("MIN", "WINDOW", "smaller pane"),
                      Article("MIN", "STATISTICS", "least value"), Article("GD&T", "GD&T", "tolerance"),
                      Article("AVERAGE", "STATISTICS", "mean value"), Article("STATISTICS FUNCTIONS", "FUNCTIONS", "")},
                     {{"STATISTICS", "the menu"}},
                     "the index",
                     "the help on help",
                     "the whole manual",
                     nullptr};
};

void HelpWindowTest::RuledLine_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("title"); // "=": a rule; empty: the line stays
    // clang-format off
    QTest::newRow("equals signs alone are a rule")              << "====="        << "=";
    QTest::newRow("blanks around a rule do not count")          << "  ===  "      << "=";
    QTest::newRow("two are none")                               << " == "         << "";
    QTest::newRow("a title stands between equals signs")        << "== Help =="   << "Help";
    QTest::newRow("in any share of them")                       << "=Help==="     << "Help";
    QTest::newRow("of at least four")                           << "= Help =="    << "";
    QTest::newRow("those within it count")                      << "= a = b ="    << "";
    QTest::newRow("and stay")                                   << "== a = b =="  << "a = b";
    QTest::newRow("a title must not be blank")                  << "== =="        << "";
    QTest::newRow("a line that only begins with them stays")    << "==== Help"    << "";
    QTest::newRow("other lines stay")                           << "  x = 5  "    << "";
    QTest::newRow("an empty line stays")                        << ""             << "";
    // clang-format on
}

void HelpWindowTest::RuledLine()
{
    QFETCH(QString, line);
    QFETCH(QString, title);
    const QFontMetricsF metrics(small.font());
    QString expected = line;
    if (title == "=")
        expected = BuildFullWidthEquals(300, metrics);
    else if (!title.isEmpty())
        expected = BuildTitleLine(title, 300, metrics);
    QCOMPARE(FitRuledLines("above\n" + line + "\n", 300, metrics), "above\n" + expected + "\n");
}

// Each line is the longest that fits, but never shorter than its least form.
void HelpWindowTest::Widths()
{
    const QFontMetricsF metrics(small.font());
    for (int width = 1; width < 900; width += 7) {
        const QString rule = BuildFullWidthEquals(width, metrics);
        QVERIFY(rule == "=" || metrics.horizontalAdvance(rule) <= width);
        QVERIFY(metrics.horizontalAdvance(rule + "=") > width);
        QVERIFY(!rule.isEmpty() && rule.count('=') == rule.size());

        const QString title = BuildTitleLine("  FONT <size> ", width, metrics);
        QVERIFY(title == "= FONT <size> =" || metrics.horizontalAdvance(title) <= width);
        QVERIFY(metrics.horizontalAdvance(title + "=") > width);
        const auto left = title.indexOf(" FONT <size> ");
        const auto right = title.size() - left - QString(" FONT <size> ").size();
        QVERIFY(left >= 1 && right >= 1 && (left == right || left == right + 1));
        QCOMPARE(title.count('='), left + right);
    }
}

void HelpWindowTest::Command_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("selected");
    QTest::addColumn<QString>("status");
    QTest::addColumn<QString>("shown"); // somewhere in the text
    const QString root = "Quellbrook Help";
    // clang-format off
    QTest::newRow("the index")                          << "HELP"            << root << root << "OTHER HELP COMMANDS";
    QTest::newRow("its short form")                     << "?"               << root << root << "OTHER HELP COMMANDS";
    QTest::newRow("the page on HELP")                   << "HELP /?"         << root + "/Using HELP" << "Using HELP" << "HELP /DESCRIPTION words";
    QTest::newRow("the whole manual")                   << "HELP /ALL"       << root + "/Complete Help Manual" << "Complete Help Manual" << " End Help ";
    QTest::newRow("an article")                         << "help sqrt"       << root + "/FUNCTIONS/SQRT" << "SQRT" << "non-negative square root";
    QTest::newRow("an alias opens its article")         << "HELP SQUARE ROOT" << root + "/FUNCTIONS/SQRT" << "SQRT" << "non-negative square root";
    QTest::newRow("the first of two titles")            << "HELP MIN"        << root + "/STATISTICS/MIN" << "MIN" << "MIN(";
    QTest::newRow("words are shown as they are")        << "HELP FONT"       << root + "/COMMANDS/FONT <size>" << "FONT <size>" << "FONT <size>";
    QTest::newRow("an article of an area's name")       << "HELP GD&T"       << root + "/GD&T/GD&T" << "GD&T" << "GD&T";
    QTest::newRow("a category")                         << "HELP STATISTICS" << root + "/STATISTICS" << "STATISTICS" << "HELP AVG";
    QTest::newRow("a word that holds one category")     << "HELP UNIT CONVERSIONS" << root + "/CONVERSIONS" << "CONVERSIONS" << "Unit Conversions";
    QTest::newRow("a menu's word that is no category")  << "HELP FINANCE"    << "" << "Help" << "Financial Functions";
    QTest::newRow("a word that holds two categories")   << "HELP FINANCIAL FUNCTIONS" << "" << "Help" << "Financial Functions";
    QTest::newRow("results of a search")                << "HELP /S non-negative root" << "" << "Help" << "match";
    QTest::newRow("an unknown word")                    << "HELP xyzzy"      << "" << "Help" << "No help topic";
    // clang-format on
}

void HelpWindowTest::Command()
{
    QFETCH(QString, line);
    QFETCH(QString, shown);
    TypedWindow typed;
    typed.TypeLine(line);
    auto* window = typed.window.findChild<HelpWindow*>();
    QVERIFY(window && window->isVisible());
    Reader reader(window);
    QTEST(reader.Selected(), "selected");
    QTEST(reader.Status(), "status");
    QVERIFY(reader.text()->toPlainText().contains(shown));
    QCOMPARE(typed.pad()->toPlainText(), line + "\n");
    QCOMPARE(typed.Label(), "Help");

    window->close();
    QVERIFY(!window->isVisible());
    typed.TypeLine("HELP LOG");
    QVERIFY(window->isVisible());
    QCOMPARE(typed.window.findChildren<HelpWindow*>().size(), 1);
    QCOMPARE(reader.Status(), "LOG");
    QVERIFY(reader.tree()->isExpanded(reader.tree()->currentIndex().parent()));
}

// By its row, and by its title: of two articles of one title that opens the first.
void HelpWindowTest::EveryArticle()
{
    TypedWindow typed;
    typed.TypeLine("HELP");
    Reader reader(typed.window.findChild<HelpWindow*>());
    QList<HelpEntry> entries;
    BuildGeneralHelpEntries(entries);
    QMap<QString, HelpEntry> firsts;
    for (const HelpEntry& entry : entries) {
        const HelpEntry first = firsts.value(entry.title, entry);
        firsts.insert(entry.title, first);
        reader.window->ShowHelp("TOPIC:" + NormalizeHelpKey(entry.title), "not in the tree");
        QCOMPARE(reader.Status(), entry.title);
        QCOMPARE(reader.Selected(), "Quellbrook Help/" + first.category + "/" + first.title);
        QCOMPARE(WithoutRules(reader.text()->toPlainText()), WithoutRules(FormatHelpTopic(first)));
    }
    const QAbstractItemModel* model = reader.tree()->model();
    for (int row = 0; row < model->rowCount(reader.Root()); ++row) {
        const QModelIndex category = model->index(row, 0, reader.Root());
        for (int child = 0; child < model->rowCount(category); ++child) {
            const QModelIndex index = model->index(child, 0, category);
            reader.tree()->setCurrentIndex(index);
            const auto next = std::find_if(entries.begin(), entries.end(), [&](const HelpEntry& entry) {
                return entry.category == category.data().toString();
            });
            QVERIFY(next != entries.end());
            QCOMPARE(index.data().toString(), next->title);
            QCOMPARE(WithoutRules(reader.text()->toPlainText()), WithoutRules(FormatHelpTopic(*next)));
            entries.erase(next);
        }
    }
    QVERIFY(entries.isEmpty());
}

void HelpWindowTest::Tree()
{
    Reader reader(&small);
    QCOMPARE(reader.Visible(), QStringList({"Quellbrook Help", "-FUNCTIONS", "--STATISTICS FUNCTIONS", "-STATISTICS",
                                            "--MIN", "--AVERAGE", "-GD&T", "--GD&T", "-WINDOW", "--MIN", "-ODDS",
                                            "--Loose", "-Using HELP", "-Complete Help Manual"}));
    small.ShowHelp("CATEGORY:STATISTICS", "");
    QCOMPARE(reader.text()->toPlainText(), "the menu");
    small.ShowHelp("CATEGORY:ODDS", "");
    QCOMPARE(WithoutRules(reader.text()->toPlainText()), "\nLoose\n    About Loose\n");
}

void HelpWindowTest::Find_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("found"); // navigation key
    // clang-format off
    QTest::newRow("a key")                                      << "TOPIC:AVERAGE"      << "TOPIC:AVERAGE";
    QTest::newRow("a title in any writing")                     << "gd & t"             << "TOPIC:GDT";
    QTest::newRow("an article before a category")               << "GDT"                << "TOPIC:GDT";
    QTest::newRow("a category")                                 << "odds"               << "CATEGORY:ODDS";
    QTest::newRow("a row of any other key")                     << "using help"         << "SPECIAL:ABOUT";
    QTest::newRow("a part of one category")                     << "stat istic"         << "CATEGORY:STATISTICS";
    QTest::newRow("more than one category")                     << "the odds"           << "CATEGORY:ODDS";
    QTest::newRow("a part of three characters is too short")    << "odd"                << "";
    QTest::newRow("two categories are none")                    << "functions of statistics" << "";
    QTest::newRow("a key's prefix is part of the word")         << "CATEGORY:STATISTIC" << "";
    QTest::newRow("nothing")                                    << ""                   << "";
    QTest::newRow("signs alone")                                << "?!"                 << "";
    // clang-format on
}

void HelpWindowTest::Find()
{
    QFETCH(QString, key);
    const QStandardItem* item = small.FindNavigationItem(key);
    QTEST(item ? item->data(Qt::UserRole + 1).toString() : QString(), "found");
}

void HelpWindowTest::Filter_data()
{
    QTest::addColumn<QString>("query");
    QTest::addColumn<QStringList>("visible");
    QTest::addColumn<QString>("status");
    const QString root = "Quellbrook Help";
    // clang-format off
    QTest::newRow("a word of one body")                 << "least"          << QStringList{root, "-STATISTICS", "--MIN"} << "1 topic";
    QTest::newRow("each of two titles by its own body") << "PANE"           << QStringList{root, "-WINDOW", "--MIN"} << "1 topic";
    QTest::newRow("blanks around it do not count")      << "  least "       << QStringList{root, "-STATISTICS", "--MIN"} << "1 topic";
    QTest::newRow("it is one text and not words")       << "value least"    << QStringList{} << "0 topics";
    QTest::newRow("several")                            << "value"          << QStringList{root, "-STATISTICS", "--MIN", "--AVERAGE"} << "2 topics";
    QTest::newRow("an alias")                           << "alias of loose" << QStringList{root, "-ODDS", "--Loose"} << "1 topic";
    QTest::newRow("a category alone keeps no articles") << "the menu"       << QStringList{root, "-STATISTICS"} << "0 topics";
    QTest::newRow("pages of the tree's own")            << "complete"       << QStringList{root, "-Complete Help Manual"} << "0 topics";
    QTest::newRow("markup is text")                     << "<B>"            << QStringList{root, "-ODDS", "--Loose"} << "1 topic";
    // clang-format on
}

void HelpWindowTest::Filter()
{
    QFETCH(QString, query);
    Reader reader(&small);
    small.ShowHelp("SPECIAL:INDEX", "");
    const QStringList all = reader.Visible();
    reader.search()->clear();
    QTest::keyClicks(reader.search(), query);
    QTEST(reader.Visible(), "visible");
    QTEST(reader.Status(), "status");
    QCOMPARE(reader.text()->toPlainText(), "the index");
    reader.search()->clear();
    QCOMPARE(reader.Visible(), all);
    QCOMPARE(reader.Status(), "Help");
}

void HelpWindowTest::FilteredOutPageIsShown()
{
    Reader reader(&small);
    reader.search()->setText("least");
    small.ShowHelp("TOPIC:MIN", "");
    QCOMPARE(reader.search()->text(), "least");
    small.ShowHelp("TOPIC:AVERAGE", "");
    QCOMPARE(reader.Selected(), "Quellbrook Help/STATISTICS/AVERAGE");
    QCOMPARE(reader.search()->text(), QString());
}

void HelpWindowTest::Layout()
{
    HelpWindow window({}, {}, "the index", "about", "all", nullptr);
    Reader reader(&window);
    QCOMPARE(window.size(), QSize(545, 478));
    window.ShowHelp("SPECIAL:INDEX", "");
    const struct {
        QSize size; // the smallest last
        QRect search;
        QRect status;
    } rows[] = {
        {{545, 478}, {40, 454, 171, 21}, {220, 454, 251, 21}},
        {{900, 700}, {40, 676, 526, 21}, {575, 676, 251, 21}},
        {{400, 300}, {40, 276, 60, 21}, {75, 276, 251, 21}},
    };
    for (const auto& [size, search, status] : rows) {
        window.resize(size);
        QVERIFY(qAbs(reader.tree()->width() - 170) <= 1); // the splitter's handle takes its share
        const QRect panes = window.findChild<QSplitter*>()->geometry();
        QCOMPARE(panes, QRect(0, 0, size.width() - 2, size.height() - 28));
        QCOMPARE(reader.search()->geometry(), search);
        QCOMPARE(window.findChild<QLabel*>("statusLabel")->geometry(), status);
        QCOMPARE(window.findChild<QLabel*>("searchLabel")->pos(), QPoint(5, size.height() - 18));
        QCOMPARE(window.findChild<QPushButton*>()->geometry(), QRect(size.width() - 69, size.height() - 23, 65, 20));
    }
    QCOMPARE(window.minimumSize(), QSize(400, 300));
}

// Whatever the width, with and without a scroll bar, at first sight and after a change.
void HelpWindowTest::RulesStayOneLine()
{
    TypedWindow typed;
    typed.TypeLine("HELP");
    Reader reader(typed.window.findChild<HelpWindow*>());
    int ruled = 0;
    for (int width = 400; width < 1000; width += 13) {
        reader.window->resize(width, 300 + width % 500);
        for (const QString key : {"SPECIAL:INDEX", "TOPIC:SQRT", "TOPIC:ANS", "CATEGORY:SOLVER"}) {
            reader.window->ShowHelp(key, "");
            QVERIFY(!reader.text()->horizontalScrollBar()->isVisible());
            const int available = reader.text()->viewport()->width() - 8;
            const QFontMetricsF metrics(reader.text()->font());
            for (QTextBlock block = reader.text()->document()->begin(); block.isValid(); block = block.next()) {
                if (!block.text().startsWith('='))
                    continue;
                ++ruled;
                QCOMPARE(block.layout()->lineCount(), 1);
                QVERIFY(metrics.horizontalAdvance(block.text() + "=") > available);
            }
        }
    }
    QVERIFY(ruled > 300);
}

void HelpWindowTest::PlaceInTheText()
{
    TypedWindow typed;
    typed.TypeLine("HELP");
    Reader reader(typed.window.findChild<HelpWindow*>());
    QScrollBar* bar = reader.text()->verticalScrollBar();
    reader.window->ShowHelp("SPECIAL:ALL", "");
    QTextCursor cursor = reader.text()->textCursor();
    cursor.setPosition(2000);
    reader.text()->setTextCursor(cursor);
    const int top = 233; // a paragraph with many wrapped ones above it
    bar->setValue(reader.text()->document()->findBlockByNumber(top).firstLineNumber());
    const auto topLine = [&] { return reader.text()->cursorForPosition(QPoint(4, 4)).blockNumber(); };
    QCOMPARE(topLine(), top);
    for (const int width : {700, 450, 1000}) {
        reader.window->resize(width, 400);
        QCOMPARE(topLine(), top);
        QCOMPARE(reader.text()->textCursor().position(), 2000);
    }

    reader.window->ShowHelp("SPECIAL:INDEX", "");
    QCOMPARE(bar->value(), 0);
    QCOMPARE(reader.text()->textCursor().position(), 0);
}

void HelpWindowTest::CurrentRowAfterTextWithoutRow()
{
    Reader reader(&small);
    small.ShowHelp("TOPIC:AVERAGE", "");
    small.ShowHelp("", "found nothing");
    QCOMPARE(reader.text()->toPlainText(), "found nothing");
    QCOMPARE(reader.Selected(), QString());
    const QPoint row = reader.tree()->visualRect(reader.tree()->currentIndex()).center();
    QTest::mouseClick(reader.tree()->viewport(), Qt::LeftButton, {}, row);
    QVERIFY(reader.text()->toPlainText().contains("mean value"));
    QCOMPARE(reader.Status(), "AVERAGE");
}

void HelpWindowTest::KeysAlone()
{
    Reader reader(&small);
    small.ShowHelp("CATEGORY:STATISTICS", "");
    QTRY_VERIFY(small.isActiveWindow());
    reader.tree()->setFocus();
    QTest::keyClick(reader.tree(), Qt::Key_Right);
    QTest::keyClick(reader.tree(), Qt::Key_Right);
    QCOMPARE(reader.Selected(), "Quellbrook Help/STATISTICS/MIN");
    QVERIFY(reader.text()->toPlainText().contains("least value"));
    const QString text = reader.text()->toPlainText();
    QTest::keyClick(reader.text(), Qt::Key_X);
    QCOMPARE(reader.text()->toPlainText(), text);
}

QTEST_MAIN(HelpWindowTest)
#include "HelpWindowTest.moc"
