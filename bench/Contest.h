// Works measured in turn, so that whatever else the machine does hits all of them alike.
#pragma once

#include <functional>
#include <vector>

/// What is measured. `run` is timed; `prepare`, if there is one, comes before each run and is not.
struct Work {
    std::function<void()> run;
    std::function<void()> prepare = {};
};

/// One run, in seconds.
struct Lap {
    double wall = 0;
    double processor = 0; ///< of this thread; other programs don't lengthen it
};

/// All runs of one work, in the order in which they came.
using Laps = std::vector<Lap>;

/// The value below which the share `share` (0 to 1) of the values lies; the median by default.
double Quantile(std::vector<double> values, double share = 0.5);

/// A quantile of the processor times.
double ProcessorTime(const Laps& laps, double share = 0.5);

/// The median of the times by the clock on the wall.
double WallTime(const Laps& laps);

/// The median over the rounds of how many times the floor's processor time a work took.
double TimesFloor(const Laps& laps, const Laps& floor);

/// Times one run.
Lap Time(const Work& work);

/// Runs each of the works once per round, one after the other; a round before the first is not counted.
std::vector<Laps> RunInTurn(const std::vector<Work>& works, int rounds);
