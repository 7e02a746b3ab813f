#include "core/solver/CompiledEquation.h"
#include "core/solver/EquationText.h"

#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTest>

#include <cmath>
#include <cstring>

namespace {

// SQ(a) and HALF(a) in the place of the user's functions.
bool ExpandCalls(const QString& text, QString& expanded)
{
    static const QRegularExpression call("(?<![A-Za-z_])(SQ|HALF)\\s*\\(", QRegularExpression::CaseInsensitiveOption);
    expanded = text;
    for (;;) {
        const QRegularExpressionMatch match = call.match(expanded);
        if (!match.hasMatch())
            return true;
        int depth = 1;
        qsizetype end = match.capturedEnd();
        for (; end < expanded.size() && depth > 0; ++end)
            depth += expanded[end] == u'(' ? 1 : expanded[end] == u')' ? -1 : 0;
        const QString argument = expanded.mid(match.capturedEnd(), end - match.capturedEnd() - 1).trimmed();
        if (depth > 0 || argument.isEmpty())
            return false;
        const QString body = match.captured(1).toUpper() == "SQ" ? "((%1)^2+K)" : "((%1)/2)";
        expanded.replace(match.capturedStart(), end - match.capturedStart(), body.arg(argument));
    }
}

QString ReplaceWords(const QString& text)
{
    static const QRegularExpression plus("\\bplus\\b"), three("\\bthree\\b");
    return QString(text).replace(plus, "+").replace(three, "3");
}

EquationSetting Setting()
{
    EquationSetting setting;
    setting.variables = {{"K", 0.1}, {"X3", 7}, {"_V", -1e-7}, {"INF", 3}, {"_1", 2}};
    setting.lastAnswer = 1.0 / 3;
    setting.useWordOperators = true;
    setting.wordOp = ReplaceWords;
    setting.expandCustomFunctions = ExpandCalls;
    return setting;
}

class Generator {
public:
    QString Equation()
    {
        QString text = Side(3) + u'=' + Side(2);
        if (random.bounded(3) == 0) // mostly to something that is none
            text.replace(random.bounded(text.size()), 1, Pick({"", "(", ")", "X", " ", "2", ".", "=", "E", "SIN "}));
        return text;
    }

    double Number()
    {
        static const double special[] = {0, -0.0, 1, -1, 1e-6, 1e300, 5e-324, 1e22, HUGE_VAL, std::nan(""), 0.1, 2};
        if (random.bounded(3) == 0)
            return special[random.bounded(int(std::size(special)))];
        return (random.generateDouble() - 0.5) * std::pow(10.0, random.bounded(-6, 4));
    }

private:
    QString Pick(const QStringList& choices) { return choices[random.bounded(int(choices.size()))]; }

    QString Side(int depth)
    {
        if (depth == 0 || random.bounded(5) == 0)
            return Pick({"X",     "x",    "Y",    "E",  "X2",  "2X",    "3",   "1E-3", "2E", "0x1F",
                         "10X",   "X(3)", "(X)Y", "K",  "X3",  "_V",    "ANS", "2ans", "X!", "Y%",
                         "SIN X", "SQ Y", "inf",  "PI", "A2Y", "three", "_0",  "_2X"});
        switch (random.bounded(8)) {
        case 0:
            return Pick({"SQ(", "HALF (", "COS(", "SQRT(", "-(", "EXP("}) + Side(depth - 1) + u')';
        case 1:
            return u'(' + Side(depth - 1) + u')' + Pick({"", "!", "%", "^2", "^-1"});
        case 2:
            return u"ATAN2(" + Side(depth - 1) + u", " + Side(depth - 1) + u')';
        default:
            return Side(depth - 1) + Pick({"+", "-", "*", "/", "^", " plus ", " ", "-"}) + Side(depth - 1);
        }
    }

    QRandomGenerator random{20251};
};

} // namespace

class CompiledEquationTest : public QObject {
    Q_OBJECT

private slots:
    void AgreesWithTheText();
    void KnowsItsUnknowns();
    void DepthIsBoundedByMemory();
};

// To the last bit, also where there is no value.
void CompiledEquationTest::AgreesWithTheText()
{
    const EquationSetting setting = Setting();
    Generator generate;
    int values = 0;
    for (int i = 0; i < 20000; ++i) {
        const QString equation = generate.Equation();
        QStringList names;
        if (!FindEquationSystemVariables({equation}, names, setting))
            names = {"X"};
        const CompiledEquation compiled(equation, names, setting);
        for (int j = 0; j < 5; ++j) {
            std::vector<double> point;
            for (qsizetype k = 0; k < names.size(); ++k)
                point.push_back(generate.Number());
            bool ok = false;
            const double expected = EvaluateSystemEquation(equation, names, point, ok, setting);
            const Value value = compiled.Residual(point);
            values += ok;
            QVERIFY2(value.has_value() == ok, qPrintable(equation));
            QVERIFY2(!ok || std::memcmp(&*value, &expected, sizeof(double)) == 0, qPrintable(equation));
        }
    }
    QVERIFY2(values > 20000, qPrintable(QString::number(values)));
}

void CompiledEquationTest::KnowsItsUnknowns()
{
    const CompiledEquation equation("2Y+SQ(Z)=X2", {"X", "X2", "Y", "Z"}, Setting());
    const bool expected[] = {false, true, true, true};
    for (size_t i = 0; i < std::size(expected); ++i)
        QCOMPARE(equation.DependsOn(i), expected[i]);
}

void CompiledEquationTest::DepthIsBoundedByMemory()
{
    const int depth = 100000;
    const QString equation = QString("1^(").repeated(depth) + u'X' + QString(")").repeated(depth) + u"=1";
    const double x = 1;
    QCOMPARE(*CompiledEquation(equation, {"X"}, {}).Residual({&x, 1}), 0.0);
}

QTEST_APPLESS_MAIN(CompiledEquationTest)
#include "CompiledEquationTest.moc"
