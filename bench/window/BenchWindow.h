// The program's window and the bare editor, driven by key events and painted.
#pragma once

#include "window/MainWindow.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTest>
#include <QVBoxLayout>

/// Handles all events that wait, painting included, as a program does before it waits for the next key.
inline void Settle()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

/// The same until the window manager and the display have had their time.
inline void SettleLong()
{
    QTest::qWait(200);
}

inline void Press(QPlainTextEdit& editor, QChar c)
{
    QTest::sendKeyEvent(QTest::Click, &editor, Qt::Key_unknown, QString(c), Qt::NoModifier);
}

inline void Press(QPlainTextEdit& editor, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QTest::sendKeyEvent(QTest::Click, &editor, key, key == Qt::Key_Return ? QStringLiteral("\r") : QString(),
                        modifiers);
}

inline void Type(QPlainTextEdit& editor, const QString& text)
{
    for (const QChar c : text)
        Press(editor, c);
}

/// An editor as plain as the toolkit has it, of the pad's size.
class BareWindow {
public:
    BareWindow()
    {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(&editor);
        layout->addWidget(&label);
        editor.document()->setUndoRedoEnabled(false);
        window.resize(400, 500);
        window.show();
        (void)QTest::qWaitForWindowExposed(&window);
        editor.setFocus();
        SettleLong();
    }

    QPlainTextEdit& Editor() { return editor; }

private:
    QWidget window;
    QPlainTextEdit editor{&window};
    QLabel label{&window};
};

/// The program's own.
class PadWindow {
public:
    PadWindow()
    {
        window.resize(400, 500);
        window.show();
        (void)QTest::qWaitForWindowExposed(&window);
        Editor().setFocus();
        SettleLong();
    }

    QPlainTextEdit& Editor() { return *window.findChild<QPlainTextEdit*>(QStringLiteral("Text1")); }
    template <typename T>
    T* Find(const QString& name)
    {
        return window.findChild<T*>(name);
    }
    MainWindow& Window() { return window; }

private:
    MainWindow window;
};
