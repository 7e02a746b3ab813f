#include "window/assist/SyntaxHint.h"

#include "core/Calculator.h"
#include "core/assist/SyntaxHints.h"
#include "window/pad/Pad.h"
#include "window/pad/PadActivity.h"

#include <QAction>
#include <QPalette>
#include <QScrollBar>

#include <algorithm>

namespace {

constexpr int gap = 3; // pixels between the cursor and the hint

QPalette ToolTipColours(QPalette palette)
{
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        palette.setColor(group, QPalette::Window, palette.color(group, QPalette::ToolTipBase));
        palette.setColor(group, QPalette::WindowText, palette.color(group, QPalette::ToolTipText));
    }
    return palette;
}

} // namespace

QPoint HintPosition(const QRect& cursor, QSize hint, QSize viewport)
{
    QPoint place(cursor.left(), cursor.bottom() + gap);
    if (place.x() + hint.width() > viewport.width())
        place.setX(std::max(viewport.width() - hint.width(), 0));
    if (place.y() + hint.height() > viewport.height())
        place.setY(std::max(cursor.top() - hint.height() - gap, 0));
    return place;
}

SyntaxHint::SyntaxHint(const Pad& mainPad, QAction& switchAction, const Calculator& workspace,
                       const PadActivity& padActivity)
    : pad(mainPad), editor(*mainPad.Editor()), action(switchAction), calculator(workspace), activity(padActivity),
      label(*new QLabel(mainPad.Editor()->viewport()))
{
    MakeLabel();
    connect(&switchAction, &QAction::toggled, this, &SyntaxHint::Update);
    // The text below it moves, at times after the update that placed it.
    for (QScrollBar* bar : {editor.verticalScrollBar(), editor.horizontalScrollBar()})
        connect(bar, &QScrollBar::valueChanged, this, &SyntaxHint::Update);
    // What the program writes tells no handler of the pad.
    connect(editor.document(), &QTextDocument::contentsChanged, this, [this] {
        if (editor.signalsBlocked())
            Hide();
    });
}

void SyntaxHint::MakeLabel()
{
    label.setObjectName(QStringLiteral("syntaxHintLabel"));
    label.setFrameStyle(static_cast<int>(QFrame::StyledPanel) | static_cast<int>(QFrame::Plain));
    label.setMargin(4);
    label.setTextFormat(Qt::RichText);
    label.setFocusPolicy(Qt::NoFocus);
    label.setAttribute(Qt::WA_TransparentForMouseEvents);
    label.setAutoFillBackground(true);
    label.setPalette(ToolTipColours(label.palette()));
    label.hide();
}

void SyntaxHint::Update()
{
    const QString hint = Text();
    if (hint.isEmpty()) {
        Hide();
        return;
    }
    label.setText(hint);
    label.adjustSize();
    label.move(HintPosition(editor.cursorRect(), label.size(), editor.viewport()->size()));
    label.show();
    label.raise();
}

QString SyntaxHint::Text() const
{
    if (!action.isChecked() || activity.IsBusy() || !editor.viewport()->rect().intersects(editor.cursorRect()))
        return QString();
    const int cursor = pad.CursorPosition();
    return SyntaxHintFor(calculator, pad.Text().Text(pad.Text().LineStart(cursor), cursor));
}
