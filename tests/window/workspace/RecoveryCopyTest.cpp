// Programs that die with text in their pads, and those that start afterwards. This program is one of them: started with
// --pad it is a window that has typed its other argument and copies without delay.
#include "core/workspace/FullDisk.h"
#include "window/CloseSignals.h"
#include "window/DataHome.h"
#include "window/RunningProgram.h"
#include "window/TypedWindow.h"

#include <QApplication>
#include <QDateTime>
#include <QProcess>
#include <QRegularExpression>
#include <QSessionManager>
#include <QTimer>

#include <csignal>
#include <memory>
#include <optional>

namespace {

// A window that copies as soon as its events run.
class CopyingWindow : public TypedWindow {
public:
    CopyingWindow() { window.findChild<QTimer*>("recoveryDelay")->setInterval(0); }
};

int RunWindow(const QString& line)
{
    CopyingWindow typed;
    typed.TypeLine(line);
    const CloseSignals closeSignals(typed.window);
    return QApplication::exec();
}

// The log with each header as "@".
QString Entries(const QString& path)
{
    static const QRegularExpression header("^-{20}\\w.*\\d-{20}$", QRegularExpression::MultilineOption);
    return QFile::exists(path) ? QString::fromUtf8(Contents(path)).replace(header, "@") : QString();
}

} // namespace

class RecoveryCopyTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void Follows_data();
    void Follows();
    void LeftInPlace();
    void KeptUntilTheLogTakesIt();
    void EndOfSession();
    void KilledProgram();
    void TwoPrograms();

private:
    QDir Directory() const { return QFileInfo(home->LogPath()).dir(); }

    // The texts of all copies; "(none)" where there is none.
    QString Copies(const QDir& directory) const
    {
        QStringList texts;
        for (const QFileInfo& file : directory.entryInfoList({"*.recovery"}))
            texts += QString::fromUtf8(Contents(file.filePath()));
        return texts.isEmpty() ? "(none)" : texts.join("; ");
    }
    QString Copies() const { return Copies(Directory()); }

    // Programs that share the data directory of one name.
    QString ProgramDirectory() const { return Directory().filePath("../quellbrook"); }
    std::unique_ptr<QProcess> Start(const QString& line = {}) const;
    static void End(QProcess& process, int signal);

    std::unique_ptr<DataHome> home;
    QTemporaryDir programs;
};

void RecoveryCopyTest::init()
{
    home = std::make_unique<DataHome>();
    // The data directory follows the program's name.
    const QString name = programs.filePath("quellbrook");
    QVERIFY(QFile::exists(name) || QFile::link(QCoreApplication::applicationFilePath(), name));
}

// "+ text" types, "> line" types a line and presses Enter, "= text" replaces the pad's, "@ key" presses a key,
// "! action" triggers one; "copied" and "gone" wait for that, "no room" and "no log" are what the log meets then.
void RecoveryCopyTest::Follows_data()
{
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QString>("copy");
    using Steps = QStringList;
    // clang-format off
    QTest::newRow("nothing is no text")                  << Steps{}                                            << "(none)";
    QTest::newRow("what was typed, and its answer")      << Steps{"> 6*7"}                                     << "6*7\n42\n";
    QTest::newRow("characters as they are logged")       << Steps{"= a\u2028b\u00a0\u221a"}                    << "a\nb \u221a";
    QTest::newRow("the last of several texts")           << Steps{"= 1", "copied", "= 2", "= 3"}               << "3";
    QTest::newRow("an emptied pad")                      << Steps{"+ 1", "copied", "@ Backspace"}              << "(none)";
    QTest::newRow("a pad that goes to the log")          << Steps{"+ 1", "copied", "@ Return", "> CLS"}        << "(none)";
    QTest::newRow("a cleared pad that is taken back")    << Steps{"+ 1", "copied", "! actionClear_Pad", "gone", "! actionUndo"} << "1";
    QTest::newRow("a close that logs the pad")           << Steps{"+ 1", "copied", "! actionExit"}             << "(none)";
    QTest::newRow("a close before there is a copy")      << Steps{"+ 1", "! actionExit"}                       << "(none)";
    QTest::newRow("a close where the log finds no room") << Steps{"+ 1", "copied", "+ 2", "no room", "! actionExit"} << "12";
    QTest::newRow("a close where no log can be")         << Steps{"+ 1", "copied", "no log", "! actionExit"}   << "(none)";
    // clang-format on
}

void RecoveryCopyTest::Follows()
{
    QFETCH(QStringList, steps);
    QFETCH(QString, copy);
    auto typed = std::make_unique<CopyingWindow>();
    std::optional<FullDisk> full;
    for (const QString& step : steps) {
        const QString text = step.mid(2);
        if (step == "copied")
            QTRY_VERIFY(Copies() != "(none)");
        else if (step == "gone")
            QTRY_COMPARE(Copies(), "(none)");
        else if (step == "no room")
            full.emplace(10);
        else if (step == "no log")
            QVERIFY(QDir().mkdir(home->LogPath()));
        else if (step.startsWith('+'))
            typed->Type(text);
        else if (step.startsWith('>'))
            typed->TypeLine(text);
        else if (step.startsWith('='))
            typed->pad()->setPlainText(text);
        else if (step.startsWith('@'))
            typed->Press(text);
        else
            typed->Action(text)->trigger();
    }
    QTRY_COMPARE(Copies(), copy);
    typed.reset();
    QCOMPARE(Copies(), copy);
}

