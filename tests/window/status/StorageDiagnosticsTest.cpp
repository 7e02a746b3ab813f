#include "window/status/StorageDiagnostics.h"

#include "core/workspace/FullDisk.h"
#include "window/DataHome.h"
#include "window/OrdinaryUser.h"
#include "window/TypedWindow.h"

#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QRegularExpression>
#include <QSettings>
#include <QTimer>

#include <memory>
#include <sys/stat.h>

namespace {

const QString tokenKey = "Diagnostics/RestartToken";

// The report with what differs from run to run as "*".
QString Pattern(QString report)
{
    static const QRegularExpression uuid("[0-9a-f]{8}(-[0-9a-f]{4}){3}-[0-9a-f]{12}");
    static const QRegularExpression time("\\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\d");
    return report.replace(uuid, "*").replace(time, "*");
}

// Those lines that tell of a failure, with its reason as "*".
QStringList Failures(const QString& report)
{
    static const QRegularExpression reason("FAIL: .+$");
    QStringList lines = report.split('\n').filter("FAIL");
    return lines.replaceInStrings(reason, "FAIL: *");
}

enum Obstacle { File, FullFile, Directory, Pipe };

// Clears the place and puts something in it.
void Put(Obstacle obstacle, const QString& path)
{
    QDir(path).removeRecursively();
    if (obstacle == Directory)
        QVERIFY(QDir().mkdir(path));
    else if (obstacle == Pipe)
        QCOMPARE(mkfifo(QFile::encodeName(path), 0600), 0);
    else
        Write(path, "old\n");
}

} // namespace

