#include "Contest.h"

#include <algorithm>
#include <cmath>
#include <ctime>

namespace {

double Seconds(clockid_t clock)
{
    timespec now = {};
    clock_gettime(clock, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

} // namespace

double Quantile(std::vector<double> values, double share)
{
    if (values.empty())
        return 0;
    const auto place = std::floor(share * static_cast<double>(values.size() - 1) + 0.5);
    const auto nth = values.begin() + static_cast<std::ptrdiff_t>(place);
    std::nth_element(values.begin(), nth, values.end());
    return *nth;
}

double ProcessorTime(const Laps& laps, double share)
{
    std::vector<double> times;
    for (const Lap& lap : laps)
        times.push_back(lap.processor);
    return Quantile(times, share);
}

double WallTime(const Laps& laps)
{
    std::vector<double> times;
    for (const Lap& lap : laps)
        times.push_back(lap.wall);
    return Quantile(times);
}

double TimesFloor(const Laps& laps, const Laps& floor)
{
    std::vector<double> ratios;
    for (size_t i = 0; i < laps.size(); ++i)
        ratios.push_back(laps[i].processor / floor[i].processor);
    return Quantile(ratios);
}

Lap Time(const Work& work)
{
    if (work.prepare)
        work.prepare();
    const double wall = Seconds(CLOCK_MONOTONIC);
    const double processor = Seconds(CLOCK_THREAD_CPUTIME_ID);
    work.run();
    const double processorEnd = Seconds(CLOCK_THREAD_CPUTIME_ID);
    return {Seconds(CLOCK_MONOTONIC) - wall, processorEnd - processor};
}

std::vector<Laps> RunInTurn(const std::vector<Work>& works, int rounds)
{
    std::vector<Laps> laps(works.size());
    for (int round = -1; round < rounds; ++round) {
        for (size_t i = 0; i < works.size(); ++i) {
            const Lap lap = Time(works[i]);
            if (round >= 0)
                laps[i].push_back(lap);
        }
    }
    return laps;
}
