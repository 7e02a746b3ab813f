// What was measured, as a table for people and as JSON.
#pragma once

#include "Contest.h"

#include <QJsonArray>
#include <QString>

class Report {
public:
    enum class Unit { Seconds, LinesPerSecond, Bytes, Times };

    /// One thing that a user waits for. Where it has a floor, `ratio` is how many times the floor it is.
    struct Row {
        QString what;
        Unit unit = Unit::Seconds;
        double measured = 0;
        QString floorName = {};
        double floor = 0;
        double ratio = 0;
        double mostRatio = 0; ///< 0: no bound
        double bound = 0;     ///< most, or least for a rate; 0: none
        double wall = 0;      ///< seconds; 0: not told
    };

    /// Takes a row and prints it.
    void Add(const Row& row);

    /// A work beside its floor.
    ///
    /// @param items  how often a run does what the row is about
    void AddTimes(const QString& what, const Laps& laps, const QString& floorName, const Laps& floor, double mostRatio,
                  double items = 1);

    /// A work's median time.
    void AddTime(const QString& what, const Laps& laps, double most, double items = 1);

    /// How many lines a second a work does that has `items` of them in a run.
    void AddRate(const QString& what, const Laps& laps, double items, double least);

    /// Prints the table's head.
    static void PrintHead();

    /// All rows and what they were measured on.
    QByteArray Json() const;

private:
    QJsonArray rows;
};
