#include "core/solver/SearchPulse.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 tickInterval = 100; // milliseconds
constexpr int mostDots = 3;

} // namespace

SearchPulse::SearchPulse(SearchTick onTick) : tick(std::move(onTick)), nextTick(tickInterval)
{
    clock.start();
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
