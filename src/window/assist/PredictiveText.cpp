#include "window/assist/PredictiveText.h"

#include "core/Calculator.h"
#include "core/assist/Suggestions.h"
#include "core/workspace/UndoHistory.h"
#include "window/pad/Pad.h"
#include "window/pad/PadActivity.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QListView>
#include <QScrollBar>

#include <algorithm>
#include <numeric>

namespace {

constexpr int walkingPause = 1000; // milliseconds without an arrow key after which the list may show again
constexpr int narrowest = 190;     // pixels
constexpr int sideMargin = 24;     // pixels that a row needs besides its text

// A list that shows whole rows: the completer's height leaves some pixels over, in which the next name would begin.
class NameList : public QListView {
public:
    NameList()
    {
        setUniformItemSizes(true); // or each key lays out every name several times over
        setAccessibleName(QStringLiteral("Names"));
        setBackgroundRole(QPalette::Base); // the pixels left over look as the rows do
        setAutoFillBackground(true);
    }

protected:
    void resizeEvent(QResizeEvent* event) override
    {
        QListView::resizeEvent(event);
        if (const int row = sizeHintForRow(0); row > 0) {
            const int over = (height() - 2 * frameWidth()) % row;
            setViewportMargins(0, over / 2, 0, over - over / 2);
        }
    }
};

// The width of the row whose name has the widest characters. To lay out all rows, as the view does when asked for its
// column, takes longer than all else that a key brings about; kerning, which does not count here, moves the width by a
// pixel or two.
int WidestRow(const QAbstractItemView& list, const QStringList& names)
{
    const QFontMetrics metrics = list.fontMetrics();
    const auto width = [&](const QString& name) {
        return std::accumulate(name.begin(), name.end(), 0,
                               [&](int sum, QChar c) { return sum + metrics.horizontalAdvance(c); });
    };
    int widest = 0;
    int row = 0;
    for (int i = 0; i < names.size(); ++i) {
        if (const int candidate = width(names[i]); candidate > widest) {
            widest = candidate;
            row = i;
        }
    }
    return list.sizeHintForIndex(list.model()->index(row, 0)).width();
}

} // namespace

QRect ListInside(const QRect& room, const QRect& cursor, QSize list)
{
    const int below = std::max(room.bottom() + 1 - cursor.bottom(), 0);
    const int above = std::max(cursor.top() - room.top(), 0);
    const bool goesBelow = list.height() <= below || above <= below;
    const QSize size = list.boundedTo({room.width(), goesBelow ? below : above});
    const int x = std::clamp(cursor.left(), room.left(), room.right() + 1 - size.width());
    return {QPoint(x, goesBelow ? cursor.bottom() : cursor.top() - size.height()), size};
}

PredictiveText::PredictiveText(QWidget& mainWindow, const Pad& mainPad, QAction& switchAction,
                               const Calculator& workspace, const PadActivity& padActivity, UndoHistory& history)
    : window(mainWindow), pad(mainPad), editor(*mainPad.Editor()), action(switchAction), calculator(workspace),
      activity(padActivity), undo(history), autoCompleter(&mainWindow), names(*new QStringListModel(&autoCompleter)),
      popup(*new NameList), popupViewport(popup.viewport())
{
    MakePopup();
    ConnectSignals(switchAction);
    editor.setTabChangesFocus(true);
    editor.setFocus();
}

// The pad may lose the focus while the members go, and must not tell of it then.
PredictiveText::~PredictiveText()
{
    editor.removeEventFilter(this);
    window.removeEventFilter(this);
}

// Under Wayland a program neither knows where its windows are nor can it move one that is open: a window of the list's
// own would stay where it was first shown while the text goes on, and leave the screen. There the list is part of the
// main window. Elsewhere it is a window, so that a small main window does not cut it: a tool tip's, since a popup's
// would take all keys and clicks of the display, and with them the shortcuts of the window and of the desktop. What the
// completer's own filters would do with the pad's keys and with its loss of the focus does not come about: this one is
// installed behind them and so comes first.
void PredictiveText::MakePopup()
{
    autoCompleter.setPopup(&popup); // which takes no focus; to say so behind the next line would say it of the pad
    autoCompleter.setWidget(&editor);
    autoCompleter.setModel(&names);
    autoCompleter.setCaseSensitivity(Qt::CaseInsensitive);
    autoCompleter.setFilterMode(Qt::MatchStartsWith);
    autoCompleter.setCompletionMode(QCompleter::PopupCompletion);
    popup.setParent(&window, QGuiApplication::platformName().startsWith(u"wayland") ? Qt::Widget : Qt::ToolTip);
    popup.hide(); // or it would come with the main window
    popup.setAttribute(Qt::WA_ShowWithoutActivating);
    for (QObject* watched : {static_cast<QObject*>(&popup), static_cast<QObject*>(popup.viewport()),
                             static_cast<QObject*>(&editor), static_cast<QObject*>(&window)})
        watched->installEventFilter(this);
}

