#include "Arithmetic.h"

#include "core/units/UnitConversions.h"
#include "core/units/UnitTable.h"

#include <QFile>
#include <QSet>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// A line of UnitFacts.txt under its family.
struct Fact {
    QString family;
    QString left;
    QChar sign; // ':' for a definition, '=' or '~' for a statement
    QString right;
};

QList<Fact> ReadFacts()
{
    QFile file(QFINDTESTDATA("UnitFacts.txt"));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return {};
    QList<Fact> facts;
    QString family;
    for (const QString& line : QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts)) {
        if (line.startsWith(u'['))
            family = line.sliced(1, line.size() - 2);
        else if (!line.startsWith(u'#')) {
            const QString sign = line.contains(u":="_s) ? u" := "_s : line.contains(u'~') ? u" ~ "_s : u" = "_s;
            facts.append({family, line.section(sign, 0, 0), sign[1], line.section(sign, 1)});
        }
    }
    return facts;
}

long double Exact(const QString& text)
{
    return Arithmetic<long double>::Value(text);
}

double Converted(const QString& line)
{
    return Arithmetic<double>::Value(ExpandUnitConversions(line));
}

bool IsNear(double value, long double exact, long double relative)
{
    return std::fabs(value - exact) <= relative * (exact == 0 ? 1 : std::fabs(exact));
}

// The amount and the unit's name of one side of a statement.
QString Amount(const QString& side)
{
    return side.section(u' ', 0, 0);
}

QString UnitName(const QString& side)
{
    return side.section(u' ', 1);
}

// Every other letter in lower case, and each blank as a run of white space.
QString AsTyped(const QString& alias)
{
    QString typed;
    for (const QChar c : alias)
        typed += c == u' ' ? u" \t "_s : QString(typed.size() % 2 ? c.toLower() : c);
    return typed;
}

} // namespace

class UnitTableTest : public QObject {
    Q_OBJECT

private slots:
    void DefinitionsAreThePublicOnes();
    void StatementsHold();
    void EveryUnitIsInAStatement();
    void EverySpellingReachesItsUnit();
    void NoSpellingIsTwiceInAFamily();
    void EveryUnitConvertsToItsFamilyAndBack();
    void Vocabulary();
};

void UnitTableTest::DefinitionsAreThePublicOnes()
{
    const QList<UnitDefinition>& units = UnitDefinitions();
    qsizetype row = 0;
    for (const Fact& fact : ReadFacts()) {
        if (fact.sign != u':')
            continue;
        QVERIFY(row < units.size());
        const UnitDefinition& unit = units[row++];
        QCOMPARE(unit.family, fact.family);
        QCOMPARE(unit.canonicalName, fact.left);
        QVERIFY2(IsNear(unit.factor, Exact(fact.right.section(u';', 0, 0).trimmed()), 1e-15L), qPrintable(fact.left));
        const QString offset = fact.right.section(u';', 1).trimmed();
        QVERIFY2(IsNear(unit.offset, offset.isEmpty() ? 0 : Exact(offset), 1e-15L), qPrintable(fact.left));
    }
    QCOMPARE(row, units.size());
    QCOMPARE(row, 249);
}

void UnitTableTest::StatementsHold()
{
    for (const Fact& fact : ReadFacts()) {
        if (fact.sign == u':')
            continue;
        const QString line = fact.left + u" TO "_s + UnitName(fact.right);
        const QString expected = Amount(fact.right);
        const qsizetype decimals = expected.contains(u'.') ? expected.section(u'.', 1).size() : 0;
        const double value = Converted(line);
        const bool holds = fact.sign == u'~'
                               ? std::fabs(value - expected.toDouble()) <= 0.5 * std::pow(10.0, -double(decimals))
                               : IsNear(value, Exact(expected), 1e-12L);
        QVERIFY2(holds, qPrintable(line + u" gives "_s + QString::number(value, 'g', 17)));
    }
}

void UnitTableTest::EveryUnitIsInAStatement()
{
    QSet<QString> named;
    for (const Fact& fact : ReadFacts()) {
        for (const QString& side : {fact.left, fact.right}) {
            if (fact.sign != u':')
                named.insert(fact.family + u'/' + UnitName(side).toUpper());
        }
    }
    for (const UnitDefinition& unit : UnitDefinitions()) {
        const bool found = std::any_of(unit.aliases.cbegin(), unit.aliases.cend(), [&](const QString& alias) {
            return named.contains(unit.family + u'/' + alias);
        });
        QVERIFY2(found, qPrintable(unit.canonicalName));
    }
}

// Units of one family differ in worth (but for pairs of the same worth), so the amount stays only in the right row.
void UnitTableTest::EverySpellingReachesItsUnit()
{
    for (const UnitDefinition& unit : UnitDefinitions()) {
        QVERIFY(unit.aliases.contains(unit.canonicalName));
        for (const QString& alias : unit.aliases) {
            QCOMPARE(alias, alias.simplified().toUpper());
            const QString from = u"7 "_s + AsTyped(alias) + u" TO "_s + unit.canonicalName;
            const QString to = u"7 "_s + unit.canonicalName + u" to "_s + AsTyped(alias);
            QVERIFY2(IsNear(Converted(from), 7, 1e-12L), qPrintable(from));
            QVERIFY2(IsNear(Converted(to), 7, 1e-12L), qPrintable(to));
        }
    }
}

void UnitTableTest::NoSpellingIsTwiceInAFamily()
{
    QSet<QString> seen;
    for (const UnitDefinition& unit : UnitDefinitions()) {
        for (const QString& alias : unit.aliases) {
            const QString spelling = unit.family + u'/' + alias.toCaseFolded();
            QVERIFY2(!seen.contains(spelling), qPrintable(spelling));
            seen.insert(spelling);
        }
    }
}

void UnitTableTest::EveryUnitConvertsToItsFamilyAndBack()
{
    for (const UnitDefinition& from : UnitDefinitions()) {
        for (const UnitDefinition& to : UnitDefinitions()) {
            if (from.family != to.family)
                continue;
            const QString there = ExpandUnitConversions(u"3 "_s + from.canonicalName + u" TO "_s + to.canonicalName);
            const QString back = u' ' + to.canonicalName + u" TO "_s + from.canonicalName;
            QVERIFY2(!std::isnan(Arithmetic<double>::Value(there)), qPrintable(there));
            QVERIFY2(IsNear(Converted(there + back), 3, 1e-12L), qPrintable(there + back));
        }
    }
}

void UnitTableTest::Vocabulary()
{
    const QStringList& words = GetUnitConversionVocabulary();
    for (const QString& word :
         {u"TO"_s, u"INCHES"_s, u"DEGREES CELSIUS"_s, u"IN TO CM"_s, u"CM TO IN"_s, u"MPG TO L100KM"_s})
        QVERIFY2(words.contains(word), qPrintable(word));
    for (const QString& word : {u"IN TO IN"_s, u"IN TO KG"_s, u"INCH TO CM"_s})
        QVERIFY2(!words.contains(word), qPrintable(word));
    QVERIFY(std::is_sorted(words.cbegin(), words.cend(),
                           [](const QString& a, const QString& b) { return a.compare(b, Qt::CaseInsensitive) < 0; }));
    QCOMPARE(QSet<QString>(words.cbegin(), words.cend()).size(), words.size());
}

QTEST_APPLESS_MAIN(UnitTableTest)
#include "UnitTableTest.moc"
