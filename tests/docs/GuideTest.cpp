// What the pages for people say is what the program does.
//
// A block "```pad" of the guide is a pad that starts empty: a line at the margin is typed, lines set in by four blanks
// are what the pad answers, and "~ text" is what the label says then. Elsewhere `HELP topic` must open an article, a
// path in italics such as *File → Save Settings* must be an entry of the menus, and a link must lead to a file.
#include "core/manual/HelpArticles.h"
#include "core/manual/HelpMenus.h"
#include "window/DataHome.h"
#include "window/TypedWindow.h"

#include <QMenuBar>
#include <QRegularExpression>
#include <QTest>
#include <QTextBlock>

namespace {

QString Page(const QString& name)
{
    return QString::fromUtf8(Contents(QFINDTESTDATA("../../" + name)));
}

// The first captured text of each match, with the number of the line for a row's name.
void AddRows(const QString& page, const QRegularExpression& pattern)
{
    const QString text = Page(page);
    for (auto matches = pattern.globalMatch(text); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        const qsizetype line = text.left(match.capturedStart()).count('\n') + 1;
        QTest::newRow(qPrintable(QString("%1:%2").arg(page).arg(line))) << page << match.captured(1);
    }
}

// Where links within a page can lead: its headings, as the renderers of Markdown name them.
QStringList Anchors(const QString& page)
{
    QStringList anchors;
    for (const QString& line : Page(page).split('\n')) {
        if (line.startsWith('#'))
            anchors.append('#' +
                           line.section(' ', 1).toLower().remove(QRegularExpression("[^\\w -]")).replace(' ', '-'));
    }
    return anchors;
}

// What the pad answers to a line: the lines between it and the cursor's.
QStringList Answer(TypedWindow& typed, const QString& line)
{
    typed.Type(line);
    const QTextBlock entered = typed.pad()->textCursor().block();
    const int number = entered.blockNumber();
    typed.Enter();
    QStringList answer;
    for (int i = number + 1; i < typed.pad()->textCursor().blockNumber(); ++i)
        answer.append(typed.pad()->document()->findBlockByNumber(i).text());
    return answer;
}

// A block with what the window really answers in the place of what the page says.
QString Played(const QString& block)
{
    TypedWindow typed;
    QStringList played;
    for (const QString& line : block.split('\n')) {
        if (line.isEmpty() || line.startsWith("    "))
            continue;
        if (line.startsWith("~ ")) {
            played.append("~ " + typed.Label());
            continue;
        }
        played.append(line);
        for (const QString& answer : Answer(typed, line))
            played.append(answer.isEmpty() ? QString() : "    " + answer);
    }
    return played.join('\n');
}

QAction* Entry(const QList<QAction*>& actions, const QString& text)
{
    for (QAction* action : actions) {
        if (action->isVisible() && action->text().remove('&') == text)
            return action;
    }
    return nullptr;
}

} // namespace

class GuideTest : public QObject {
    Q_OBJECT

private slots:
    void Examples_data();
    void Examples();
    void AnswersInTables_data();
    void AnswersInTables();
    void Topics_data();
    void Topics();
    void MenuPaths_data();
    void MenuPaths();
    void Links_data();
    void Links();

private:
    DataHome home;
};

void GuideTest::Examples_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("block");
    AddRows("docs/guide.md",
            QRegularExpression("^```pad\\n(.*?)\\n```$",
                               QRegularExpression::MultilineOption | QRegularExpression::DotMatchesEverythingOption));
}

void GuideTest::Examples()
{
    QFETCH(QString, block);
    QCOMPARE(Played(block), block);
}

// Rows of the form | `typed` | **answer** |.
void GuideTest::AnswersInTables_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("row");
    const QRegularExpression row("^\\| (`[^`]+` \\| \\*\\*.+\\*\\*) \\|", QRegularExpression::MultilineOption);
    for (const char* page : {"README.md", "docs/guide.md"})
        AddRows(page, row);
}

void GuideTest::AnswersInTables()
{
    QFETCH(QString, row);
    const QString line = row.section('`', 1, 1);
    TypedWindow typed;
    QCOMPARE("`" + line + "` | **" + Answer(typed, line).join(' ') + "**", row);
}

void GuideTest::Topics_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("topic");
    AddRows("docs/guide.md", QRegularExpression("`HELP\\s([A-Z][^`]*)`"));
}

void GuideTest::Topics()
{
    QFETCH(QString, topic);
    QList<HelpEntry> entries;
    BuildGeneralHelpEntries(entries);
    QString menu;
    QVERIFY2(FindHelpTopic(entries, topic.simplified()) || BuildHelpSubmenu(topic.simplified(), entries, menu),
             qPrintable(topic));
}

void GuideTest::MenuPaths_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("path");
    for (const char* page : {"README.md", "docs/guide.md"})
        AddRows(page, QRegularExpression("(?<!\\*)\\*(?!\\s)([^*`|]+\\s→\\s[^*`|]+)\\*"));
}

void GuideTest::MenuPaths()
{
    QFETCH(QString, path);
    MainWindow window;
    QList<QAction*> actions = window.menuBar()->actions();
    for (const QString& text : path.simplified().split(" → ")) {
        const QAction* entry = Entry(actions, text);
        QVERIFY2(entry, qPrintable(path + ": no entry " + text));
        actions = entry->menu() ? entry->menu()->actions() : QList<QAction*>();
    }
}

void GuideTest::Links_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("target");
    const QRegularExpression link("\\]\\(([^):]+)\\)");
    for (const char* page : {"README.md", "CONTRIBUTING.md", "docs/guide.md", "docs/architecture.md"})
        AddRows(page, link);
}

void GuideTest::Links()
{
    QFETCH(QString, page);
    QFETCH(QString, target);
    const QDir directory = QFileInfo(QFINDTESTDATA("../../" + page)).dir();
    if (target.startsWith('#'))
        QVERIFY2(Anchors(page).contains(target), qPrintable(target));
    else
        QVERIFY2(QFileInfo(directory.filePath(target)).isFile(), qPrintable(target));
}

QTEST_MAIN(GuideTest)
#include "GuideTest.moc"
