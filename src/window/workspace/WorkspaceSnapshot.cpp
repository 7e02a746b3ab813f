#include "window/workspace/WorkspaceSnapshot.h"

#include "core/Calculator.h"
#include "window/pad/PadText.h"

#include "ui_MainWindow.h"

#include <QAbstractTextDocumentLayout>
#include <QKeyEvent>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTextBlock>

#include <algorithm>

namespace {

QTextCharFormat FormatOf(const PadRun& run)
{
    QTextCharFormat format;
    if (run.bold)
        format.setProperty(QTextFormat::FontWeight, static_cast<int>(QFont::Bold));
    return format;
}

// Which formats of the document are bold, by their indices.
std::vector<bool> BoldFormats(const QTextDocument& document)
{
    std::vector<bool> bold;
    for (const QTextFormat& format : document.allFormats())
        bold.push_back(format.isCharFormat() && format.intProperty(QTextFormat::FontWeight) >= QFont::Bold);
    return bold;
}

// Makes the part of a run bold that lies in the text. `start` counts from the text's start.
void MarkBold(WeightedText& text, int start, int length)
{
    const int first = std::max(start, 0);
    const int behind = std::min(start + length, static_cast<int>(text.text.size()));
    if (first < behind)
        std::fill(text.bold.begin() + first, text.bold.begin() + behind, true);
}

// A block's end has a weight as well: what is typed into the empty line behind it takes it on.
WeightedText TextBetween(const QTextDocument& document, int from, int end)
{
    WeightedText text;
    text.Append(RawText(document, from, end).replace(QChar::ParagraphSeparator, u'\n'), false);
    const std::vector<bool> isBold = BoldFormats(document);
    if (std::find(isBold.begin(), isBold.end(), true) == isBold.end())
        return text;
    const auto mark = [&](int format, int position, int length) {
        if (isBold[static_cast<size_t>(format)])
            MarkBold(text, position - from, length);
    };
    for (QTextBlock block = document.findBlock(from); block.isValid() && block.position() < end; block = block.next()) {
        for (auto run = block.begin(); !run.atEnd(); ++run) {
            const QTextFragment fragment = run.fragment();
            mark(fragment.charFormatIndex(), fragment.position(), fragment.length());
        }
        if (block.next().isValid())
            mark(block.next().charFormatIndex(), block.position() + block.length() - 1, 1);
    }
    return text;
}

// Makes `change` in the document; the cursor given back holds what was inserted.
QTextCursor Apply(const TextChange& change, QTextDocument* document)
{
    QTextCursor cursor(document);
    cursor.beginEditBlock();
    cursor.setPosition(change.position);
    cursor.setPosition(change.position + change.removed, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    for (const PadRun& run : change.inserted)
        cursor.insertText(run.text, FormatOf(run));
    cursor.endEditBlock();
    cursor.setPosition(change.position, QTextCursor::KeepAnchor);
    return cursor;
}

// The scroll bar counts the lines on the screen, but one for each block that is not laid out yet. Lays out what was
// inserted until there are as many as there were.
void LayOut(const QTextCursor& inserted, int lineCount)
{
    const QTextDocument& document = *inserted.document();
    for (QTextBlock block = document.findBlock(inserted.selectionStart());
         block.isValid() && block.position() <= inserted.selectionEnd() && document.lineCount() != lineCount;
         block = block.next())
        document.documentLayout()->blockBoundingRect(block);
}

bool IsEnter(const QKeyEvent& key)
{
    return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

// Whether a key other than Enter may change the text; most that type something do.
bool MayEdit(const QKeyEvent& key)
{
    if (key.matches(QKeySequence::Cut) || key.matches(QKeySequence::Paste))
        return true;
    if (key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backspace || key.key() == Qt::Key_Delete || IsEnter(key))
        return true;
    return !(key.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) && !key.text().isEmpty();
}

} // namespace

WorkspaceSnapshot::WorkspaceSnapshot(Ui::MainWindow& mainForm, Calculator& workspace, QObject* parent)
    : QObject(parent), form(mainForm), pad(*mainForm.Text1), calculator(workspace)
{
    pad.document()->setUndoRedoEnabled(false);
    connect(pad.document(), &QTextDocument::contentsChange, this, &WorkspaceSnapshot::FollowEdit);
    FollowEdit(0, 0, pad.document()->characterCount());
}

// The counts of the toolkit may reach past the text's end; what lies before the change and what lies behind it is told
// exactly.
void WorkspaceSnapshot::FollowEdit(int from, int, int added)
{
    const int length = pad.document()->characterCount() - 1;
    const int end = std::min(from + added, length);
    const int removed = padText.Length() - from - (length - end);
    padText.Replace(from, removed, TextBetween(*pad.document(), from, end));
}

UndoState WorkspaceSnapshot::CaptureUndoState() const
{
    const QTextCursor cursor = pad.textCursor();
    UndoState state;
    state.text = padText;
    state.values = calculator.values;
    state.customFunctions = calculator.customFunctions.Definitions();
    state.useWordOperators = form.actionUse_Word_Oporators->isChecked();
    state.ignoreText = form.actionIgnore_Text_When_Cannot_Solve->isChecked();
    state.statusText = form.Label1->text();
    state.cursorPosition = cursor.position();
    state.anchorPosition = cursor.anchor();
    state.lineCount = pad.document()->lineCount();
    state.verticalScroll = pad.verticalScrollBar()->value();
    return state;
}

void WorkspaceSnapshot::RestoreUndoState(const UndoState& state)
{
    const QSignalBlocker padBlocker(pad);
    const QSignalBlocker wordOperatorsBlocker(form.actionUse_Word_Oporators);
    const QSignalBlocker ignoreTextBlocker(form.actionIgnore_Text_When_Cannot_Solve);
    RestoreText(state);
    calculator.values = state.values;
    calculator.customFunctions.SetDefinitions(state.customFunctions);
    form.actionUse_Word_Oporators->setChecked(state.useWordOperators);
    form.actionIgnore_Text_When_Cannot_Solve->setChecked(state.ignoreText);
    RestoreCursor(state.anchorPosition, state.cursorPosition);
    pad.verticalScrollBar()->setValue(state.verticalScroll);
    form.Label1->setText(state.statusText);
    pad.setFocus(Qt::OtherFocusReason);
    pad.ensureCursorVisible();
}

// One change is one edit of the document: a single edit around all of them would reach from the first to the last and
// lay out all that lies between. Afterwards the text followed is the state's own, so that it shares its pieces.
void WorkspaceSnapshot::RestoreText(const UndoState& state)
{
    QList<QTextCursor> inserted;
    for (const TextChange& change : padText.ChangesTo(state.text))
        inserted.append(Apply(change, pad.document()));
    for (const QTextCursor& part : inserted)
        LayOut(part, state.lineCount);
    if (padText.ChangesTo(state.text).isEmpty())
        padText = state.text;
}

void WorkspaceSnapshot::RestoreCursor(int anchor, int position)
{
    const int length = padText.Length();
    QTextCursor cursor(pad.document());
    cursor.setPosition(std::clamp(anchor, 0, length));
    cursor.setPosition(std::clamp(position, 0, length), QTextCursor::KeepAnchor);
    pad.setTextCursor(cursor);
}

bool TakeUndoKey(const QKeyEvent& key, UndoHistory& history)
{
    if (key.matches(QKeySequence::Undo)) {
        history.UndoPadState();
        return true;
    }
    if (key.matches(QKeySequence::Redo)) {
        history.RedoPadState();
        return true;
    }
    if (IsEnter(key) && !(key.modifiers() & Qt::ShiftModifier)) {
        if (!history.IsBusy())
            history.BeginFinalUndoEdit();
        history.CloseUndoEditTransaction();
    } else if (MayEdit(key)) {
        TakeUndoInsertion(history);
    }
    return false;
}

void TakeUndoInsertion(UndoHistory& history)
{
    if (!history.IsBusy())
        history.BeginUndoEditTransaction();
}
