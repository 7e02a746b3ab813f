#include "../Table.h"
#include "Arithmetic.h"
#include "PatternReference.h"

#include "core/units/UnitConversions.h"
#include "core/units/UnitTable.h"

#include <QRandomGenerator>

using namespace Qt::StringLiterals;

namespace {

// Lines of values, conversions, fragments of unit names and whatever decides where a value or a name ends.
class LineGenerator {
public:
    explicit LineGenerator(quint32 seed) : random(seed) {}

    QString Line()
    {
        QString line = Chance(8) ? u"simplify "_s : QString();
        for (int pieces = 1 + random.bounded(4); pieces > 0; --pieces)
            line += Chance(3) ? Glue() : QString(Glue() + Value() + Conversion());
        return Disturbed(line + Glue());
    }

private:
    bool Chance(int oneIn) { return random.bounded(oneIn) == 0; }

    template <typename List>
    auto Pick(const List& list)
    {
        return list[random.bounded(int(std::size(list)))];
    }

    QString Blank()
    {
        return Chance(10) ? Pick(QStringList{u""_s, u"\u00A0"_s, u"\n"_s})
                          : Pick(QStringList{u" "_s, u"  "_s, u"\t"_s});
    }

    QString Value()
    {
        return Pick(
            QStringList{u"12"_s, u"-5"_s, u"1E-3"_s, u".5e+2"_s, u"X"_s, u"(2 + 3)"_s, u"3 * -4"_s, u""_s, u"2("_s});
    }

    QString Glue()
    {
        return Pick(QStringList{u""_s,   u" "_s,  u" + "_s, u"-"_s,    u" * "_s, u"("_s,        u")"_s,
                                u"{"_s,  u"} "_s, u", "_s,  u"="_s,    u"<"_s,   u"/"_s,        u"^"_s,
                                u"!-"_s, u"%+"_s, u"e-"_s,  u"2.e-"_s, u"_"_s,   u"é-"_s,       u" TO "_s,
                                u"to"_s, u"°"_s,  u"é"_s,   u"²+"_s,   u" \n"_s, u" in TO cm"_s});
    }

    QString Name(const UnitDefinition& unit)
    {
        const QString name = Pick(unit.aliases);
        return Chance(12) ? name.section(u' ', Chance(2) ? -1 : 0, Chance(2) ? -1 : 0) : name;
    }

    QString Conversion()
    {
        const QList<UnitDefinition>& units = UnitDefinitions();
        const qsizetype first = random.bounded(int(units.size()));
        qsizetype second = std::min(first + random.bounded(6), units.size() - 1);
        if (Chance(8))
            second = random.bounded(int(units.size()));
        return Blank() + Name(units[first]) + Blank() + u"to"_s + Blank() + Name(units[second]);
    }

    // Letters in any case, among them those that are equal to an ASCII letter ignoring case, and blanks of any width.
    QString Disturbed(QString line)
    {
        for (QChar& c : line) {
            c = Chance(2) ? c.toLower() : c.toUpper();
            if (Chance(40) && (c == u'K' || c == u'S'))
                c = c == u'K' ? QChar(u'\u212A') : QChar(u'\u017F');
        }
        return Chance(4) ? line.replace(u' ', u"  "_s) : line;
    }

    QRandomGenerator random;
};

} // namespace

class UnitConversionsTest : public QObject {
    Q_OBJECT

private slots:
    void Text_data();
    void Text() { CheckRow(); }
    void Value_data();
    void Value() { CheckRow(); }
    void TextWithoutConversionIsShared();
    void SameAsPatternByPattern();
    void HostileText_data();
    void HostileText() { CheckRow(); }
};

void UnitConversionsTest::Text_data()
{
    const Table row(
        [](const QString& text, const QString& expanded) { QCOMPARE(ExpandUnitConversions(text), expanded); });
    // clang-format off
    row("numbers have 17 digits",                    u"12 IN TO CM"_s,            u"((((12) * 0.025399999999999999)) / 0.01)"_s);
    row("any case, any blanks",                      u"2\tMetric  Cups to  l"_s, u"((((2) * 0.25)) / 1)"_s);
    row("the value ends at the line's start",        u"X FT TO M = 10"_s,         u"((((X) * 0.30480000000000002)) / 1) = 10"_s);
    row("a command word is no value",                u"SIMPLIFY 2 KM TO M"_s,     u"SIMPLIFY ((((2) * 1000)) / 1)"_s);
    row("a longer word is one",                      u"SIMPLIFYX KM TO M"_s,      u"((((SIMPLIFYX) * 1000)) / 1)"_s);
    row("a command word alone has no value",         u"simplify KM TO M"_s,       u"simplify KM TO M"_s);
    row("any blank may stand before a binary sign",  u"X\u00A0- 2 KM TO M"_s,     u"X\u00A0-((((2) * 1000)) / 1)"_s);
    row("braces end a value",                        u"{ X KM TO M = 10 }"_s,     u"{((((X) * 1000)) / 1) = 10 }"_s);
    row("commas end a value",                        u"MIN(1, 2 KM TO M)"_s,      u"MIN(1,((((2) * 1000)) / 1))"_s);
    row("commas in the value's brackets do not",     u"MIN(1, 2) KM TO M"_s,      u"((((MIN(1, 2)) * 1000)) / 1)"_s);
    row("reciprocal target",                         u"8 KML TO L100KM"_s,        u"(100 / (((8) * 1)))"_s);
    row("reciprocal source",                         u"8 L100KM TO KML"_s,        u"(((100 / (8))) / 1)"_s);
    row("reciprocal on both sides",                  u"8 L100KM TO L/100KM"_s,    u"(100 / ((100 / (8))))"_s);
    row("a conversion is the next one's value",      u"2 KM TO M FT TO FT"_s,     u"((((((((2) * 1000)) / 1)) * 0.30480000000000002)) / 0.30480000000000002)"_s);
    row("a chain fails the whole text",              u"1 + 12 IN TO CM TO M"_s,   u"()"_s);
    row("a chain needs no value",                    u"IN TO CM TO M"_s,          u"()"_s);
    row("two families are no pair",                  u"12 IN TO KG"_s,            u"12 IN TO KG"_s);
    row("a source stands behind a blank",            u"12IN TO CM"_s,             u"12IN TO CM"_s);
    row("TO is a whole word",                        u"12 IN TOO CM"_s,           u"12 IN TOO CM"_s);
    row("no value, no conversion",                   u"2 + (IN TO CM)"_s,         u"2 + (IN TO CM)"_s);
    row("parts per million is its own row",          u"1 PPM TO PERCENT"_s,       u"((((1) * 9.9999999999999995e-07)) / 0.01)"_s);
    row("the partner's family decides a spelling",   u"72 PT TO INCH"_s,          u"((((72) * 0.013888888888888888)) / 1)"_s);
    row("equal pairs: the first family of the table", u"1 MM TO INCH"_s,           u"((((1) * 0.001)) / 0.025399999999999999)"_s);
    row("a chain of names that no longer fit is read again",
        u"NAUTICAL MILE TO KM IN TO CM"_s, u"((((((((NAUTICAL) * 1609.3440000000001)) / 1000)) * 0.025399999999999999)) / 0.01)"_s);
    // clang-format on
}

