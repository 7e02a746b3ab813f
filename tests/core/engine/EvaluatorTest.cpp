#include "core/engine/Evaluator.h"
#include "../Table.h"
#include "core/engine/NumberText.h"
#include "core/engine/Substitution.h"

#include <QRandomGenerator>
#include <QThread>

#include <cmath>
#include <cstring>

namespace {

std::optional<double> Evaluate(const QString& text, const Variables& variables = {})
{
    return EvaluateText(text, variables, GlobalRandomBits);
}

bool SameValue(std::optional<double> a, std::optional<double> b)
{
    if (!a || !b)
        return a.has_value() == b.has_value();
    return std::memcmp(&*a, &*b, sizeof(double)) == 0 || (std::isnan(*a) && std::isnan(*b));
}

// The grammar once more, as the plain recursion that it describes; for short texts of ASCII without calls.
class RecursiveReader {
public:
    static std::optional<double> Read(const QString& text)
    {
        RecursiveReader reader;
        reader.rest = text;
        const double value = reader.Expression();
        reader.Spaces();
        return reader.ok && reader.rest.isEmpty() ? std::optional(value) : std::nullopt;
    }

private:
    void Spaces() { rest = rest.trimmed(); }

    bool Take(QStringView sign)
    {
        Spaces();
        if (!ok || !rest.startsWith(sign))
            return false;
        rest = rest.sliced(sign.size());
        return true;
    }

    double Fail()
    {
        ok = false;
        return 0;
    }

    double Expression()
    {
        double value = Term();
        for (;;) {
            if (Take(u"+"))
                value += Term();
            else if (Take(u"-"))
                value -= Term();
            else
                return value;
        }
    }

    double Term()
    {
        double value = Unary();
        for (;;) {
            Spaces();
            if (Take(u"*")) {
                value *= Unary();
            } else if (Take(u"/") || Take(u"÷")) {
                const double divisor = Unary();
                if (!ok || divisor == 0)
                    return Fail();
                value /= divisor;
            } else if (ok && !rest.isEmpty() && (rest[0] == u'(' || rest[0].isLetter())) {
                value *= Unary();
            } else {
                return value;
            }
        }
    }

    double Unary()
    {
        while (Take(u"+")) {
        }
        return Take(u"-") ? -Unary() : Power();
    }

    double Power()
    {
        double value = Primary();
        for (;;) {
            if (Take(u"!")) {
                const Value factorial = FactorialOf(value);
                value = factorial ? *factorial : Fail();
            } else if (Take(u"%")) {
                value /= 100;
            } else {
                break;
            }
        }
        return Take(u"^") ? std::pow(value, Unary()) : value;
    }

    double Primary()
    {
        if (Take(u"(")) {
            const double value = Expression();
            return Take(u")") ? value : Fail();
        }
        if (Take(u"PI"))
            return rest.isEmpty() || !rest[0].isLetterOrNumber() ? 3.141592653589793 : Fail();
        const qsizetype size = DecimalLiteralEnd(rest, 0);
        bool read = false;
        const double value = rest.first(size).toDouble(&read);
        rest = rest.sliced(size);
        return read && ok ? value : Fail();
    }

    QStringView rest;
    bool ok = true;
};

QString RandomText(QRandomGenerator& random, const QStringList& pieces, int most)
{
    QString text;
    for (int i = random.bounded(1, most); i > 0; --i)
        text += pieces[random.bounded(static_cast<int>(pieces.size()))];
    return text;
}

} // namespace

class EvaluatorTest : public QObject {
    Q_OBJECT

private slots:
    void TheValue_data();
    void TheValue() { CheckRow(); }
    void ARefusal_data();
    void ARefusal() { CheckRow(); }
    void OverflowIsAValue();
    void AgreesWithThePlainRecursion();
    void VariablesAgreeWithTheirText();
    void LiteralsAgreeWithTheToolkit();
    void Substitution_data();
    void Substitution() { CheckRow(); }
    void DepthIsBoundedByMemory_data();
    void DepthIsBoundedByMemory() { CheckRow(); }
};

