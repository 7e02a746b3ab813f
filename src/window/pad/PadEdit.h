// The editor of the pad, as far as it has to know what is pasted into it.
//
// Qt 6.4 looks at the first format of what is pasted even where there is none, as an empty clipboard has it, and ends
// the program; here nothing is inserted then.
#pragma once

#include <QMimeData>
#include <QPlainTextEdit>

#include <functional>

class PadEdit : public QPlainTextEdit {
public:
    using QPlainTextEdit::QPlainTextEdit;

    /// Called before anything is pasted, by key, menu or the mouse's middle button.
    std::function<void()> beforeInsertion = [] {};

protected:
    void insertFromMimeData(const QMimeData* source) override
    {
        if (!source || source->formats().isEmpty())
            return;
        beforeInsertion();
        QPlainTextEdit::insertFromMimeData(source);
    }
};