class StorageDiagnosticsTest : public QObject {
    Q_OBJECT

private slots:
    void init() { home = std::make_unique<DataHome>(); }
    void Report();
    void DataStays();
    void Failure_data();
    void Failure();
    void ReadOnlyDirectory();
    void Command();

private:
    QString DataDirectory() const { return QFileInfo(home->LogPath()).path(); }
    QStringList Files() const
    {
        return QDir(DataDirectory()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    std::unique_ptr<DataHome> home;
};

void StorageDiagnosticsTest::Report()
{
    QVERIFY(QDir(DataDirectory()).removeRecursively());
    const QString expected = "QUELLBROOK INSTALL DIAGNOSTICS\n"
                             "Time: *\n"
                             "Qt: %1\n"
                             "Executable: %2\n"
                             "Storage mode: Per-user / platform default\n"
                             "Storage: %3\n"
                             "INI: %3/Quellbrook.ini\n"
                             "Log: %3/Quellbrook.log\n"
                             "Storage directory create/access: PASS\n"
                             "Independent file write: PASS\n"
                             "Independent file readback: PASS\n"
                             "Probe cleanup: PASS\n"
                             "Persistence from previous run: %4\n"
                             "INI sync: PASS\n"
                             "INI disk readback: PASS\n"
                             "Next restart token: *\n"
                             "Log append: PASS\n"
                             "Log disk readback: PASS\n"
                             "INSTALLATION CHECK: PASS\n"
                             "Restart Quellbrook and rerun OSTRELLDEBUGSTORAGE to verify persistence.";
    const auto report = [&](const QString& persistence) {
        return expected.arg(qVersion(), QCoreApplication::applicationFilePath(), DataDirectory(), persistence);
    };
    QCOMPARE(Pattern(StorageDiagnosticsReport()), report("NOT YET TESTED"));
    const QString token = QSettings(home->SettingsPath(), QSettings::IniFormat).value(tokenKey).toString();
    QTest::qSleep(20); // two changes of the same size within a file system's tick look like one
    const QString second = StorageDiagnosticsReport();
    QCOMPARE(Pattern(second), report("PASS: token found (*)"));
    QVERIFY2(second.contains("token found (" + token + ")"), qPrintable(second));
    QVERIFY(!second.contains("Next restart token: " + token));
    QCOMPARE(Files(), (QStringList{"Quellbrook.ini", "Quellbrook.log"}));
}

void StorageDiagnosticsTest::DataStays()
{
    Write(home->SettingsPath(), "[General]\nSyntaxHelp=false\n\n[Updates]\nDismissedRelease=1.2.3\n");
    Write(home->LogPath(), "an entry that was cut sh");
    QCOMPARE(Failures(StorageDiagnosticsReport()), QStringList());
    QCOMPARE(Pattern(Contents(home->SettingsPath())),
             "[General]\nSyntaxHelp=false\n\n[Diagnostics]\nRestartToken=*\n\n[Updates]\nDismissedRelease=1.2.3\n");
    QCOMPARE(Pattern(Contents(home->LogPath())),
             "an entry that was cut sh\n[OSTRELLDEBUGSTORAGE] * diagnostic log check\n");
}

void StorageDiagnosticsTest::Failure_data()
{
    QTest::addColumn<QString>("place"); // of what lies in a file's way
    QTest::addColumn<Obstacle>("obstacle");
    QTest::addColumn<QStringList>("failures");
    const QStringList directory = {"Storage directory create/access: FAIL"};
    const QStringList probe = {"Independent file write: FAIL: *", "Independent file readback: FAIL: *"};
    const QStringList cleanup = {"Probe cleanup: FAIL"};
    const QStringList ini = {"INI sync: FAIL (QSettings status 1)", "INI disk readback: FAIL"};
    const QStringList log = {"Log append: FAIL: *", "Log disk readback: FAIL"};
    // clang-format off
    QTest::newRow("a file in the directory's place")     << ""               << File      << directory + probe + cleanup + ini + log;
    QTest::newRow("a full disk")                         << "Quellbrook.log" << FullFile  << probe + ini + log;
    QTest::newRow("a directory in the log's place")      << "Quellbrook.log" << Directory << log;
    QTest::newRow("a pipe in the log's place")           << "Quellbrook.log" << Pipe      << log;
    QTest::newRow("a directory in the settings' place")  << "Quellbrook.ini" << Directory << ini;
    QTest::newRow("a pipe in the settings' place")       << "Quellbrook.ini" << Pipe      << ini;
    // clang-format on
}

void StorageDiagnosticsTest::Failure()
{
    QFETCH(QString, place);
    QFETCH(Obstacle, obstacle);
    QFETCH(QStringList, failures);
    const QString path = QDir::cleanPath(DataDirectory() + "/" + place);
    Put(obstacle, path);
    QString report;
    {
        const FullDisk full(obstacle == FullFile ? 0 : 1'000'000);
        report = StorageDiagnosticsReport();
    }
    QCOMPARE(Failures(report), failures + QStringList("INSTALLATION CHECK: WARN / FAIL (review results above)"));
    QVERIFY(report.endsWith("to verify persistence."));
    if (obstacle == FullFile) {
        QCOMPARE(Contents(path), "old\n");
        QCOMPARE(Files(), QStringList("Quellbrook.log"));
    }
}

void StorageDiagnosticsTest::ReadOnlyDirectory()
{
    Write(home->SettingsPath(), "[Diagnostics]\nRestartToken=kept\n");
    Write(home->LogPath(), "old\n");
    for (const QString& path : {home->SettingsPath(), home->LogPath()})
        chmod(QFile::encodeName(path), 0444);
    chmod(QFile::encodeName(DataDirectory()), 0555);
    chmod(QFile::encodeName(QFileInfo(DataDirectory()).path()), 0755);
    QString report;
    {
        const OrdinaryUser user;
        report = StorageDiagnosticsReport();
    }
    QVERIFY2(report.contains("Storage directory create/access: PASS"), qPrintable(report));
    QVERIFY2(report.contains("PASS: token found (kept)"), qPrintable(report));
    QCOMPARE(Failures(report).size(), 8);
    QCOMPARE(Contents(home->LogPath()), "old\n");
    chmod(QFile::encodeName(DataDirectory()), 0755);
}

void StorageDiagnosticsTest::Command()
{
    const QString line = "  OstrellDebugStorage "; // in any case, between blanks
    TypedWindow typed;
    typed.Type(line);
    const QString label = typed.Label();
    bool seen = false;
    QTimer::singleShot(0, [&] {
        QWidget* dialog = QApplication::activeModalWidget();
        QVERIFY(dialog);
        QCOMPARE(dialog->windowTitle(), "Quellbrook Storage Diagnostics");
        QCOMPARE(dialog->findChild<QLabel*>()->text(), "Installation regression report. Copy the details to share.");
        auto* box = dialog->findChild<QPlainTextEdit*>();
        QVERIFY(box->isReadOnly());
        QTest::keyClick(box, Qt::Key_Return); // the button to copy is the dialog's own
        const QString report = QGuiApplication::clipboard()->text();
        QVERIFY2(report.contains("INSTALLATION CHECK: PASS\n"), qPrintable(report));
        QCOMPARE(box->toPlainText(), report);
        seen = true;
        QTest::keyClick(box, Qt::Key_Escape);
    });
    typed.Enter();
    QVERIFY(seen);
    QCOMPARE(typed.Markup(), line + "\n");
    QCOMPARE(typed.Label(), label);
}

QTEST_MAIN(StorageDiagnosticsTest)
#include "StorageDiagnosticsTest.moc"