void EvaluatorTest::TheValue_data()
{
    const Table row([](const QString& text, double expected) {
        const std::optional<double> value = Evaluate(text);
        QVERIFY(value);
        QCOMPARE(*value, expected);
    });
    // clang-format off
    row("product before sum",                           "1+2*3",               7.0);
    row("power binds tighter than the minus before it", "-2^2",                -4.0);
    row("power takes a sign behind it",                 "2^-1",                0.5);
    row("powers group to the right",                    "2^3^2",               512.0);
    row("percent divides and nothing else",             "200+10%",             200.1);
    row("percent belongs to the exponent",              "2^300%",              8.0);
    row("factorial belongs to the exponent",            "2^3!",                64.0);
    row("factorial before power",                       "2!^3",                8.0);
    row("postfix signs repeat",                         "3!!",                 720.0);
    row("zero has a factorial",                         "0!",                  1.0);
    row("signs repeat",                                 "+-+-3",               3.0);
    row("division groups to the left",                  "8/4/2",               1.0);
    row("the division sign",                            u"9÷3"_qs,             3.0);
    row("a number before a bracket",                    "2(3+4)",              14.0);
    row("brackets side by side",                        "(2)(3)",              6.0);
    row("a number before a name",                       "2PI",                 6.283185307179586);
    row("a bracket before a name",                      "(2) pi",              6.283185307179586);
    row("a constant before a bracket is a product",     "PI(2)",               6.283185307179586);
    row("an implied product binds like a written one",  "8/2(4)",              16.0);
    row("an implied product after a power",             "2^3(4)",              32.0);
    row("names in any case",                            "Euler",               2.718281828459045);
    row("a dotless i is an i in capitals",              u"2pı"_qs,             6.283185307179586);
    row("blanks and tabs between tokens",               " 1 +\t2 ",            3.0);
    row("a no-break space is a blank",                  u"1\u00a0+ 2"_qs,      3.0);
    row("a call",                                       "sqrt ( 16 )",         4.0);
    row("calls nest",                                   "ROUND(2, SQRT(2))",   1.41);
    row("a call before a bracket",                      "ABS(-2)(3)",          6.0);
    row("an argument is an expression",                 "ATAN2(2-2, -1+2)",    0.0);
    row("exponents",                                    "1e3+1E+3+1e-3",       2000.001);
    row("a point may lead or trail",                    "3.+.5",               3.5);
    row("a hexadecimal literal",                        "0XfF+0b101+0o17",     275.0);
    row("the largest literal of a base",                "0x1FFFFFFFFFFFFF",    9007199254740991.0);
    // clang-format on
}

void EvaluatorTest::ARefusal_data()
{
    const Table row([](const QString& text) { QVERIFY(!Evaluate(text)); });
    const QStringList refused = {
        "",          "   ",      "()",     "+",      "2+",      "*2",       "2 3",     "(2)3",
        "((2)",      "2)",       "1,2",    "(1,2)",  "1.2.3",   ".",        "1e",      "1e+",
        "1e999",     "1e-999",   "1/0",    "0/0",    "1/(2-2)", "1/-0",     "171!",    "(-1)!",
        "2.5!",      "X",        "2X",     "PIE",    "_",       "2_",       "nan",     "inf",
        "SIN",       "SIN 2",    "SIN()",  "SIN(1,", "SIN(1,)", "SIN(1,2)", "SIN(,1)", "SIN((1,2))",
        "NOSUCH(1)", "SQRT(-1)", "0b",     "0x",     "0b2",     "0b102",    "0xFG",    "0x20000000000000",
        u"٣"_qs,     u"é"_qs,    u"2²"_qs, "5=5",    "2&3",     "$5"};
    for (const QString& text : refused)
        row(qPrintable(u"\"" + text + u"\""), text);
}

void EvaluatorTest::OverflowIsAValue()
{
    QCOMPARE(*Evaluate("2^1024"), HUGE_VAL);
    QVERIFY(std::isnan(*Evaluate("(-8)^(1/3)")));
    QCOMPARE(*Evaluate("170!"), 7.257415615307994e306); // the product in ascending order, each step rounded
}

void EvaluatorTest::AgreesWithThePlainRecursion()
{
    const QStringList pieces = {"1", "2.5", "3", "0", ".5", "1e2", "+", "-", "*",  "/", "÷",
                                "^", "!",   "%", "(", ")",  "(",   ")", " ", "PI", "-", "2"};
    QRandomGenerator random(20240607);
    int values = 0;
    for (int i = 0; i < 200000; ++i) {
        const QString text = RandomText(random, pieces, 12);
        const std::optional<double> expected = RecursiveReader::Read(text);
        values += expected.has_value();
        QVERIFY2(SameValue(Evaluate(text), expected), qPrintable(text));
    }
    QVERIFY(values > 10000);
}

