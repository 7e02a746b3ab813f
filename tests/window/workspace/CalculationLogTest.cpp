#include "core/workspace/FullDisk.h"
#include "window/DataHome.h"
#include "window/TypedWindow.h"

#include <QDateTime>
#include <QRegularExpression>
#include <QSessionManager>
#include <QTest>

#include <memory>
#include <sys/stat.h>

namespace {

// The log with each header that holds a time of the last minute written as "@".
QString Log(const DataHome& home)
{
    QString log = QString::fromUtf8(Contents(home.LogPath()));
    static const QRegularExpression header("^-{20}(\\w.*\\d)-{20}$", QRegularExpression::MultilineOption);
    for (auto match = header.match(log); match.hasMatch(); match = header.match(log)) {
        const QDateTime time = QDateTime::fromString(match.captured(1), Qt::TextDate);
        const bool now = qAbs(time.secsTo(QDateTime::currentDateTime())) < 60;
        log.replace(match.capturedStart(), match.capturedLength(), now ? "@" : "(another time)");
    }
    return log;
}

} // namespace

class CalculationLogTest : public QObject {
    Q_OBJECT

private slots:
    void init() { home = std::make_unique<DataHome>(); }
    void Close_data();
    void Close();
    void Clear();
    void EndOfSession();
    void ForOwnerAlone();
    void NoFile();
    void FullDiskTearsNoLaterEntry();
    void OlderInstallation();

private:
    std::unique_ptr<DataHome> home;
};

void CalculationLogTest::Close_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QString>("pad");
    QTest::addColumn<QString>("log");
    // clang-format off
    QTest::newRow("an empty pad is an entry")            << QByteArray()         << ""       << "@\n\n";
    QTest::newRow("the pad's text as it stands")         << QByteArray()         << "a\n\nb" << "@\na\n\nb\n";
    QTest::newRow("a last line feed is kept")            << QByteArray()         << "a\n"    << "@\na\n\n";
    QTest::newRow("UTF-8")                               << QByteArray()         << "\u221a2" << QString::fromUtf8("@\n√2\n");
    QTest::newRow("entries follow each other")           << QByteArray("x\ny\n") << "a"      << "x\ny\n@\na\n";
    QTest::newRow("a torn entry keeps its line alone")   << QByteArray("x\ny")   << "a"      << "x\ny\n@\na\n";
    // clang-format on
}

void CalculationLogTest::Close()
{
    QFETCH(QByteArray, before);
    QFETCH(QString, pad);
    if (!before.isNull())
        Write(home->LogPath(), before);
    TypedWindow typed;
    typed.pad()->setPlainText(pad);
    typed.window.close();
    QTEST(Log(*home), "log");
}

void CalculationLogTest::Clear()
{
    TypedWindow typed;
    QString log;
    for (const QString command : {"CLR", "cls", "CLEAR"}) {
        typed.Action("actionSave_Log_On_Clear")->setChecked(true);
        typed.TypeLine(command);
        log += "@\n" + command + "\n\n";
        QCOMPARE(Log(*home), log);
        typed.Action("actionSave_Log_On_Clear")->setChecked(false);
        typed.TypeLine(command);
        typed.Action("actionClear_Pad")->trigger();
        QCOMPARE(Log(*home), log);
    }
    typed.Action("actionSave_Log_On_Clear")->setChecked(true);
    typed.Action("actionClear_Pad")->trigger();
    QCOMPARE(Log(*home), log + "@\n\n");
}

void CalculationLogTest::EndOfSession()
{
    // Nobody looks at the manager that comes with the request.
    const auto request = [] { emit qApp->commitDataRequest(*reinterpret_cast<QSessionManager*>(qApp)); };
    TypedWindow typed;
    typed.Type("1");
    request();
    QCOMPARE(Log(*home), "@\n1\n");
    QVERIFY2(typed.window.isVisible(), "a session that goes on keeps its window");
    typed.Type("2");
    request();
    typed.window.close();
    QCOMPARE(Log(*home), "@\n1\n@\n12\n");
}

void CalculationLogTest::ForOwnerAlone()
{
    const mode_t before = umask(0);
    TypedWindow().window.close();
    umask(before);
    QCOMPARE(QFile::permissions(home->LogPath()) & 0x0fff, QFile::ReadUser | QFile::WriteUser);
}

void CalculationLogTest::NoFile()
{
    QCOMPARE(mkfifo(QFile::encodeName(home->LogPath()), 0600), 0);
    TypedWindow typed;
    QVERIFY(typed.window.close());
}

void CalculationLogTest::FullDiskTearsNoLaterEntry()
{
    TypedWindow typed;
    typed.pad()->setPlainText("first");
    {
        const FullDisk full(70);
        typed.window.WriteLog();
        typed.window.WriteLog();
    }
    typed.pad()->setPlainText("later");
    typed.window.close();
    const QStringList lines = Log(*home).split('\n');
    QCOMPARE(lines.first(2), (QStringList{"@", "first"}));
    QCOMPARE(lines.last(3), (QStringList{"@", "later", ""}));
}

// The test's own directory stands for the one that an older installation kept its files in.
void CalculationLogTest::OlderInstallation()
{
    const QString old = QDir(QCoreApplication::applicationDirPath()).filePath("Quellbrook.log");
    const auto remove = qScopeGuard([&] { QFile::remove(old); });
    Write(old, "old\n");
    QFile::setPermissions(old, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
    TypedWindow().window.close();
    QCOMPARE(Log(*home), "old\n@\n\n");
    QCOMPARE(QFile::permissions(home->LogPath()) & 0x0fff, QFile::ReadUser | QFile::WriteUser);
    Write(old, "newer\n");
    TypedWindow().window.close();
    QCOMPARE(Log(*home), "old\n@\n\n@\n\n");
}

QTEST_MAIN(CalculationLogTest)
#include "CalculationLogTest.moc"
