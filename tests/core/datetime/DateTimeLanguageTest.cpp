#include "core/datetime/DateTimeLanguage.h"

#include <QLocale>
#include <QTest>
#include <QThread>

#include <ctime>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

// Thursday, the tenth of September 2026. A second passes at each look.
class Clock {
public:
    QDateTime operator()() { return QDateTime(QDate(2026, 9, 10), QTime(23, 30, 15, 750)).addSecs(looks++); }

private:
    int looks = 0;
};

std::optional<double> Resolve(const QString& name)
{
    static const QMap<QString, double> numbers = {
        {u"X"_s, 2}, {u"ANS"_s, 40}, {u"\u00c4_1"_s, 3}, {u"NONE"_s, qQNaN()}};
    const auto number = numbers.constFind(name);
    return number == numbers.cend() ? std::nullopt : std::optional<double>(*number);
}

// The answer as one text: a number stands bare behind "=", a line that fails is "fails", another language's "other".
QString AnswerOf(const DateTimeAnswer& answer)
{
    if (!answer.recognised)
        return u"other"_s;
    if (!answer.ok)
        return u"fails"_s;
    return answer.isNumeric ? QString(u'=' + QString::number(answer.number, 'g', 15)) : answer.answerText;
}

QString AnswerOf(const QString& line)
{
    return AnswerOf(EvaluateDateTimeLanguageInternal(line, Resolve, false, {}, Clock()));
}

void SetTimeZone(const char* rule)
{
    qputenv("TZ", rule);
    tzset();
}

} // namespace

class DateTimeLanguageTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void Line_data();
    void Line();
    void Ans_data();
    void Ans();
    void DaylightSaving_data();
    void DaylightSaving();
    void AnyDepthOnASmallStack_data();
    void AnyDepthOnASmallStack();
};

// Nothing in this language follows the locale.
void DateTimeLanguageTest::initTestCase()
{
    QLocale::setDefault(QLocale(QLocale::German));
    SetTimeZone("UTC0");
}