void EvaluatorTest::VariablesAgreeWithTheirText()
{
    const Variables variables = {{"X", 3},      {"X2", -0.1},      {"E", 1e-6}, {"E3", 7},
                                 {"_A1", 1e22}, {"BIG", HUGE_VAL}, {"Z", -0.0}, {"F", 1.0 / 3}};
    const QStringList pieces = {"X",  "x2", "E",     "e3",  "_a1", "BIG", "Z",    "F", "2", "0x1", "0",
                                "1",  "+",  "-",     "*",   "/",   "^",   "(",    ")", " ", ".",   "SQRT(",
                                "PI", "pı", "SQRT ", "abs", " X",  "1e",  "ſin(", "é", "10"};
    QRandomGenerator random(19700101);
    int values = 0;
    for (int i = 0; i < 200000; ++i) {
        const QString text = RandomText(random, pieces, 7);
        const std::optional<double> expected = Evaluate(ReplaceVariables(text, variables));
        values += expected.has_value();
        QVERIFY2(SameValue(Evaluate(text, variables), expected), qPrintable(text));
    }
    QVERIFY(values > 10000);
}

void EvaluatorTest::LiteralsAgreeWithTheToolkit()
{
    QRandomGenerator random(6021);
    const auto digits = [&](int most) {
        QString text;
        for (int i = random.bounded(most + 1); i > 0; --i)
            text += QChar(u'0' + random.bounded(10));
        return text;
    };
    for (int i = 0; i < 200000; ++i) {
        QString text = digits(20);
        if (random.bounded(2))
            text += u'.' + digits(30);
        if (random.bounded(3) == 0)
            text += u"e%1"_qs.arg(random.bounded(-340, 320));
        bool ok = false;
        const double expected = text.toDouble(&ok);
        QVERIFY2(SameValue(DecimalLiteralValue(text), ok ? std::optional(expected) : std::nullopt), qPrintable(text));
    }
}

void EvaluatorTest::Substitution_data()
{
    const Table row(
        [](const QString& text, const QString& withANS, const QString& withVariables, const QString& withoutWords) {
            const Variables variables = {{"X", 3}, {"E", 2.384185791015625e-07}};
            QCOMPARE(ReplaceANS(text, -0.5), withANS);
            QCOMPARE(ReplaceVariables(text, variables), withVariables);
            QCOMPARE(RemoveNonMathText(text).simplified(), withoutWords);
        });
    // clang-format off
    row("a digit may stand before", "2ANS 2X",       "2(-0.5) 2X",     "2ANS 2(3)",       "2 2");
    row("not inside a name",        "XANS ANS2 X2",  "XANS ANS2 X2",   "XANS ANS2 X2",    "2 2");
    row("in any case",              "ans+x",         "(-0.5)+x",       "ans+(3)",         "+");
    row("not inside an exponent",   "1E+3 2e3 2E",   "1E+3 2e3 2E",    "1E+3 2e3 2(2.384185791015625e-07)", "1E+3 2e3 2");
    row("not inside a base literal", "0xE 10E",      "0xE 10E",        "0xE 10(2.384185791015625e-07)",   "0 10");
    row("commas and words go",      "cost $1,234.5 + 3 apples", "cost $1,234.5 + 3 apples", "cost $1,234.5 + 3 apples", "1234.5 + 3");
    // clang-format on
}

// 100,000 levels on the smallest stack that threads are given.
void EvaluatorTest::DepthIsBoundedByMemory_data()
{
    const Table row([](const QString& before, const QString& behind, double value) {
        const QString text = before.repeated(100000) + u'1' + behind.repeated(100000);
        std::optional<double> result;
        QScopedPointer<QThread> thread(QThread::create([&] { result = Evaluate(text); }));
        thread->setStackSize(64 * 1024);
        thread->start();
        QVERIFY(thread->wait());
        QVERIFY(SameValue(result, std::isnan(value) ? std::nullopt : std::optional<double>(value)));
    });
    row("brackets", "(", ")", 1.0);
    row("signs", "-", "", 1.0);
    row("calls", "sqrt(", ")", 1.0);
    row("powers", "1^", "", 1.0);
    row("arguments", "ROUND(0,", ")", 1.0);
    row("unclosed", "sin(", "", std::nan(""));
}

QTEST_APPLESS_MAIN(EvaluatorTest)
#include "EvaluatorTest.moc"
