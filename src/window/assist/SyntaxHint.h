// The signature of what is being typed, in a small label by the cursor, with the present parameter in bold.
#pragma once

#include <QLabel>
#include <QObject>

class Calculator;
class Pad;
class QAction;
class QPlainTextEdit;
struct PadActivity;

class SyntaxHint : public QObject {
public:
    /// Serves `mainPad` while `switchAction` is checked.
    SyntaxHint(const Pad& mainPad, QAction& switchAction, const Calculator& workspace, const PadActivity& padActivity);

    /// Decides anew whether the hint shows, and where. To be called after each change of the text or the cursor.
    void Update();

    void Hide() { label.hide(); }

private:
    void MakeLabel();
    QString Text() const;

    const Pad& pad;
    QPlainTextEdit& editor;
    const QAction& action;
    const Calculator& calculator;
    const PadActivity& activity;
    QLabel& label; // a child of the pad's viewport
};

/// Where a hint of that size goes: below the cursor, or above it where the room below does not suffice, and never past
/// the right edge as long as there is room. All in the viewport's pixels.
QPoint HintPosition(const QRect& cursor, QSize hint, QSize viewport);