// A window that ends without a close, as it does when the display breaks down, leaves its text to the next.
void RecoveryCopyTest::LeftInPlace()
{
    {
        CopyingWindow typed;
        typed.pad()->setPlainText("left");
        QTRY_COMPARE(Copies(), "left");
    }
    Write(home->LogPath(), "x\ny"); // an entry that was cut off
    TypedWindow next;
    QCOMPARE(next.Markup(), "");
    QCOMPARE(next.Label(), "");
    QCOMPARE(Copies(), "(none)");
    QCOMPARE(Entries(home->LogPath()), "x\ny\n@\nleft\n");
}

void RecoveryCopyTest::KeptUntilTheLogTakesIt()
{
    const QString path = home->Path("Quellbrook-01234567-89ab-cdef-0123-456789abcdef.recovery");
    const QDateTime changed = QDateTime::fromString("2026-01-02T03:04:05", Qt::ISODate);
    Write(path, "left");
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite) && file.setFileTime(changed, QFileDevice::FileModificationTime));
    file.close();

    QVERIFY(QDir().mkdir(home->LogPath()));
    MainWindow();
    QCOMPARE(Copies(), "left");
    QVERIFY(QDir().rmdir(home->LogPath()));
    {
        const FullDisk full(30);
        MainWindow();
    }
    QCOMPARE(Copies(), "left");
    QVERIFY(QFile::remove(home->LogPath()));
    MainWindow();
    MainWindow();
    QCOMPARE(Contents(home->LogPath()), "--------------------Fri Jan 2 03:04:05 2026--------------------\nleft\n");
    QCOMPARE(Copies(), "(none)");
}

void RecoveryCopyTest::EndOfSession()
{
    // Nobody looks at the manager that comes with the request.
    const auto request = [] { emit qApp->commitDataRequest(*reinterpret_cast<QSessionManager*>(qApp)); };
    CopyingWindow typed;
    typed.Type("1");
    QTRY_COMPARE(Copies(), "1");
    request();
    QCOMPARE(Copies(), "(none)");
    typed.Type("2");
    QTRY_COMPARE(Copies(), "12");
}

// The real program, or this one with a line in its pad.
std::unique_ptr<QProcess> RecoveryCopyTest::Start(const QString& line) const
{
    auto process = std::make_unique<QProcess>();
    if (line.isEmpty())
        process->start(QUELLBROOK_PROGRAM, QStringList());
    else
        process->start(programs.filePath("quellbrook"), {"--pad", line});
    process->waitForStarted();
    return process;
}

void RecoveryCopyTest::End(QProcess& process, int signal)
{
    QCOMPARE(kill(static_cast<pid_t>(process.processId()), signal), 0);
    QVERIFY(process.waitForFinished(20000));
}

void RecoveryCopyTest::KilledProgram()
{
    const QString log = ProgramDirectory() + "/Quellbrook.log";
    const auto dying = Start("6*7");
    QTRY_COMPARE_WITH_TIMEOUT(Copies(ProgramDirectory()), "6*7\n42\n", 20000);
    End(*dying, SIGKILL);
    QCOMPARE(Entries(log), "");

    const auto next = Start();
    QTRY_COMPARE_WITH_TIMEOUT(Entries(log), "@\n6*7\n42\n\n", 20000);
    QTRY_COMPARE(Copies(ProgramDirectory()), "(none)");
    End(*next, SIGKILL);
    const auto orderly = Start("1+1");
    QTRY_COMPARE_WITH_TIMEOUT(Copies(ProgramDirectory()), "1+1\n2\n", 20000);
    End(*orderly, SIGTERM);
    QCOMPARE(Entries(log), "@\n6*7\n42\n\n@\n1+1\n2\n\n");
    QCOMPARE(Copies(ProgramDirectory()), "(none)");
}

void RecoveryCopyTest::TwoPrograms()
{
    const QString log = ProgramDirectory() + "/Quellbrook.log";
    const auto first = Start("6*7");
    QTRY_COMPARE_WITH_TIMEOUT(Copies(ProgramDirectory()), "6*7\n42\n", 20000);
    const auto second = Start("1+1");
    QTRY_VERIFY_WITH_TIMEOUT(Copies(ProgramDirectory()).contains("1+1\n2\n"), 20000);
    QVERIFY2(Copies(ProgramDirectory()).contains("6*7\n42\n"), "a program took what another still keeps");
    QCOMPARE(Entries(log), "");
    End(*first, SIGKILL);

    const auto third = Start();
    const auto fourth = Start();
    for (const QProcess* each : {third.get(), fourth.get()}) // handlers are the last that a start sets
        QTRY_VERIFY_WITH_TIMEOUT(Handles(each->processId(), SIGINT), 20000);
    QCOMPARE(Copies(ProgramDirectory()), "1+1\n2\n");
    for (QProcess* each : {second.get(), third.get(), fourth.get()})
        End(*each, SIGKILL);
    QCOMPARE(Entries(log), "@\n6*7\n42\n\n");
}

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.contains("--pad"))
        return RunWindow(arguments.last());
    RecoveryCopyTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "RecoveryCopyTest.moc"