void UnitConversionsTest::Value_data()
{
    const Table row([](const QString& text, double value) {
        const double result = Arithmetic<double>::Value(ExpandUnitConversions(text));
        QVERIFY2(std::fabs(result - value) <= 1e-12 * std::max(1.0, std::fabs(value)),
                 qPrintable(QString::number(result)));
    });
    // clang-format off
    row("both offsets",                           u"32 F TO C"_s,           0.0);
    row("a sign at the start is the value's",     u"-40 C TO F"_s,          -40.0);
    row("a sign behind an operator likewise",     u"2 * -5 KM TO M"_s,      -10000.0);
    row("a binary sign ends the value",           u"2 + 3 KM TO M"_s,       3002.0);
    row("a bracket does not, inside itself",      u"(2 + 3) KM TO M"_s,     5000.0);
    row("an exponent's sign does not",            u"1E-3 M TO MM"_s,        1.0);
    row("nor that of a number ending in a point", u"1.E-3 M TO MM"_s,       1.0);
    row("products belong to the value",           u"3 * 4 KM TO M"_s,       12000.0);
    row("what follows the unit stays outside",    u"5 KM TO M + 1"_s,       5001.0);
    row("an operator may touch the target",       u"5 KM TO M*2"_s,         10000.0);
    row("the longer name wins",                   u"128 FL OZ TO GALLON"_s, 1.0);
    row("two conversions in one line",            u"1 KM TO M + 1 M TO CM"_s, 1100.0);
    row("line rates are decimal",                 u"1 KBYTEPS TO BPS"_s,    8000.0);
    // clang-format on
}

void UnitConversionsTest::TextWithoutConversionIsShared()
{
    for (const QString& text : {u"2 * (3 + TOTAL)"_s, u""_s, u"12 IN TO KG"_s})
        QCOMPARE(ExpandUnitConversions(text).constData(), text.constData());
}

void UnitConversionsTest::SameAsPatternByPattern()
{
    constexpr int lines = 1500;
    LineGenerator generator(20240229);
    int changed = 0;
    for (int i = 0; i < lines; ++i) {
        const QString line = generator.Line();
        const QString expected = ExpandByPatterns(line);
        QVERIFY2(ExpandUnitConversions(line) == expected, qPrintable(line));
        changed += expected != line && expected != u"()"_s;
    }
    QVERIFY(changed > lines / 4); // enough of the lines are conversions
}

void UnitConversionsTest::HostileText_data()
{
    const Table row(
        [](const QString& text, const QString& expanded) { QCOMPARE(ExpandUnitConversions(text), expanded); });
    constexpr int many = 100000;
    const QString brackets = u"("_s.repeated(many);
    const QString signs = u"- "_s.repeated(many);
    const QString blanks = u" "_s.repeated(many);
    const QString prose = u"SQUARE TO "_s.repeated(many);
    // clang-format off
    row("TO without units",       prose,                                   prose);
    row("open brackets",          QString(brackets + u"2 KM TO M"_s),      QString(brackets + u"((((2) * 1000)) / 1)"_s));
    row("unary signs",            QString(signs + u"2 KM TO M"_s),         QString(u"(((("_s + signs + u"2) * 1000)) / 1)"_s));
    row("blanks in a name",       QString(u"2 METRIC"_s + blanks + u"CUP TO L"_s), u"((((2) * 0.25)) / 1)"_s);
    row("conversions in a row",   u"2 KM TO M + "_s.repeated(many),        u"()"_s);
    row("conversions of another", QString(u"2"_s + u" KM TO M"_s.repeated(many)), u"()"_s);
    // clang-format on
}

QTEST_APPLESS_MAIN(UnitConversionsTest)
#include "UnitConversionsTest.moc"
