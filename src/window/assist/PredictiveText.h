// The list of names that floats below the cursor while a name is being typed.
//
// It never has the focus and grabs nothing: every key reaches the pad by its usual way, so that undo, shortcuts and
// Enter are the pad's as without it. Only the keys that steer the list are taken before the pad sees them: Up and Down
// walk around it, Tab accepts, Escape closes. Enter closes it and goes on to submit the line.
#pragma once

#include <QCompleter>
#include <QObject>
#include <QRect>
#include <QStringListModel>
#include <QTimer>

class Calculator;
class Pad;
class QAbstractItemView;
class QAction;
class QKeyEvent;
class QPlainTextEdit;
class UndoHistory;
struct PadActivity;

class PredictiveText : public QObject {
public:
    /// Serves `mainPad` in `mainWindow` while `switchAction` is checked. It looks at the pad's keys before every filter
    /// that was installed earlier.
    PredictiveText(QWidget& mainWindow, const Pad& mainPad, QAction& switchAction, const Calculator& workspace,
                   const PadActivity& padActivity, UndoHistory& history);
    ~PredictiveText() override;
    Q_DISABLE_COPY_MOVE(PredictiveText)

    /// Decides anew whether the list shows, and with what. To be called after each change of the text or the cursor.
    void Update();

    void Hide();
    bool IsShown() const;

    /// Inserts the list's current name in place of what has been typed of it. Nothing happens where no list shows.
    void AcceptCurrent();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void MakePopup();
    void ConnectSignals(QAction& switchAction);
    bool IsAllowed() const;
    void Offer(const QStringList& names, const QString& prefix);
    void Place();
    void ShowBelowCursor(int width);
    void Accept(const QString& name);
    void Replace(int from, int end, const QString& text);
    bool TakePopupEvent(QEvent& event);
    bool TakePadKey(const QKeyEvent& key);
    void Step(int rows);

    QWidget& window;
    const Pad& pad;
    QPlainTextEdit& editor;
    const QAction& action;
    const Calculator& calculator;
    const PadActivity& activity;
    UndoHistory& undo;

    QCompleter autoCompleter;
    QStringListModel& names;
    QAbstractItemView& popup;
    const QWidget* popupViewport;  // to be told from others while the popup goes, and can no more be asked for it
    QTimer autoCompleteDelayTimer; // runs while the arrow keys walk through lines

    // What an accepted name replaces, as positions in the pad.
    static constexpr int nowhere = -1;
    int autoCompleteStart = nowhere;
    int autoCompleteEnd = nowhere;
};

/// The rectangle of a list inside the main window: below the cursor, or above it where more of the list fits there,
/// moved and cut so that nothing of it lies outside of `room`. All in the same coordinates.
QRect ListInside(const QRect& room, const QRect& cursor, QSize list);
