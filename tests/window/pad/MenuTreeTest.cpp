// The whole of the menus against a sheet of its own (menus/tree.txt): each entry in its place, and what choosing it
// puts into the pad.
//
// A line of the sheet is an entry as the user reads it, two blanks for each menu that it stands in, "---" a separator.
// Behind the text come "(hidden)" for what nobody sees, "(operation)" for what does more than write into the pad and is
// tested elsewhere, and "-> inserts", "-> runs" or "-> prepares" with the words. Below "(in no menu)" stand names.
#include "window/DataHome.h"
#include "window/TypedWindow.h"

#include <QMenu>
#include <QMenuBar>
#include <QSet>

namespace {

// The words that an action puts into a pad of "78" with the cursor between the two, and how. What a command does when
// it runs is not looked at: the first change of the text is the writing of it.
QString Effect(TypedWindow& typed, QAction* action)
{
    typed.pad()->setPlainText("78");
    typed.Press("Right");
    QString written;
    const QObject scope;
    QObject::connect(typed.pad()->document(), &QTextDocument::contentsChanged, &scope, [&] {
        if (written.isEmpty())
            written = typed.pad()->toPlainText();
    });
    action->trigger();
    if (written.isEmpty())
        return QString();
    if (!written.startsWith("78\n"))
        return QString(" -> inserts \"%1\"").arg(written.mid(1).chopped(1));
    const bool prepared = typed.Label() == "Complete the command, then press Enter" &&
                          typed.pad()->textCursor().atEnd() && typed.pad()->toPlainText() == written;
    if (!written.endsWith(prepared ? ' ' : '\n'))
        return " -> writes without its end: " + written;
    return QString(" -> %1 \"%2\"").arg(prepared ? "prepares" : "runs", written.mid(3).chopped(1));
}

QString Shown(QString text)
{
    return text.replace("&&", "\n").remove('&').replace('\n', '&');
}

} // namespace

class MenuTreeTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void Tree();
    void Shortcuts();

private:
    QStringList Entries(TypedWindow& typed, const QList<QAction*>& actions, int depth);

    DataHome home;
    QStringList sheet;
    QSet<QString> operations; // as they stand in the sheet
    QSet<QAction*> seen;
};

void MenuTreeTest::initTestCase()
{
    QFile file(QFINDTESTDATA("menus/tree.txt"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    sheet = QString::fromUtf8(file.readAll()).trimmed().split('\n');
    for (const QString& line : sheet) {
        if (line.endsWith(" (operation)"))
            operations.insert(line);
    }
}

QStringList MenuTreeTest::Entries(TypedWindow& typed, const QList<QAction*>& actions, int depth)
{
    QStringList entries;
    for (QAction* action : actions) {
        QString entry = QString(2 * depth, ' ') + (action->isSeparator() ? "---" : Shown(action->text()));
        if (!action->isVisible())
            entry += " (hidden)";
        if (action->menu()) {
            entries << entry << Entries(typed, action->menu()->actions(), depth + 1);
            continue;
        }
        seen.insert(action);
        const bool operates = operations.contains(entry + " (operation)");
        entries << entry + (operates ? " (operation)" : Effect(typed, action));
    }
    return entries;
}

void MenuTreeTest::Tree()
{
    TypedWindow typed;
    QStringList entries = Entries(typed, typed.window.menuBar()->actions(), 0);
    entries << "(in no menu)";
    for (const QString& line : sheet.mid(sheet.indexOf("(in no menu)") + 1)) {
        const QString name = line.section(" -> ", 0, 0).trimmed();
        QVERIFY2(typed.Action(name) && !seen.contains(typed.Action(name)), qPrintable(name));
        entries << "  " + name + Effect(typed, typed.Action(name));
    }
    for (int i = 0; i < sheet.size(); ++i)
        QCOMPARE(entries.value(i), sheet[i]);
    QCOMPARE(entries.size(), sheet.size());
}

void MenuTreeTest::Shortcuts()
{
    TypedWindow typed;
    const std::pair<const char*, QKeySequence> rows[] = {
        {"actionUndo", QKeySequence::Undo},
        {"actionRedo", QKeySequence::Redo},
        {"actionCut", QKeySequence::Cut},
        {"actionCopy", QKeySequence::Copy},
        {"actionPaste", QKeySequence::Paste},
        {"actionSelectAll", QKeySequence::SelectAll},
        {"actionFind", QKeySequence("F2")},
        {"actionFindNext", QKeySequence("F3")},
        {"actionFindPrevious", QKeySequence("Shift+F3")},
    };
    for (const auto& [name, keys] : rows)
        QVERIFY2(typed.Action(name)->shortcuts().contains(keys), name);
}

QTEST_MAIN(MenuTreeTest)
#include "MenuTreeTest.moc"