void DateTimeLanguageTest::Line_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("answer");
    const auto row = [](const char* rule, QStringView line, QStringView answer) {
        QTest::newRow(rule) << line.toString() << answer.toString();
    };
    // clang-format off
    row("a number beside a duration is minutes",           u"1:23 + 47",                          u"2:10");
    row("and seconds beside one that shows them",          u"1:23:45 + 10",                       u"1:23:55");
    row("a duration goes on showing its seconds",          u"1:23:00 + 60 + 30",                  u"1:24:30");
    row("a number is rounded once it is seconds",          u"1:30 + 0.5",                         u"1:30:30");
    row("a half second is rounded away from zero",         u"0:00:01 / 2 - 0:00:03 / 2",          u"-0:00:01");
    row("a number from a duration",                        u"2:30 - 45",                          u"1:45");
    row("a duration from a number of minutes",             u"100 - 1:30",                         u"0:10");
    row("a duration from a number of seconds",             u"100 - 0:01:30",                      u"0:00:10");
    row("durations never wrap",                            u"23:00 + 3:00",                       u"26:00");
    row("a difference below zero",                         u"1:00:00 - 26:30",                    u"-25:30:00");
    row("a sign prints",                                   u"-0:30",                              u"-0:30");
    row("two signs cancel",                                u"- -0:30 + +X",                       u"0:32");
    row("seconds that were written stay",                  u"0:00:00",                            u"0:00:00");
    row("a product, either way round",                     u"1:30 * 4 + 2 * 0:10",                u"6:20");
    row("a quotient",                                      u"5:00 / 2",                           u"2:30");
    row("a quotient of no whole minutes shows seconds",    u"0:01 / 7",                           u"0:00:09");
    row("products bind tighter, to the left",              u"1:00 + 12:00 / 2 / 3 * 2",           u"5:00");
    row("a sign binds tighter than a product",             u"-1:00 * 2 - -3 * (1 + 1) * 0:10",    u"-1:00");
    row("numbers among themselves",                        u"HOUR(7:00) * 1.5e1 - .5 / (1 - 2) ", u"=105.5");
    row("exponents with a sign",                           u"1:30 * 20E-1 + 1E+1",                u"3:10");
    row("names are the resolver's, in upper case",         u"0:10 * x + \u00e4_1",                u"0:23");
    row("white space beyond ASCII",                        u"\u00a01:00\u2003+\u00851\t",         u"1:01");

    row("duration by duration",                            u"5:00 / 1:00",                        u"fails");
    row("duration times duration",                         u"1:30 * 1:30",                        u"fails");
    row("division by zero",                                u"1:30 / 0",                           u"fails");
    row("60 minutes",                                      u"1:60",                               u"fails");
    row("60 seconds",                                      u"1:00:60",                            u"fails");
    row("half a seconds field",                            u"1:30:4",                             u"fails");
    row("no implied product",                              u"2 1:30",                             u"fails");
    row("no implied product with a bracket",               u"2(1:30)",                            u"fails");
    row("an unknown name",                                 u"1:30 + RATE",                        u"fails");
    row("a name without a number value",                   u"1:30 + NONE",                        u"fails");
    row("a bracket left open",                             u"(1:30",                              u"fails");
    row("a bracket too many",                              u"1:30)",                              u"fails");
    row("a comma outside a call",                          u"(1:30, 2)",                          u"fails");
    row("a comma outside any bracket",                     u"1:30, 2",                            u"fails");
    row("a comma too many",                                u"HOUR(1:30, 2)",                      u"fails");
    row("a call of a plain word",                          u"TODAY()",                            u"fails");
    row("an operator without an operand",                  u"1:30 +",                             u"fails");
    row("two full stops in a number",                      u"1:30 + 1.2.3",                       u"fails");
    row("an exponent without digits",                      u"1:30 + 2E",                          u"fails");
    row("a line of another language",                      u"1 + 2 * X",                          u"other");

    row("a clock time and minutes",                        u"1:23 PM + 47",                       u"2:10 PM");
    row("a clock time and seconds",                        u"10 + 1:23:45 pm",                    u"1:23:55 PM");
    row("half a minute makes it show seconds",             u"1:23 PM + 0.5",                      u"1:23:30 PM");
    row("past midnight",                                   u"11:45PM + 30",                       u"12:15 AM");
    row("a duration past midnight",                        u"11:00 PM + 3:00",                    u"2:00 AM");
    row("before midnight",                                 u"12:00 AM - 1",                       u"11:59 PM");
    row("a duration back over days",                       u"1:00 AM - 49:00",                    u"12:00 AM");
    row("noon",                                            u"12:59 PM + 1 - 1:00",                u"12:00 PM");
    row("between clock times",                             u"1:00 AM - 2:30:15 PM",               u"-13:30:15");
    row("hour 13 with PM",                                 u"13:00 PM",                           u"fails");
    row("hour 0 with AM",                                  u"0:30 AM",                            u"fails");
    row("a clock time has no sign",                        u"-(1:00 AM)",                         u"fails");
    row("nor a sum with another",                          u"1:00 AM + 1:00 AM",                  u"fails");
    row("AM within a word",                                u"1:30 AMX",                           u"fails");
    row("AM parted by a space that is no literal's",       u"1:30\u00a0AM",                       u"fails");

    row("days on a date",                                  u"DATE(\"9/10/2026\") + 30",           u"10/10/2026");
    row("days off a date",                                 u"DATE(\"9/10/2026\") - 30",           u"8/11/2026");
    row("the leap day",                                    u"1 + DATE(\"2/28/2028\")",            u"2/29/2028");
    row("no leap day",                                     u"DATE(\"2/28/2026\") + 1",            u"3/1/2026");
    row("no leap day in 2100",                             u"DATE(\"2/29/2100\")",                u"fails");
    row("over the year's end",                             u"DATE(\"12/31/2026 11:59 pm\") + 0:01", u"1/1/2027 12:00 AM");
    row("a date moves by whole days",                      u"DATE(\"9/10/2026\") + 1.5",          u"fails");
    row("whole but for rounding",                          u"DATE(\"9/10/2026\") + 0.1 * 3 * 10",    u"9/13/2026");
    row("a duration makes a date a time of day",           u"DATE(\"9/10/2026\") - 1:30:00",      u"9/9/2026 10:30:00 PM");
    row("a stamp and a duration",                          u"2:00 + DATE(\"9/10/2026 11:30 PM\")", u"9/11/2026 1:30 AM");
    row("a stamp and days keep the seconds shown",         u"DATE(\"9/10/2026 1:00:00 PM\") + 1", u"9/11/2026 1:00:00 PM");
    row("days between dates",                              u"DATE(\"12/25/2026\") - DATE(\"9/10/2026\")", u"=106");
    row("time between stamps",                             u"DATE(\"9/10/2026 1:00 AM\") - DATE(\"9/11/2026 1:00:30 AM\")", u"-24:00:30");
    row("time between a date and a stamp",                 u"DATE(\"9/11/2026\") - DATE(\"9/10/2026 11:00 PM\")", u"1:00");
    row("no sum of dates",                                 u"TODAY + TODAY",                      u"fails");
    row("a date from a number",                            u"1 - TODAY",                          u"fails");
    row("other marks and spaces in a literal",             u"DATE(\" 9 - 1 . 2026  1 : 05 am \")", u"9/1/2026 1:05 AM");
    row("a day that is not",                               u"DATE(\"2/30/2026\")",                u"fails");
    row("a literal's time has AM or PM",                   u"DATE(\"9/10/2026 14:00\")",          u"fails");
    row("a literal's hour ends at 12",                     u"DATE(\"9/10/2026 14:00 PM\")",       u"fails");
    row("a literal's minutes end at 59",                   u"DATE(\"9/10/2026 1:60 PM\")",        u"fails");
    row("a literal is an argument of its own",             u"DATE(\"9/10/2026\" + 1)",            u"fails");
    row("a literal stands in calls alone",                 u"TODAY + \"9/10/2026\"",              u"fails");
    row("a literal left open",                             u"DATE(\"9/10/2026)",                  u"fails");
    row("a date of an expression",                         u"DATE((TODAY + 3))",                  u"9/13/2026");
    row("a date of a number",                              u"DATE(3)",                            u"fails");
    row("now, to the second",                              u"now + 1",                            u"9/11/2026 11:30:15 PM");
    row("now is one moment in a line",                     u"NOW - NOW",                          u"0:00:00");
    row("a whole second below now is counted",             u"TODAY - NOW",                        u"-23:30:15");

    row("days from the first to the second",               u"days(\"9/10/2026\", TODAY + 106)",   u"=106");
    row("days backward",                                   u"DAYS(\"1/1/2029\",\"1/1/2028\")",    u"=-366");
    row("days from a number",                              u"DAYS(1, TODAY)",                     u"fails");
    row("the day of the week of a number",                 u"WEEKDAY(3)",                         u"fails");
    row("days of one date",                                u"DAYS(TODAY)",                        u"fails");
    row("fields of a date",                                u"DAY(NOW) + 100*MONTH(\"9/1/2026\") + 10000*YEAR(TODAY)", u"=20260910");
    row("fields of a wrong kind",                          u"DAY(1:30)",                          u"fails");
    row("the day of the week is English",                  u"WEEKDAY(\"9/10/2026\")",             u"Thursday");
    row("words do not add",                                u"WEEKDAY(TODAY) + 1",                 u"fails");
    row("hours of a duration run on",                      u"HOUR(-26:00)",                       u"=26");
    row("minutes and seconds of a duration",               u"MINUTE(1:23:45) * 100 + SECOND(-1:23:45)", u"=2345");
    row("hours of a clock time",                           u"HOUR(1:23 PM) + HOUR(12:00 AM - 1)", u"=36");
    row("fields of a stamp",                               u"HOUR(NOW)*10000 + MINUTE(NOW)*100 + SECOND(NOW)", u"=233015");
    row("hours of a date",                                 u"HOUR(TODAY)",                        u"fails");

    row("born today",                                      u"AGE(TODAY)",                         u"0 years, 0 months, 0 days");
    row("one of each",                                     u"AGE(\"8/9/2025\")",                  u"1 year, 1 month, 1 day");
    row("the day before the birthday",                     u"AGE(\"9/11/2000\")",                 u"25 years, 11 months, 30 days");
    row("days are borrowed from the month before",         u"AGE(\"1/31/2026\")",                 u"0 years, 7 months, 10 days");
    row("born on a leap day",                              u"AGE(\"2/29/2024\")",                 u"2 years, 6 months, 13 days");
    row("there is no year 0",                              u"AGE(DATE(\"1/1/0001\") - 1)",        u"2025 years, 8 months, 10 days");
    row("not born yet",                                    u"AGE(TODAY + 1)",                     u"fails");

    row("the longest duration",                            u"2562047788015215:30:07",             u"2562047788015215:30:07");
    row("a second past it, written",                       u"2562047788015215:30:08",             u"fails");
    row("an hour past it, written",                        u"2562047788015216:00",                u"fails");
    row("hours past 64 bits",                              u"99999999999999999999:00",            u"fails");
    row("a second past it, added",                         u"2562047788015215:30:07 + 1",         u"fails");
    row("the lowest duration",                             u"-2562047788015215:30:07 - 1",        u"-2562047788015215:30:08");
    row("has no opposite",                                 u"-(-2562047788015215:30:07 - 1)",     u"fails");
    row("its hours",                                       u"HOUR(-2562047788015215:30:07 - 1)",  u"=2.56204778801522e+15");
    row("a product past 64 bits",                          u"1:00 * 1e300",                       u"fails");
    row("a product of 2 to the 63",                        u"0:00:01 * 9223372036854775808",      u"fails");
    row("a quotient past 64 bits",                         u"1:00 / 1e-300",                      u"fails");
    row("a number of minutes past 64 bits",                u"1:00 PM + 1e18",                     u"fails");
    row("a number past the range of numbers",              u"1:00 + 1e999",                       u"fails");
    row("days past 64 bits",                               u"TODAY + 1e19",                       u"fails");
    row("days past the calendar",                          u"TODAY - 784354000000",               u"fails");
    row("a year of many digits",                           u"DATE(\"12/31/9999\") + 1",           u"1/1/10000");
    row("a date too far for a time of day",                u"TODAY + 410000000 + 0:01",        u"fails");
    row("an age past counting",                            u"AGE(DATE(\"1/1/2026\") - 784353035921)", u"fails");
    row("a far stamp comes back",                          u"DATE(\"9/10/2026 1:00 AM\") + 3.9e8 - 390000000", u"9/10/2026 1:00 AM");
    row("days past a stamp's range",                       u"NOW + 4.1e8",                         u"fails");
    row("time past a stamp's range",                       u"NOW + 2562047788015215:00",          u"fails");
    row("time back past a stamp's range",                  u"NOW - 2562047788015215:00",          u"fails");
    row("time off without an opposite",                    u"NOW - (-2562047788015215:30:07 - 1)", u"fails");
    row("time since a date too far for it",                u"NOW - (TODAY - 410000000)",          u"fails");
    row("a duration off too large a number",               u"1e18 - 1:30",                        u"fails");
    row("the widest distance of stamps",                   u"TODAY + 3.9e8 + 0:00 - (TODAY - 3.9e8 + 0:00)", u"18720000000:00");
    // clang-format on
}