void PredictiveText::ConnectSignals(QAction& switchAction)
{
    autoCompleteDelayTimer.setSingleShot(true);
    autoCompleteDelayTimer.setInterval(walkingPause);
    connect(&autoCompleteDelayTimer, &QTimer::timeout, this, &PredictiveText::Update);
    connect(&autoCompleter, qOverload<const QString&>(&QCompleter::activated), this, &PredictiveText::Accept);
    connect(&switchAction, &QAction::toggled, this, [this] {
        autoCompleteDelayTimer.stop();
        Update();
    });
    for (QScrollBar* bar : {editor.verticalScrollBar(), editor.horizontalScrollBar()})
        connect(bar, &QScrollBar::valueChanged, this, &PredictiveText::Place);
    // What the program writes tells no handler of the pad, and leaves the list at a place that is none any more.
    connect(editor.document(), &QTextDocument::contentsChanged, this, [this] {
        if (editor.signalsBlocked())
            Hide();
    });
}

bool PredictiveText::IsAllowed() const
{
    return action.isChecked() && !activity.IsBusy() && !autoCompleteDelayTimer.isActive() && editor.isVisible() &&
           !editor.textCursor().hasSelection();
}

void PredictiveText::Update()
{
    if (!IsAllowed()) {
        Hide();
        return;
    }
    const int cursor = pad.CursorPosition();
    const PadText& text = pad.Text();
    const Suggestions offered =
        SuggestionsFor(calculator, text.Text(text.LineStart(cursor), cursor), text.Text(cursor, text.LineEnd(cursor)));
    if (offered.names.isEmpty()) {
        Hide();
        return;
    }
    autoCompleteStart = cursor - static_cast<int>(offered.prefix.size());
    autoCompleteEnd = cursor + static_cast<int>(offered.wordBehind);
    Offer(offered.names, offered.prefix);
}

void PredictiveText::Offer(const QStringList& offered, const QString& prefix)
{
    names.setStringList(offered);
    autoCompleter.setCompletionPrefix(prefix);
    popup.setCurrentIndex(autoCompleter.completionModel()->index(0, 0));
    ShowBelowCursor(std::max(WidestRow(popup, offered) + sideMargin, narrowest));
}

// The completer knows the screen's bounds, the main window's it does not.
void PredictiveText::ShowBelowCursor(int width)
{
    QRect below = editor.cursorRect();
    below.setWidth(width);
    autoCompleter.complete(below);
    if (popup.isWindow())
        return;
    below.moveTopLeft(editor.mapTo(&window, below.topLeft()));
    popup.setGeometry(ListInside(window.rect(), below, popup.size()));
    popup.raise();
}

// Follows the text that scrolls below it.
void PredictiveText::Place()
{
    if (!IsShown())
        return;
    if (editor.viewport()->rect().intersects(editor.cursorRect()))
        ShowBelowCursor(popup.width());
    else
        Hide();
}

bool PredictiveText::IsShown() const
{
    return popup.isVisible();
}

void PredictiveText::Hide()
{
    popup.hide();
    autoCompleteStart = autoCompleteEnd = nowhere;
}

void PredictiveText::AcceptCurrent()
{
    const QModelIndex current = popup.currentIndex();
    if (IsShown() && current.isValid())
        Accept(current.data(Qt::DisplayRole).toString());
}

void PredictiveText::Accept(const QString& name)
{
    const int from = autoCompleteStart;
    const int end = autoCompleteEnd;
    Hide();
    if (!name.isEmpty() && from >= 0 && from <= end)
        Replace(from, end, SuggestedText(calculator, name));
}

void PredictiveText::Replace(int from, int end, const QString& text)
{
    undo.BeginUndoEditTransaction();
    QTextCursor cursor = editor.textCursor();
    cursor.setPosition(from);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    cursor.insertText(text, cursor.charFormat());
    editor.setTextCursor(cursor);
    editor.setFocus();
    editor.ensureCursorVisible();
}

bool PredictiveText::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == &popup || watched == popupViewport)
        return TakePopupEvent(*event);
    switch (event->type()) {
    case QEvent::KeyPress:
        return watched == &editor && TakePadKey(*static_cast<QKeyEvent*>(event));
    case QEvent::FocusOut:
    case QEvent::WindowDeactivate:
    case QEvent::Hide:
        autoCompleteDelayTimer.stop();
        [[fallthrough]];
    case QEvent::Move:
    case QEvent::Resize:
        Hide();
        break;
    default:
        break;
    }
    return false;
}

// A key that finds its way to the list is meant for the pad.
bool PredictiveText::TakePopupEvent(QEvent& event)
{
    if (event.type() != QEvent::KeyPress && event.type() != QEvent::KeyRelease)
        return false;
    const auto& key = static_cast<const QKeyEvent&>(event);
    QKeyEvent forPad(key.type(), key.key(), key.modifiers(), key.text(), key.isAutoRepeat(),
                     static_cast<quint16>(key.count()));
    editor.setFocus();
    QCoreApplication::sendEvent(&editor, &forPad);
    return true;
}

bool PredictiveText::TakePadKey(const QKeyEvent& key)
{
    const bool shown = IsShown();
    switch (key.key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
        if (shown)
            Step(key.key() == Qt::Key_Up ? -1 : 1);
        else
            autoCompleteDelayTimer.start();
        return shown;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        AcceptCurrent();
        return shown;
    case Qt::Key_Escape:
        Hide();
        return shown;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Hide();
        return false;
    default:
        return false;
    }
}

void PredictiveText::Step(int rows)
{
    const QAbstractItemModel& shown = *autoCompleter.completionModel();
    const int count = shown.rowCount();
    if (count == 0)
        return;
    const int row = std::max(popup.currentIndex().row(), 0);
    popup.setCurrentIndex(shown.index((row + rows + count) % count, 0));
}
