// The heartbeat of a search that may not end: shows that it lives, and asks whether it may go on.
#pragma once

#include <QElapsedTimer>
#include <QString>

#include <functional>

/// Shows a status, lets events run and says whether the search may go on.
using SearchTick = std::function<bool(const QString& status)>;

class SearchPulse {
public:
    /// @param onTick  called every 100 ms of elapsed time; empty: the search ends at its first tick
    explicit SearchPulse(SearchTick onTick);

    /// Whether the search may go on after `work` operations (some nanoseconds each) since the last call. It costs
    /// little: the clock is asked only now and then. Once stopped, it stays so.
    bool MayGoOn(size_t work)
    {
        workSinceClock += work;
        if (workSinceClock >= workPerClock && !stopped)
            AskClock();
        return !stopped;
    }

    bool IsStopped() const { return stopped; }

private:
    static constexpr size_t workPerClock = 5000; // well under a millisecond, and far more than asking the clock costs

    void AskClock();

    SearchTick tick;
    QElapsedTimer clock;
    qint64 nextTick;
    int dots = 0;
    size_t workSinceClock = 0;
    bool stopped = false;
};