void DateTimeLanguageTest::Line()
{
    QFETCH(QString, line);
    QTEST(AnswerOf(line), "answer");
}

void DateTimeLanguageTest::Ans_data()
{
    QTest::addColumn<bool>("allowed");
    QTest::addColumn<QString>("ansText");
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("answer");
    QTest::addColumn<QString>("newAnsText");
    const auto row = [](const char* rule, bool allowed, QStringView ansText, QStringView line, QStringView answer,
                        QStringView newAnsText) {
        QTest::newRow(rule) << allowed << ansText.toString() << line.toString() << answer.toString()
                            << newAnsText.toString();
    };
    // clang-format off
    row("a duration goes on",             true,  u"-1:30:00",              u"ANS + 30",         u"-1:29:30",           u"-1:29:30");
    row("a clock time goes on",           true,  u"11:45 PM",              u"ans + 30",         u"12:15 AM",           u"12:15 AM");
    row("a date goes on",                 true,  u"DATE(\"9/10/2026\")",   u"ANS - 30",         u"8/11/2026",          u"DATE(\"8/11/2026\")");
    row("a stamp goes on",                true,  u"DATE(\"9/10/2026 11:30 PM\")", u"ANS + 2:00", u"9/11/2026 1:30 AM", u"DATE(\"9/11/2026 1:30 AM\")");
    row("a number takes no text",         true,  u"DATE(\"9/10/2026\")",   u"TODAY - ANS",      u"=0",                 u"");
    row("words take no text",             true,  u"DATE(\"9/10/2026\")",   u"WEEKDAY(ANS)",     u"Thursday",           u"");
    row("a failure takes no text",        true,  u"1:30",                  u"ANS + TODAY + x/0", u"fails",             u"");
    row("an answer counts as a whole",    true,  u"1:30",                  u"-ANS * 2",         u"-3:00",              u"-3:00");
    row("a number among times",           false, u"1:30",                  u"1:00 + ANS",       u"1:40",               u"1:40");
    row("a number by itself is no line",  false, u"1:30",                  u"ANS + 1",          u"other",              u"");
    row("no text, no date-time answer",   true,  u"",                      u"ANS + 1",          u"other",              u"");
    row("an answer is not its own part",  true,  u"ANS + 1:00",            u"ANS",              u"1:40",               u"1:40");
    row("a year past a literal's digits", true,  u"DATE(\"1/1/10000\")",   u"ANS + 1",          u"fails",              u"");
    // clang-format on
}

