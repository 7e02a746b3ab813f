// The bytes of a log, and the same as a pad's text that is logged: days come newest first, and an entry is read back.
#include "core/workspace/LogBook.h"
#include "fuzz/Harness.h"

#include <algorithm>

extern "C" int LLVMFuzzerTestOneInput(const quint8* data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QList<LogDay> days = ReadLogDays(bytes);
    const auto outOfOrder = [](const LogDay& a, const LogDay& b) { return a.date <= b.date; };
    Require(std::adjacent_find(days.begin(), days.end(), outOfOrder) == days.end(), "newest first", {});
    qsizetype length = 0;
    for (const LogDay& day : days) {
        Require(day.date.isValid() && day.text.startsWith("--------------------"), "a day is entries", day.text);
        length += day.text.size();
    }
    Require(length <= bytes.size(), "no text is in two days", {});

    const QDate date(2026, 11, 15);
    const QString entry = LogEntry(date.startOfDay(), TextOf(data, size));
    const QList<LogDay> read = ReadLogDays(entry.toUtf8());
    Require(!read.isEmpty() && std::ranges::count(read, date, &LogDay::date) == 1, "an entry is read back", entry);
    Require(entry.contains("\n--") || read.first().text == QString::fromUtf8(entry.toUtf8()), "as it was", entry);
    return 0;
}
