// The pad: the editor's text as lines, and the one place where the program writes into it.
//
// What the program writes goes in with the editor's signals blocked, so that the handlers see only the user's edits.
// Bold (weight 700) is the mark of an answer; nothing else in a character's format is ever set.
#pragma once

#include "core/Submission.h"
#include "window/pad/PadText.h"

#include <QObject>
#include <QPlainTextEdit>

class Pad : public QObject {
public:
    /// Serves `padEditor`, which must outlive the pad.
    explicit Pad(QPlainTextEdit* padEditor);

    QPlainTextEdit* Editor() const { return editor; }
    const PadText& Text() const { return text; }
    /// Whether a change of the text is under way: its textChanged is still to come, and a cursor that moves now has
    /// been moved by it.
    bool IsChanging() const { return changing; }

    int CursorPosition() const { return editor->textCursor().position(); }

    /// Inserts the runs at the cursor, which ends behind them.
    void Insert(const QList<PadRun>& runs);

    /// An operator typed as the first character of a line moves to the end of the line above.
    ///
    /// @param position  the cursor, behind the operator
    /// @return whether it did
    bool ContinuePreviousAnswer(int position);

    /// Undoes a line break that Enter made in the middle of a line: the line feed moves to the line's end, the cursor
    /// behind it.
    ///
    /// @param position  the cursor, behind the line feed
    void MoveEnterToEndOfLine(int position);

    /// Adds the closing brackets that miss at the end of the line above the cursor; those in quotes do not count.
    void CloseParentheses();

    /// Empties the pad.
    void Clear();

private:
    QPlainTextEdit* editor;
    PadText text;
    bool changing = false;
};

/// Moves the cursor to the pad's start, where what is typed or set next is not bold. An editor that gets a new text
/// gives it the weight at the cursor, and with a selection that is the weight before it.
void MoveToStartInNormalWeight(QPlainTextEdit& editor);

/// How many closing brackets a line lacks; none where one of them closes nothing. Brackets between two " or two ' do
/// not count, nor does a quote behind an odd number of backslashes end anything.
qsizetype MissingParentheses(QStringView line);
