// Real processes that are asked to end by signals. This program is one of them: started with --pad it is a window with
// a line in its pad, with --box a window behind a message box.
#include "window/CloseSignals.h"
#include "window/DataHome.h"
#include "window/RunningProgram.h"
#include "window/TypedWindow.h"

#include <QMessageBox>
#include <QProcess>
#include <QTest>
#include <QTimer>

#include <csignal>

namespace {

int RunWindow(bool withBox)
{
    TypedWindow typed;
    typed.TypeLine("6*7");
    const CloseSignals closeSignals(typed.window);
    if (withBox)
        QTimer::singleShot(0, [&] { QMessageBox::warning(&typed.window, "A box", "waits"); });
    return QApplication::exec();
}

} // namespace

class CloseRequestTest : public QObject {
    Q_OBJECT

private slots:
    void Signal_data();
    void Signal();
    void IgnoredSignalStaysIgnored();
};

void CloseRequestTest::Signal_data()
{
    QTest::addColumn<QString>("program");
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QList<int>>("requests");
    QTest::addColumn<QByteArray>("logged");
    const QString self = QCoreApplication::applicationFilePath();
    // clang-format off
    QTest::newRow("the program logs its empty pad")  << QUELLBROOK_PROGRAM << QStringList()        << QList{SIGTERM}         << QByteArray("");
    QTest::newRow("the system ends it")              << self               << QStringList{"--pad"} << QList{SIGTERM}         << QByteArray("6*7\n42\n");
    QTest::newRow("its terminal closes")             << self               << QStringList{"--pad"} << QList{SIGHUP}          << QByteArray("6*7\n42\n");
    QTest::newRow("it is interrupted")               << self               << QStringList{"--pad"} << QList{SIGINT}          << QByteArray("6*7\n42\n");
    QTest::newRow("asked twice it logs once")        << self               << QStringList{"--pad"} << QList{SIGTERM, SIGHUP} << QByteArray("6*7\n42\n");
    QTest::newRow("a message box holds nothing up")  << self               << QStringList{"--box"} << QList{SIGTERM}         << QByteArray("6*7\n42\n");
    // clang-format on
}

void CloseRequestTest::Signal()
{
    QFETCH(QString, program);
    QFETCH(QStringList, arguments);
    QFETCH(QList<int>, requests);
    const QTemporaryDir home;
    qputenv("XDG_DATA_HOME", home.path().toLocal8Bit());
    QProcess process;
    process.start(program, arguments);
    QVERIFY(process.waitForStarted());
    QTRY_VERIFY_WITH_TIMEOUT(Handles(process.processId(), SIGINT), 20000);
    QTest::qWait(200);
    for (const int request : requests)
        QCOMPARE(kill(static_cast<pid_t>(process.processId()), request), 0);
    QVERIFY(process.waitForFinished(20000));
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 0);
    const QByteArray log = Contents(home.filePath(QFileInfo(program).fileName() + "/Quellbrook.log"));
    QCOMPARE(log.count("--------------------\n"), 1);
    QTEST(log.mid(log.indexOf('\n') + 1).chopped(1), "logged");
}

// As nohup starts a program.
void CloseRequestTest::IgnoredSignalStaysIgnored()
{
    const DataHome home;
    QProcess process;
    process.setChildProcessModifier([] { std::signal(SIGHUP, SIG_IGN); });
    process.start(QCoreApplication::applicationFilePath(), {"--pad"});
    QVERIFY(process.waitForStarted()); // until then it has this program's handlers
    QTRY_VERIFY_WITH_TIMEOUT(Handles(process.processId(), SIGINT), 20000);
    QVERIFY(!Handles(process.processId(), SIGHUP));
    kill(static_cast<pid_t>(process.processId()), SIGHUP);
    QVERIFY(!process.waitForFinished(300));
    kill(static_cast<pid_t>(process.processId()), SIGTERM);
    QVERIFY(process.waitForFinished(20000));
    QVERIFY(Contents(home.LogPath()).endsWith("6*7\n42\n\n"));
}

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.contains("--pad") || arguments.contains("--box"))
        return RunWindow(arguments.contains("--box"));
    CloseRequestTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "CloseRequestTest.moc"
