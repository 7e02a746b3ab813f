// Breaks the pad's lines between words, as editors do, and anywhere while a word stands in the pad that is too long
// for that.
//
// To break inside of a word that does not fit a line of the screen, the toolkit reads the rest of the word anew for
// each such line: a digit typed into a number of a hundred thousand would take half a second, into one of a million a
// minute. Where it may break anywhere it reads once.
//
// With the way of breaking all lines are laid out anew, as after a change of the window's width: the line at the top
// stays at the top.
#pragma once

#include <QObject>
#include <QPlainTextEdit>

#include <memory>

class WordWrap : public QObject {
public:
    /// Serves `padEditor`, which must outlive it.
    explicit WordWrap(QPlainTextEdit& padEditor);

private:
    void FollowEdit(int from, int removed, int added);

    QPlainTextEdit& editor;
    std::shared_ptr<int> longLines; // how many lines hold such a word; shared with the marks on them
};