void DateTimeLanguageTest::Ans()
{
    QFETCH(bool, allowed);
    QFETCH(QString, ansText);
    QFETCH(QString, line);
    const DateTimeAnswer answer = EvaluateDateTimeLanguageInternal(line, Resolve, allowed, ansText, Clock());
    QTEST(AnswerOf(answer), "answer");
    QTEST(answer.newAnsText, "newAnsText");
}

// New York's clocks go from 2:00 to 3:00 on 3/8/2026 and from 2:00 to 1:00 on 11/1/2026, those of Sao Paulo went
// from 0:00 to 1:00 on 11/4/2018.
void DateTimeLanguageTest::DaylightSaving_data()
{
    QTest::addColumn<QByteArray>("zone");
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("answer");
    const auto row = [](const char* rule, const char* zone, QStringView line, QStringView answer) {
        QTest::newRow(rule) << QByteArray(zone) << line.toString() << answer.toString();
    };
    const char* const newYork = "EST5EDT,M3.2.0,M11.1.0";
    const char* const saoPaulo = "BRT3BRST,M11.1.0/0,M2.3.0/0";
    // clang-format off
    row("a day keeps the time of day",          newYork,  u"DATE(\"3/7/2026 12:00 PM\") + 1",     u"3/8/2026 12:00 PM");
    row("24 hours do not in spring",            newYork,  u"DATE(\"3/7/2026 12:00 PM\") + 24:00", u"3/8/2026 1:00 PM");
    row("nor in autumn",                        newYork,  u"DATE(\"11/1/2026\") + 24:00",         u"11/1/2026 11:00 PM");
    row("dates are whole days apart",           newYork,  u"DATE(\"3/9/2026\") - DATE(\"3/8/2026\")", u"=1");
    row("stamps are as far apart as time ran",  newYork,  u"DATE(\"3/9/2026 12:00 AM\") - DATE(\"3/8/2026\")", u"23:00");
    row("a skipped time is none",               newYork,  u"DATE(\"3/8/2026 2:30 AM\")",          u"fails");
    row("a day onto a skipped time goes on",    newYork,  u"DATE(\"3/7/2026 2:30 AM\") + 1",      u"3/8/2026 3:30 AM");
    row("a day back onto one goes on as well",  newYork,  u"DATE(\"3/9/2026 2:30 AM\") - 1",      u"3/8/2026 3:30 AM");
    row("a day without midnight begins at one", saoPaulo, u"DATE(\"11/4/2018\") + 2:00",          u"11/4/2018 3:00 AM");
    // clang-format on
}

