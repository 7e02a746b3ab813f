#include "window/pad/PadContextMenu.h"

#include <QMenu>
#include <QPlainTextEdit>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// The editor writes the keys behind the text, after a tab.
bool IsCopy(const QAction* action)
{
    const QString shown = action->text().remove(u'&').section(u'\t', 0, 0).trimmed();
    return action->shortcut().matches(QKeySequence(QKeySequence::Copy)) == QKeySequence::ExactMatch ||
           shown.compare(u"Copy"_s, Qt::CaseInsensitive) == 0;
}

} // namespace

QMenu* MakePadContextMenu(QPlainTextEdit& editor, QAction* copyPlain, QAction* execute)
{
    QMenu* menu = editor.createStandardContextMenu();
    const QList<QAction*> entries = menu->actions();
    const auto copy = std::find_if(entries.begin(), entries.end(), IsCopy);
    const bool isLast = entries.end() - copy <= 1;
    menu->insertAction(isLast ? nullptr : *(copy + 1), copyPlain);
    menu->addSeparator();
    menu->addAction(execute);
    return menu;
}
