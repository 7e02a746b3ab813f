// Disks, homes and files as they should not be, and programs that die or meet while they write. This program is one of
// them: started with --write it changes all of its files in turn until it is killed, with --share a number of times.
#include "core/workspace/FullDisk.h"
#include "window/DataHome.h"
#include "window/DropFiles.h"
#include "window/OrdinaryUser.h"
#include "window/RunningProgram.h"
#include "window/TypedWindow.h"
#include "window/workspace/CalculationLog.h"
#include "window/workspace/SettingsFile.h"

#include <QApplication>
#include <QProcess>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QSet>
#include <QSettings>
#include <QTimer>

#include <csignal>
#include <functional>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr qint64 gigabyte = 1'000'000'000;

const QByteArray texts[] = {QByteArray("12*(3+4)\n").repeated(1000), QByteArray("SQRT(16)\n").repeated(1500)};

// Says so when each file has been written once.
[[noreturn]] void WriteUntilKilled(const QString& document)
{
    TypedWindow typed;
    typed.window.findChild<QTimer*>("recoveryDelay")->setInterval(0);
    Drop(typed.window, {document}, {"Open"});
    for (qint64 i = QCoreApplication::applicationPid();; ++i) {
        typed.pad()->setPlainText(QString::fromUtf8(texts[i % 2]));
        typed.Action("actionSave_Document")->trigger();
        typed.Action(i % 2 == 0 ? "actionMoney_0_00" : "actionLarge_Numbers_0")->trigger();
        typed.window.SaveSettings();
        typed.window.WriteLog();
        QApplication::processEvents();
        puts("written");
        fflush(stdout);
    }
}

constexpr int rounds = 25;

int ShareFiles(const QString& name)
{
    for (int i = 0; i < rounds; ++i) {
        AppendToCalculationLog(QString(name + '\n').repeated(5000));
        if (!ChangeSettingsFile([&](QSettings& settings) { settings.setValue(name + QString::number(i), i); }))
            return 1;
    }
    return 0;
}

// The bodies of the log's entries.
QByteArrayList Entries(const QString& path)
{
    const QByteArray log = QFile::exists(path) ? Contents(path) : QByteArray();
    static const QRegularExpression header("(?:^|\n)-{20}\\w[^\n]*\\d-{20}\n");
    QByteArrayList bodies;
    for (const QString& body : QString::fromUtf8(log).split(header))
        bodies.append(body.toUtf8());
    bodies.removeFirst();
    return bodies;
}

bool IsWholeEntry(QByteArray body)
{
    while (body.endsWith("\n\n"))
        body.chop(1);
    return body == texts[0] || body == texts[1];
}

bool IsStartOfEntry(const QByteArray& body)
{
    return texts[0].startsWith(body.trimmed()) || texts[1].startsWith(body.trimmed());
}

} // namespace

class StorageFaultsTest : public QObject {
    Q_OBJECT

private slots:
    void init() { home = std::make_unique<DataHome>(); }
    void StartsAndEnds_data();
    void StartsAndEnds();
    void HugeSettings();
    void KilledAtAnyMoment();
    void TwoPrograms();

private:
    std::unique_ptr<DataHome> home;
};

using Prepare = std::function<void(const QString& directory)>;
using InChild = std::function<void()>;

void StorageFaultsTest::StartsAndEnds_data()
{
    QTest::addColumn<Prepare>("prepare");
    QTest::addColumn<InChild>("inChild"); // before the program runs
    QTest::addColumn<QString>("watched"); // a file that must stay
    QTest::addColumn<bool>("logged");
    const auto row = [](const char* name, const Prepare& prepare, const InChild& inChild, const QString& watched,
                        bool logged) { QTest::newRow(name) << prepare << inChild << watched << logged; };
    const auto put = [](const QString& name, qint64 size, const QByteArray& bytes) -> Prepare {
        return [=](const QString& directory) {
            Write(directory + name, bytes);
            if (size > 0)
                QVERIFY(QFile::resize(directory + name, size));
        };
    };
    const auto pipe = [](const QString& name) -> Prepare {
        return [=](const QString& directory) { QCOMPARE(mkfifo(QFile::encodeName(directory + name), 0600), 0); };
    };
    const auto noRoom = [] {
        const rlimit none{0, 0};
        setrlimit(RLIMIT_FSIZE, &none);
        std::signal(SIGXFSZ, SIG_DFL);
    };
    const auto ordinaryUser = [] {
        if (geteuid() == 0 && setuid(65534) != 0)
            _exit(1);
    };
    const QString ini = "/Quellbrook.ini";
    const QString log = "/Quellbrook.log";
    // clang-format off
    row("all is well",                         [](auto&) {},                     {},           "",  true);
    row("settings of a gigabyte",              put(ini, gigabyte, "[General]\n"), {},          ini, true);
    row("settings that are a pipe",            pipe(ini),                        {},           ini, true);
    row("settings of random bytes",            put(ini, 0, "\x00\xff[\n=%\n\\x"), {},          ini, true);
    row("a log of a gigabyte",                 put(log, gigabyte, "old\n"),      {},           "",  true);
    row("a log that is a pipe",                pipe(log),                        {},           log, false);
    row("no byte fits into a file",            put(ini, 0, "[General]\n"),       noRoom,       ini, false);
    row("all can only be read",                [=](const QString& directory) {
        put(log, 0, "old\n")(directory);
        chmod(QFile::encodeName(directory + log), 0444);
        chmod(QFile::encodeName(directory), 0555);
    },                                                                           ordinaryUser, log, false);
    row("a file in the directory's place",     [](const QString& directory) {
        QVERIFY(QDir(directory).removeRecursively());
        Write(directory, "");
    },                                                                           {},           "/", false);
    // clang-format on
}

