#include "core/WindowCommands.h"
#include "Table.h"

class WindowCommandsTest : public QObject {
    Q_OBJECT

private slots:
    void Command_data();
    void Command() { CheckRow(); }
    void Handle_data();
    void Handle() { CheckRow(); }
};

void WindowCommandsTest::Command_data()
{
    // Null: no window command.
    const Table row([](const QString& text, const QString& expected) {
        QString result;
        QCOMPARE((HandleWindowsCommand(text, result) ? result : QString()), expected);
    });
    const QString list = "Windows handle tools are only available on Windows.";
    // clang-format off
    row("the list",                              "HANDLE",              list);
    row("the list takes a filter",               "handle calc",         list);
    row("on top",                                "SETTOPMOST 1",        "0");
    row("not on top, in lower case",             "setnottopmost 1",     "0");
    row("show",                                  "SHOW window 7 of 80", "0");
    row("hide",                                  "  HIDE -5 ",          "0");
    row("enable",                                "ENABLE 0",            "0");
    row("disable",                               "DISABLE\t12",         "0");
    row("an assignment to a command is one",     "SHOW = 5",            "0");
    row("no handle",                             "SHOW",                "Invalid Handle");
    row("a handle without digits",               "DISABLE abc",         "Invalid Handle");
    row("the list needs no handle, the rest do", "SETTOPMOST",          "Invalid Handle");
    row("a longer word is none",                 "SHOWS 1",             QString());
    row("nor is an identifier",                  "HIDE_1",              QString());
    row("nor a command further on",              "2 SHOW 1",            QString());
    // clang-format on
}

void WindowCommandsTest::Handle_data()
{
    const Table row([](const QString& text, bool expectedOk, const qulonglong& expectedHandle) {
        bool ok = false;
        const qulonglong handle = GetHandleFromText(text, ok);
        QCOMPARE(ok, expectedOk);
        QCOMPARE(handle, expectedHandle);
    });
    // clang-format off
    row("the first run of digits",     "window 77 of 80",      true,  77ULL);
    row("a sign is no digit",          "-5",                   true,  5ULL);
    row("the end ends the run",        "x0012",                true,  12ULL);
    row("the largest handle",          "18446744073709551615", true,  18446744073709551615ULL);
    row("one more is none",            "18446744073709551616", false, 0ULL);
    row("nothing",                     "",                     false, 0ULL);
    row("foreign digits are no number", "1\u0663 5",           false, 0ULL);
    // clang-format on
}

QTEST_APPLESS_MAIN(WindowCommandsTest)
#include "WindowCommandsTest.moc"
