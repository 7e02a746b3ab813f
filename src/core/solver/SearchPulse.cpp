#include "core/solver/SearchPulse.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 tickInterval = 100; // milliseconds
constexpr int mostDots = 3;
constexpr size_t workPerClock = 5000; // well under a millisecond, and far more than asking the clock costs

} // namespace

SearchPulse::SearchPulse(SearchTick onTick) : tick(std::move(onTick)), nextTick(tickInterval)
{
    clock.start();
}

bool SearchPulse::MayGoOn(size_t work)
{
    workSinceClock += work;
    if (workSinceClock >= workPerClock && !stopped)
        AskClock();
    return !stopped;
}

void SearchPulse::AskClock()
{
    workSinceClock = 0;
    if (clock.elapsed() < nextTick)
        return;
    dots = dots % mostDots + 1;
    stopped = !tick || !tick(u"(Type to Cancel) Solving"_s + QString(dots, u'.'));
    nextTick += tickInterval;
}
