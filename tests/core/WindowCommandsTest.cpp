#include "core/WindowCommands.h"

#include <QTest>

class WindowCommandsTest : public QObject {
    Q_OBJECT

private slots:
    void Command_data();
    void Command();
    void Handle_data();
    void Handle();
};

void WindowCommandsTest::Command_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("result"); // null: no window command
    const QString list = "Windows handle tools are only available on Windows.";
    // clang-format off
    QTest::newRow("the list")                              << "HANDLE"              << list;
    QTest::newRow("the list takes a filter")               << "handle calc"         << list;
    QTest::newRow("on top")                                << "SETTOPMOST 1"        << "0";
    QTest::newRow("not on top, in lower case")             << "setnottopmost 1"     << "0";
    QTest::newRow("show")                                  << "SHOW window 7 of 80" << "0";
    QTest::newRow("hide")                                  << "  HIDE -5 "          << "0";
    QTest::newRow("enable")                                << "ENABLE 0"            << "0";
    QTest::newRow("disable")                               << "DISABLE\t12"         << "0";
    QTest::newRow("an assignment to a command is one")     << "SHOW = 5"            << "0";
    QTest::newRow("no handle")                             << "SHOW"                << "Invalid Handle";
    QTest::newRow("a handle without digits")               << "DISABLE abc"         << "Invalid Handle";
    QTest::newRow("the list needs no handle, the rest do") << "SETTOPMOST"          << "Invalid Handle";
    QTest::newRow("a longer word is none")                 << "SHOWS 1"             << QString();
    QTest::newRow("nor is an identifier")                  << "HIDE_1"              << QString();
    QTest::newRow("nor a command further on")              << "2 SHOW 1"            << QString();
    // clang-format on
}

void WindowCommandsTest::Command()
{
    QFETCH(QString, text);
    QString result;
    QTEST((HandleWindowsCommand(text, result) ? result : QString()), "result");
}

void WindowCommandsTest::Handle_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<qulonglong>("handle");
    // clang-format off
    QTest::newRow("the first run of digits")     << "window 77 of 80"      << true  << 77ULL;
    QTest::newRow("a sign is no digit")          << "-5"                   << true  << 5ULL;
    QTest::newRow("the end ends the run")        << "x0012"                << true  << 12ULL;
    QTest::newRow("the largest handle")          << "18446744073709551615" << true  << 18446744073709551615ULL;
    QTest::newRow("one more is none")            << "18446744073709551616" << false << 0ULL;
    QTest::newRow("nothing")                     << ""                     << false << 0ULL;
    QTest::newRow("foreign digits are no number") << "1\u0663 5"           << false << 0ULL;
    // clang-format on
}

void WindowCommandsTest::Handle()
{
    QFETCH(QString, text);
    bool ok = false;
    const qulonglong handle = GetHandleFromText(text, ok);
    QTEST(ok, "ok");
    QTEST(handle, "handle");
}

QTEST_APPLESS_MAIN(WindowCommandsTest)
#include "WindowCommandsTest.moc"
