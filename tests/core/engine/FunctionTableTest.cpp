#include "core/engine/FunctionTable.h"
#include "../Table.h"

#include <cmath>

namespace {

Value Half(Arguments arguments)
{
    return arguments[0] / 2;
}

Value Overflow(Arguments)
{
    return HUGE_VAL;
}

Value Refuse(Arguments)
{
    return std::nullopt;
}

// clang-format off
constexpr FunctionRow library[] = {
    {QLatin1StringView("HALF"),     1, 2, Half},
    {QLatin1StringView("OVERFLOW"), 0, 0, Overflow},
    {QLatin1StringView("REFUSE"),   0, anyCount, Refuse},
};
// clang-format on

} // namespace

class FunctionTableTest : public QObject {
    Q_OBJECT

private slots:
    void Call_data();
    void Call() { CheckRow(); }
};

void FunctionTableTest::Call_data()
{
    const Table row([](const QString& name, const QList<double>& arguments, bool expectedHandled, bool expectedOk,
                       double expectedValue) {
        bool ok = false;
        bool handled = false;
        const double value = RunLibraryFunction(library, name, arguments, ok, handled);
        QCOMPARE(handled, expectedHandled);
        QCOMPARE(ok, expectedOk);
        QCOMPARE(value, expectedValue);
    });
    using List = QList<double>;
    // clang-format off
    row("a call in its domain has its value",    "HALF",     List{3},           true,  true,  1.5);
    row("too few arguments fail",                "HALF",     List{},            true,  false, 0.0);
    row("too many arguments fail",               "HALF",     List{1, 2, 3},     true,  false, 0.0);
    row("an infinite argument fails",            "HALF",     List{HUGE_VAL},    true,  false, 0.0);
    row("NaN fails",                             "HALF",     List{std::nan("")}, true, false, 0.0);
    row("an infinite result fails",              "OVERFLOW", List{},            true,  false, 0.0);
    row("a refusal is the library's last word",  "REFUSE",   List{1},           true,  false, 0.0);
    row("another name is not the library's",     "TWICE",    List{1},           false, false, 0.0);
    // clang-format on
}

QTEST_APPLESS_MAIN(FunctionTableTest)
#include "FunctionTableTest.moc"
