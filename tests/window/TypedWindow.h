// A main window for tests: typed into by key events, read back as text with its weights.
#pragma once

#include "window/MainWindow.h"

#include <QAction>
#include <QKeySequence>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTest>
#include <QTextBlock>

class TypedWindow {
public:
    TypedWindow()
    {
        window.show();
        pad()->setFocus();
    }

    QPlainTextEdit* pad() { return window.findChild<QPlainTextEdit*>("Text1"); }
    QString Label() { return window.findChild<QLabel*>("Label1")->text(); }
    QAction* Action(const QString& name) { return window.findChild<QAction*>(name); }

    void Type(const QString& text)
    {
        for (const QChar c : text)
            QTest::sendKeyEvent(QTest::Click, pad(), Qt::Key_unknown, QString(c), Qt::NoModifier);
    }

    void Enter() { QTest::keyClick(pad(), Qt::Key_Return); }

    void TypeLine(const QString& line)
    {
        Type(line);
        Enter();
    }

    /// One key, as "Shift+Return".
    void Press(const QString& key)
    {
        const QKeyCombination combination = QKeySequence::fromString(key)[0];
        QTest::keyClick(pad(), combination.key(), combination.keyboardModifiers());
    }

    /// The pad's text with each bold run between <b> and </b>.
    QString Markup()
    {
        QString markup;
        for (QTextBlock block = pad()->document()->begin(); block.isValid(); block = block.next()) {
            if (block.blockNumber() > 0)
                markup += '\n';
            for (auto run = block.begin(); !run.atEnd(); ++run) {
                const QString text = run.fragment().text().replace(QChar::LineSeparator, u'\n');
                const bool bold = run.fragment().charFormat().fontWeight() == QFont::Bold;
                markup += bold ? "<b>" + text + "</b>" : text;
            }
        }
        return markup;
    }

    MainWindow window;
};
