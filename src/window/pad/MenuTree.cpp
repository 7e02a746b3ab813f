#include "window/pad/MenuTree.h"

#include "window/pad/MenuTable.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// A menu takes an ampersand for the mark of a shortcut; two of them show one.
QString ShownText(QStringView text)
{
    return text.toString().replace(u'&', u"&&"_s);
}

// actionMathSIN has actionHelpMathSIN, menuMathGDT has menuHelpMathGDT.
QString HelpName(QStringView name)
{
    const auto kind = std::find_if(name.begin(), name.end(), [](QChar c) { return c.isUpper(); }) - name.begin();
    return name.first(kind) + u"Help" + name.sliced(kind);
}

// The word that the help knows what is inserted by: without its bracket, and without a quote behind that.
QString HelpCommand(QStringView inserted)
{
    const auto bracket = inserted.indexOf(u'(');
    return u"HELP " + (bracket < 0 ? inserted : inserted.first(bracket));
}

class MenuTree {
public:
    MenuTree(QMainWindow& mainWindow, const MenuBindings& menuBindings) : window(mainWindow), bindings(menuBindings) {}

    void Add(const MenuRow& row);

private:
    void AddMenu(int depth, QStringView text, const QString& name);
    void AddSeparator(int depth) { open[depth - 1]->addSeparator(); }
    QAction* AddAction(int depth, QStringView text, const QString& name);
    void AddExisting(int depth, QStringView name);
    void AddHelpOf(const MenuRow& row);
    void AddHelpFor(int depth, const MenuRow& row);

    QMainWindow& window;
    const MenuBindings& bindings;
    QList<QMenu*> open; // the menu that stands open at each depth
};

void MenuTree::Add(const MenuRow& row)
{
    switch (row.entry) {
    case MenuEntry::Menu:
        return AddMenu(row.depth, row.text, row.name.toString());
    case MenuEntry::Separator:
        return AddSeparator(row.depth);
    case MenuEntry::Existing:
        return AddExisting(row.depth, row.name);
    case MenuEntry::HelpOf:
        return AddHelpOf(row);
    case MenuEntry::Insert:
        return bindings.insert(AddAction(row.depth, row.text, row.name.toString()), row.words.toString());
    case MenuEntry::Run:
    case MenuEntry::Prepare:
        return bindings.command(AddAction(row.depth, row.text, row.name.toString()), row.words.toString(),
                                row.entry == MenuEntry::Run);
    case MenuEntry::Unbound:
        AddAction(row.depth, row.text, row.name.toString());
    }
}

void MenuTree::AddMenu(int depth, QStringView text, const QString& name)
{
    auto* menu = new QMenu(ShownText(text), &window);
    menu->setObjectName(name);
    if (depth == unlisted)
        return;
    if (depth == 0)
        window.menuBar()->addMenu(menu);
    else
        open[depth - 1]->addMenu(menu);
    open.resize(depth);
    open.append(menu);
}

QAction* MenuTree::AddAction(int depth, QStringView text, const QString& name)
{
    auto* action = new QAction(ShownText(text), &window);
    action->setObjectName(name);
    if (depth != unlisted)
        open[depth - 1]->addAction(action);
    return action;
}

void MenuTree::AddExisting(int depth, QStringView name)
{
    auto* action = window.findChild<QAction*>(name.toString(), Qt::FindDirectChildrenOnly);
    Q_ASSERT_X(action, "AddExisting", qPrintable(name.toString()));
    open[depth - 1]->addAction(action);
}

void MenuTree::AddHelpOf(const MenuRow& row)
{
    const auto rows = MenuRows();
    const auto menu =
        std::find_if(rows.begin(), rows.end(), [&](const MenuRow& each) { return each.name == row.name; });
    for (auto entry = menu + 1; entry != rows.end() && entry->depth > menu->depth; ++entry)
        AddHelpFor(row.depth + entry->depth - menu->depth - 1, *entry);
}

void MenuTree::AddHelpFor(int depth, const MenuRow& row)
{
    if (row.entry == MenuEntry::Menu)
        AddMenu(depth, row.text, HelpName(row.name));
    else if (row.entry == MenuEntry::Separator)
        AddSeparator(depth);
    else
        bindings.command(AddAction(depth, row.text, HelpName(row.name)), HelpCommand(row.words), true);
}

} // namespace

void BuildMenus(QMainWindow& window, const MenuBindings& bindings)
{
    MenuTree tree(window, bindings);
    for (const MenuRow& row : MenuRows())
        tree.Add(row);
}
