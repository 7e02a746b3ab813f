// Systems of nonlinear equations from the literature, solved to their published roots.
//
// Unless a row says otherwise they are those of More, Garbow and Hillstrom, Testing Unconstrained Optimization
// Software, ACM TOMS 7 (1981) 17-41, by their numbers there. Where a root lies at zero, at which every search begins,
// the unknowns are moved by 1.

#include "../Table.h"
#include "core/solver/EquationText.h"
#include "core/solver/NonlinearSolver.h"

#include <cmath>

namespace {

// One equation for each i from 1 to `count`: in `pattern` #i is i, and #- and #+ are the indices before and behind it.
QStringList Repeat(int count, const QString& pattern)
{
    const auto index = [](int i) { return u"%1"_qs.arg(i, 2, 10, QChar(u'0')); };
    QStringList equations;
    for (int i = 1; i <= count; ++i) {
        QString equation = pattern;
        equation.replace("#-", index(i - 1)).replace("#+", index(i + 1)).replace("#i", index(i));
        equations.append(equation);
    }
    return equations;
}

// "(term of 1)+(term of 2)+..."
QString Joined(int count, const QString& pattern, QStringView sign = u"+")
{
    return u'(' + Repeat(count, pattern).join(u")" + sign + u"(") + u')';
}

// Equations with the unknowns beyond both ends replaced by zero.
QStringList WithZeroEnds(QStringList equations, int count)
{
    equations.replaceInStrings("X00", "0");
    return equations.replaceInStrings(u"X%1"_qs.arg(count + 1, 2, 10, QChar(u'0')), "0");
}

QStringList BrownAlmostLinear(int n)
{
    const QString sum = Joined(n, "X#i");
    QStringList equations = Repeat(n - 1, u"X#i+%1=%2"_qs.arg(sum).arg(n + 1));
    return equations << Joined(n, "X#i", u"*") + "=1";
}

QStringList BroydenBanded(int n)
{
    QStringList equations;
    for (int i = 1; i <= n; ++i) {
        QString band = "0";
        for (int j = std::max(1, i - 5); j <= std::min(n, i + 1); ++j)
            band += j == i ? QString() : u"+X%1*(1+X%1)"_qs.arg(j, 2, 10, QChar(u'0'));
        equations << u"X%1*(2+5*X%1^2)+1-(%2)=0"_qs.arg(i, 2, 10, QChar(u'0')).arg(band);
    }
    return equations;
}

// The shifted Chebyshev polynomials have the mean values that their integrals over [0, 1] have.
QStringList Chebyquad(int n)
{
    QStringList polynomials = {"1", "(2*X#i-1)"};
    QStringList equations;
    for (int i = 1; i <= n; ++i) {
        const QString integral = i % 2 == 1 ? u"0"_qs : u"-1/%1"_qs.arg(i * i - 1);
        equations << u"(%1)/%2=%3"_qs.arg(Joined(n, polynomials[i])).arg(n).arg(integral);
        polynomials << u"(2*(2*X#i-1)*%1-%2)"_qs.arg(polynomials[i], polynomials[i - 1]);
    }
    return equations;
}

QStringList Trigonometric(int n)
{
    const QString cosines = Joined(n, "COS(X#i-1)");
    return Repeat(n, u"%1-(%2)+#i*(1-COS(X#i-1))-SIN(X#i-1)=0"_qs.arg(n).arg(cosines));
}

} // namespace

class PublishedSystemsTest : public QObject {
    Q_OBJECT

private slots:
    void Root_data();
    void Root() { CheckRow(); }
};