void DateTimeLanguageTest::DaylightSaving()
{
    QFETCH(QByteArray, zone);
    QFETCH(QString, line);
    SetTimeZone(zone);
    const QString answer = AnswerOf(line);
    SetTimeZone("UTC0");
    QTEST(answer, "answer");
}

void DateTimeLanguageTest::AnyDepthOnASmallStack_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("answer");
    constexpr int depth = 100'000;
    const auto repeated = [](QStringView piece) { return piece.toString().repeated(depth); };
    QTest::newRow("brackets") << QString(repeated(u"(") + "1:30"_L1 + repeated(u")")) << u"1:30"_s;
    QTest::newRow("brackets left open") << QString("1:30 + "_L1 + repeated(u"(")) << u"fails"_s;
    QTest::newRow("signs") << QString(repeated(u"-") + "1:30"_L1) << u"1:30"_s;
    QTest::newRow("sums within sums") << QString(repeated(u"1+(") + "0:00"_L1 + repeated(u")")) << u"1666:40"_s;
    QTest::newRow("calls") << QString(repeated(u"DATE(") + "\"9/10/2026\""_L1 + repeated(u")")) << u"9/10/2026"_s;
    QTest::newRow("a long line") << QString(repeated(u"0:01+") + "0:00"_L1) << u"1666:40"_s;
    QTest::newRow("a long run of digits") << QString(repeated(u"1") + ":30"_L1) << u"fails"_s;
}

void DateTimeLanguageTest::AnyDepthOnASmallStack()
{
    QFETCH(QString, line);
    QString answer;
    const std::unique_ptr<QThread> thread(QThread::create([&] { answer = AnswerOf(line); }));
    thread->setStackSize(256 * 1024);
    thread->start();
    thread->wait();
    QTEST(answer, "answer");
}

QTEST_GUILESS_MAIN(DateTimeLanguageTest)
#include "DateTimeLanguageTest.moc"
