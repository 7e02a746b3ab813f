// What runs in the pad just now, for those who must stand aside meanwhile: menus, undo, suggestions.
#pragma once

#include <QStringView>

struct PadActivity {
    bool commandBusy = false;                  ///< a menu command or a bulk run is under way
    bool equationSolveActive = false;          ///< a search for a solution is running
    bool equationSolveCancelRequested = false; ///< the pad was changed during it, and it is to stop

    /// Whether an insertion from a menu, an undo or a further run has to wait.
    bool IsBusy() const { return commandBusy || equationSolveActive; }
};

/// What the status label says where a menu has to wait.
constexpr QStringView busyMessage = u"Please finish the current calculation first";