// The program on a bad home: it comes up, it ends when it is asked to, it takes no more memory than usual, and what
// lay there is as it was.
void StorageFaultsTest::StartsAndEnds()
{
    QFETCH(Prepare, prepare);
    QFETCH(InChild, inChild);
    QFETCH(QString, watched);
    QFETCH(bool, logged);
    const QTemporaryDir place;
    QCOMPARE(chmod(QFile::encodeName(place.path()), 0755), 0);
    const QString directory = place.filePath("quellbrook");
    QVERIFY(QDir().mkdir(directory));
    prepare(directory);
    const QString path = QDir::cleanPath(directory + watched);
    const auto state = [&] {
        return watched.isEmpty() ? QList<qint64>()
                                 : QList{QFileInfo(path).size(), QFileInfo(path).lastModified().toMSecsSinceEpoch()};
    };
    const QList<qint64> before = state();
    const QString logPath = directory + "/Quellbrook.log";
    const qint64 logSize = QFileInfo(logPath).size();

    qputenv("XDG_DATA_HOME", QFile::encodeName(place.path()));
    QProcess program;
    program.setChildProcessModifier(inChild);
    program.start(QUELLBROOK_PROGRAM, QStringList());
    QVERIFY(program.waitForStarted());
    QTRY_VERIFY_WITH_TIMEOUT(Handles(program.processId(), SIGTERM), 20000);
    QVERIFY2(ProcessStatus(program.processId(), "VmHWM").toLongLong() < 300'000, "kilobytes");
    QCOMPARE(kill(static_cast<pid_t>(program.processId()), SIGTERM), 0);
    QVERIFY(program.waitForFinished(20000));
    QCOMPARE(program.exitStatus(), QProcess::NormalExit);
    QCOMPARE(program.exitCode(), 0);
    QCOMPARE(state(), before);
    if (logged)
        QVERIFY(QFileInfo(logPath).size() > logSize && QFileInfo(logPath).size() < logSize + 100);
    chmod(QFile::encodeName(directory), 0755);
}

// What is too much to be read is not written over, nor written.
void StorageFaultsTest::HugeSettings()
{
    Write(home->SettingsPath(), "[General]\nSyntaxHelp=false\n");
    QVERIFY(QFile::resize(home->SettingsPath(), gigabyte));
    TypedWindow typed;
    QVERIFY(typed.Action("actionSyntax_Help")->isChecked());
    typed.window.SaveSettings();
    QCOMPARE(typed.Label(), "Settings Saved");
    QCOMPARE(QFileInfo(home->SettingsPath()).size(), gigabyte);

    QVERIFY(QFile::remove(home->SettingsPath()));
    typed.window.SaveSettings();
    const QByteArray saved = Contents(home->SettingsPath());
    QVERIFY(!ChangeSettingsFile([](QSettings& settings) { settings.setValue("Note", QString(5'000'000, 'x')); }));
    QCOMPARE(Contents(home->SettingsPath()), saved);
}

void StorageFaultsTest::KilledAtAnyMoment()
{
    constexpr int kills = 50;
    const QString document = home->Path("document.txt");
    Write(document, texts[0]);
    QSet<QByteArray> seen;
    int torn = 0;
    for (int i = 0; i < kills; ++i) {
        QProcess program;
        program.start(QCoreApplication::applicationFilePath(), {"--write", document});
        QVERIFY(program.waitForReadyRead(20000));
        usleep(QRandomGenerator::global()->bounded(100'000));
        program.kill();
        QVERIFY(program.waitForFinished(20000));

        seen.insert(Contents(document));
        const QSettings settings(home->SettingsPath(), QSettings::IniFormat);
        QVERIFY(settings.contains("Font") && settings.contains("WindowGeometry"));
        const QByteArrayList entries = Entries(home->LogPath());
        QVERIFY(IsWholeEntry(entries.first()));
        for (const QByteArray& body : entries) {
            QVERIFY2(IsWholeEntry(body) || IsStartOfEntry(body), body.right(200));
            torn += !IsWholeEntry(body);
        }
        QVERIFY(QFile::remove(home->LogPath()));
    }
    QCOMPARE(seen, (QSet<QByteArray>{texts[0], texts[1]}));
    QVERIFY2(torn <= kills, "an entry was torn where nobody was killed");
    MainWindow();
    QCOMPARE(QFileInfo(document).dir().entryList({"*.recovery"}), QStringList());
}

void StorageFaultsTest::TwoPrograms()
{
    Write(home->LogPath(), "");
    QProcess programs[2];
    const QString names[] = {"first", "second"};
    for (int i : {0, 1})
        programs[i].start(QCoreApplication::applicationFilePath(), {"--share", names[i]});
    for (QProcess& program : programs) {
        QVERIFY(program.waitForFinished(60000));
        QCOMPARE(program.exitCode(), 0);
    }
    const QSettings settings(home->SettingsPath(), QSettings::IniFormat);
    QCOMPARE(settings.allKeys().size(), 2 * rounds);
    const QByteArrayList entries = Entries(home->LogPath());
    QCOMPARE(entries.size(), 2 * rounds);
    for (const QByteArray& body : entries) {
        const QByteArray line = body.left(body.indexOf('\n') + 1);
        QCOMPARE(body.trimmed() + '\n', line.repeated(5000));
    }
}

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.contains("--write"))
        WriteUntilKilled(arguments.last());
    if (arguments.contains("--share"))
        return ShareFiles(arguments.last());
    StorageFaultsTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "StorageFaultsTest.moc"
