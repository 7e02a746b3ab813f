#include "window/assist/SyntaxHint.h"

#include "core/Calculator.h"
#include "core/assist/SyntaxHints.h"
#include "window/pad/Pad.h"
#include "window/pad/PadActivity.h"

#include <QAction>
#include <QEvent>
#include <QPalette>
#include <QScrollBar>

#include <algorithm>
#include <cmath>

namespace {

constexpr int gap = 3;           // pixels between the cursor and the hint
constexpr int farthestPixel = 4; // a scale of quarters has a whole pixel of the screen at least at each fourth

QPalette ToolTipColours(QPalette palette)
{
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        palette.setColor(group, QPalette::Window, palette.color(group, QPalette::ToolTipBase));
        palette.setColor(group, QPalette::WindowText, palette.color(group, QPalette::ToolTipText));
    }
    return palette;
}

// How far a place on the window has to move back to fall on a whole pixel of the screen; 0 where none is near.
int BackToWholePixel(int place, double scale)
{
    for (int back = 0; back < farthestPixel; ++back) {
        const double pixel = (place - back) * scale;
        if (qFuzzyCompare(pixel, std::round(pixel)))
            return back;
    }
    return 0;
}

// Between two pixels the left line of the frame would be clipped away.
QPoint OnWholePixels(QPoint place, const QWidget& viewport)
{
    const double scale = viewport.devicePixelRatioF();
    const QPoint onWindow = viewport.mapTo(viewport.window(), place);
    return place - QPoint(BackToWholePixel(onWindow.x(), scale), BackToWholePixel(onWindow.y(), scale));
}

// A child of the pad's viewport would take the colours of a text field for its own.
class HintLabel : public QLabel {
public:
    explicit HintLabel(QWidget* parent) : QLabel(parent)
    {
        setBackgroundRole(QPalette::Window);
        setForegroundRole(QPalette::WindowText);
        setPalette(ToolTipColours(palette()));
    }

protected:
    void changeEvent(QEvent* event) override
    {
        if (event->type() == QEvent::PaletteChange)
            setPalette(ToolTipColours(palette())); // changes nothing the second time
        QLabel::changeEvent(event);
    }
};

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
      label(*new HintLabel(mainPad.Editor()->viewport()))
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
    const QPoint place = HintPosition(editor.cursorRect(), label.size(), editor.viewport()->size());
    label.move(OnWholePixels(place, *editor.viewport()));
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
