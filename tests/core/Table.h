// Tables of tests: what is checked of each row comes first, then the rows, each under the name of its rule.
//
//     void SumTest::Sums_data()
//     {
//         const Table row([](const QString& text, double sum) { QCOMPARE(SumOf(text), sum); });
//         row("two numbers", "1+2", 3);
//     }
//
// The class has the slots `void Sums_data();` and `void Sums() { CheckRow(); }`.
#pragma once

#include <QTest>

#include <functional>

using RowCheck = std::function<void()>;
Q_DECLARE_METATYPE(RowCheck)

template <typename Check>
class Table;

template <typename... Cells>
class Table<std::function<void(Cells...)>> {
public:
    explicit Table(std::function<void(Cells...)> rowCheck) : check(std::move(rowCheck))
    {
        QTest::addColumn<RowCheck>("check");
    }

    void operator()(const char* rule, Cells... cells) const
    {
        QTest::newRow(rule) << RowCheck(std::bind(check, cells...));
    }

private:
    std::function<void(Cells...)> check;
};

template <typename Check>
Table(Check) -> Table<decltype(std::function(std::declval<Check>()))>;

/// The test of a table: one row of it.
inline void CheckRow()
{
    QFETCH(RowCheck, check);
    check();
}
