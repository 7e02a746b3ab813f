// From the start of the process to its first painted window, and how much memory it holds then.
#include "Report.h"
#include "Rooms.h"

#include <QCoreApplication>
#include <QFile>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int rounds = 40;
constexpr int settlingRounds = 3;
constexpr useconds_t settling = 2'000'000;

struct Start {
    Lap lap;
    double memory = 0; // bytes
};

double ResidentMemory(pid_t process)
{
    QFile file(u"/proc/%1/status"_s.arg(process));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray& line : file.readAll().split('\n')) {
        if (line.startsWith("VmRSS:"))
            return line.mid(6).trimmed().chopped(3).toDouble() * 1024;
    }
    return 0;
}

double ProcessorTimeOf(pid_t process)
{
    clockid_t clock = 0;
    timespec time = {};
    if (clock_getcpuclockid(process, &clock) == 0)
        clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

// Starts the program with its standard output in `output`.
pid_t Spawn(const char* program, int output)
{
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    char* arguments[] = {const_cast<char*>(program), nullptr};
    pid_t process = 0;
    if (posix_spawn(&process, program, &actions, nullptr, arguments, environ) != 0)
        qFatal("cannot start %s", program);
    posix_spawn_file_actions_destroy(&actions);
    return process;
}

Start StartOnce(const char* program, useconds_t pause)
{
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
        qFatal("no pipe");
    Start start;
    pid_t process = 0;
    start.lap = Time({[&] {
        process = Spawn(program, ends[1]);
        char byte = 0;
        if (read(ends[0], &byte, 1) != 1)
            qFatal("%s does not tell of its window", program);
    }});
    start.lap.processor = ProcessorTimeOf(process);
    usleep(pause);
    start.memory = ResidentMemory(process);
    kill(process, SIGKILL);
    waitpid(process, nullptr, 0);
    close(ends[0]);
    close(ends[1]);
    return start;
}

struct Starts {
    std::vector<double> wall;
    std::vector<double> processor;
    std::vector<double> memory;

    void Add(const Start& start)
    {
        wall.push_back(start.lap.wall);
        processor.push_back(start.lap.processor);
        memory.push_back(start.memory);
    }
};

Report::Row BesideBare(const QString& what, Report::Unit unit, const std::vector<double>& values,
                       const std::vector<double>& bare)
{
    std::vector<double> ratios;
    for (size_t i = 0; i < values.size(); ++i)
        ratios.push_back(values[i] / bare[i]);
    return {what, unit, Quantile(values), u"bare window"_s, Quantile(bare), Quantile(ratios)};
}

} // namespace

void MeasureStart(Report& report)
{
    constexpr const char* bareProgram = QUELLBROOK_BARE_WINDOW;
    constexpr const char* program = QUELLBROOK_FIRST_PAINT;
    Starts bare;
    Starts full;
    for (int i = -1; i < rounds; ++i) {
        const Start one = StartOnce(bareProgram, 0);
        const Start other = StartOnce(program, 0);
        if (i < 0)
            continue; // the libraries may have to be read
        bare.Add(one);
        full.Add(other);
    }
    Starts settledBare;
    Starts settled;
    for (int i = 0; i < settlingRounds; ++i) {
        settledBare.Add(StartOnce(bareProgram, settling));
        settled.Add(StartOnce(program, settling));
    }
    Report::Row time = BesideBare(u"start to the first painted window"_s, Report::Unit::Seconds, full.wall, bare.wall);
    time.mostRatio = 1.5;
    report.Add(time);
    report.Add(BesideBare(u"  its processor time"_s, Report::Unit::Seconds, full.processor, bare.processor));
    Report::Row memory = BesideBare(u"resident memory then"_s, Report::Unit::Bytes, full.memory, bare.memory);
    memory.bound = 45 << 20;
    report.Add(memory);
    Report::Row later =
        BesideBare(u"  and two seconds later"_s, Report::Unit::Bytes, settled.memory, settledBare.memory);
    later.bound = 45 << 20;
    report.Add(later);
}
