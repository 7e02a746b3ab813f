// Runs the selected lines of the pad anew, as if Enter had been pressed at the end of each.
//
// The window stays alive meanwhile: about ten times a second it is painted, with the progress behind what the status
// label says; nothing that the user types or clicks gets in between.
#pragma once

#include "window/pad/MenuHooks.h"

#include <QList>
#include <QString>

class Pad;
class QLabel;
struct PadActivity;

class BulkRun {
public:
    /// @param enterAt  presses Enter at a position of the pad
    BulkRun(Pad& mainPad, QLabel& statusLabel, PadActivity& padActivity, const MenuHooks& menuHooks,
            std::function<void(int position)> enterAt)
        : pad(mainPad), label(statusLabel), activity(padActivity), hooks(menuHooks), pressEnterAt(std::move(enterAt))
    {
    }

    /// Does nothing without a selection; while something runs it only says that this has to be finished first.
    void ExecuteSelectedLines();

private:
    void Run(const QList<qsizetype>& lineEnds, int from);
    void ShowProgress(qsizetype done, qsizetype total);

    Pad& pad;
    QLabel& label;
    PadActivity& activity;
    const MenuHooks& hooks;
    std::function<void(int position)> pressEnterAt;
};

/// Where in a text the lines end that are to be submitted: those with something in them. An equation block is one
/// submission, at its closing line; a block that stays open is none.
QList<qsizetype> SubmittedLineEnds(QStringView text);