void PublishedSystemsTest::Root_data()
{
    // The root is sorted, and empty where there are several.
    const Table row([](const QStringList& equations, const QList<double>& root) {
        const std::optional<EquationSystem> system = BuildEquationSystem(equations, {});
        QVERIFY(system);
        int ticks = 0;
        SearchPulse pulse([&](const QString&) { return ++ticks < 100; });
        Point values;
        QVERIFY(SolveNonlinearEquationSystem(*system, values, pulse) == SearchEnd::Exact);
        for (const QString& equation : equations) {
            bool ok = false;
            const double residual = EvaluateSystemEquation(equation, system->names, values, ok, system->setting);
            QVERIFY2(ok && std::fabs(residual) < 1e-12, qPrintable(equation));
        }
        std::sort(values.begin(), values.end());
        for (qsizetype i = 0; i < root.size(); ++i)
            QVERIFY2(std::fabs(values[size_t(i)] - root[i]) < 1e-6 * std::max(1.0, std::fabs(root[i])),
                     qPrintable(QString::number(values[size_t(i)], 'g', 17)));
    });
    using Lines = QStringList;
    using Root = QList<double>;
    // clang-format off
    row("1 Rosenbrock",             Lines{"10*(Y-X^2)=0", "1-X=0"},                                  Root{1, 1});
    row("2 Freudenstein and Roth",  Lines{"-13+X+((5-Y)*Y-2)*Y=0", "-29+X+((Y+1)*Y-14)*Y=0"},        Root{4, 5});
    row("3 Powell badly scaled",    Lines{"10000*X*Y=1", "EXP(-X)+EXP(-Y)=1.0001"},                  Root{1.098159e-5, 9.106146});
    row("4 Brown badly scaled",     Lines{"X-1E6=0", "Y-2E-6=0", "X*Y=2"},                           Root{2e-6, 1e6});
    row("5 Beale",                  Lines{"1.5=X*(1-Y)", "2.25=X*(1-Y^2)", "2.625=X*(1-Y^3)"},       Root{0.5, 3});
    row("7 Helical valley",         Lines{"10*(Z-10*ATAN2(Y,X)/(2PI))=0", "10*(SQRT(X^2+Y^2)-1)=0", "Z=0"}, Root{0, 0, 1});
    row("13 Powell singular",       Lines{"A-1+10*(B-1)=0", "SQRT(5)*(C-D)=0", "(B-1-2*(C-1))^2=0", "SQRT(10)*(A-D)^2=0"}, Root{1, 1, 1, 1});
    row("14 Wood",                  Lines{"10*(B-A^2)=0", "1-A=0", "SQRT(90)*(D-C^2)=0", "1-C=0", "SQRT(10)*(B+D-2)=0", "(B-D)/SQRT(10)=0"}, Root{1, 1, 1, 1});
    row("12 Box",                   Repeat(10, "EXP(-#i*X/10)-EXP(-#i*Y/10)-Z*(EXP(-#i/10)-EXP(-#i))=0"), Root{});
    row("18 Biggs",                 Repeat(13, "C*EXP(-#i*A/10)-D*EXP(-#i*B/10)+F*EXP(-#i*E/10)=EXP(-#i/10)-5EXP(-#i)+3EXP(-4*#i/10)"), Root{});
    row("21 extended Rosenbrock",   Repeat(5, "10*(Y#i-X#i^2)=0") + Repeat(5, "1-X#i=0"),            Root(10, 1.0));
    row("26 trigonometric",         Trigonometric(5),                                                Root{});
    row("27 Brown almost linear",   BrownAlmostLinear(5),                                            Root{});
    row("28 discrete boundary value", WithZeroEnds(Repeat(10, "2X#i-X#--X#++(X#i+#i/11+1)^3/242=0"), 10), Root{});
    row("30 Broyden tridiagonal",   WithZeroEnds(Repeat(10, "(3-2X#i)*X#i-X#--2*X#++1=0"), 10),       Root{});
    row("31 Broyden banded",        BroydenBanded(10),                                               Root{});
    // Abscissas of Chebyshev's quadrature with equal weights: Abramowitz and Stegun, table 25.5, moved to [0, 1].
    row("35 Chebyquad of 2",        Chebyquad(2), Root{0.2113248654, 0.7886751346});
    row("35 Chebyquad of 4",        Chebyquad(4), Root{0.10267276385, 0.40620376295, 0.59379623705, 0.89732723615});
    row("35 Chebyquad of 5",        Chebyquad(5), Root{0.0837512565, 0.3127292952, 0.5, 0.6872707048, 0.9162487435});
    // clang-format on
}

QTEST_APPLESS_MAIN(PublishedSystemsTest)
#include "PublishedSystemsTest.moc"
