// Measures what a user waits for, beside its floor, and prints one table.
//
//   quellbrook_bench [--json FILE] [ROOM...]     rooms: start engine solver keys documents assistance; none means all
//
// The window's rooms need a display with a window manager; tools/bench brings one.
#include "Report.h"
#include "Rooms.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

struct Room {
    QLatin1StringView name;
    void (*measure)(Report&);
};

// The start comes first, while this program is small: what it starts is a copy of it for a moment.
constexpr Room rooms[] = {
    {"start"_L1, MeasureStart}, {"engine"_L1, MeasureEngine},       {"solver"_L1, MeasureSolver},
    {"keys"_L1, MeasureKeys},   {"documents"_L1, MeasureDocuments}, {"assistance"_L1, MeasureAssistance},
};

bool Write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

} // namespace

int main(int argc, char* argv[])
{
    const QTemporaryDir home;
    qputenv("XDG_DATA_HOME", home.path().toLocal8Bit());
    const QApplication application(argc, argv);
    QStringList wanted = QApplication::arguments().sliced(1);
    QString jsonPath;
    if (const qsizetype option = wanted.indexOf(u"--json"_s); option >= 0 && option + 1 < wanted.size()) {
        jsonPath = wanted.takeAt(option + 1);
        wanted.removeAt(option);
    }

    Report report;
    Report::PrintHead();
    for (const Room& room : rooms) {
        if (wanted.isEmpty() || wanted.contains(room.name))
            room.measure(report);
    }
    if (jsonPath.isEmpty() || Write(jsonPath, report.Json()))
        return 0;
    std::fprintf(stderr, "Cannot write %s\n", qUtf8Printable(jsonPath));
    return 1;
}
