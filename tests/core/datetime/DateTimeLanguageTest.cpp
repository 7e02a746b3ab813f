#include "core/datetime/DateTimeLanguage.h"
#include "../Table.h"

#include <QLocale>
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
    void Line() { CheckRow(); }
    void Ans_data();
    void Ans() { CheckRow(); }
    void DaylightSaving_data();
    void DaylightSaving() { CheckRow(); }
    void AnyDepthOnASmallStack_data();
    void AnyDepthOnASmallStack() { CheckRow(); }
};

// Nothing in this language follows the locale.
void DateTimeLanguageTest::initTestCase()
{
    QLocale::setDefault(QLocale(QLocale::German));
    SetTimeZone("UTC0");
}

void DateTimeLanguageTest::Line_data()
{
    const Table row([](const QString& line, const QString& answer) { QCOMPARE(AnswerOf(line), answer); });
    // clang-format off
    row("a number beside a duration is minutes",           "1:23 + 47",                          "2:10");
    row("and seconds beside one that shows them",          "1:23:45 + 10",                       "1:23:55");
    row("a duration goes on showing its seconds",          "1:23:00 + 60 + 30",                  "1:24:30");
    row("a number is rounded once it is seconds",          "1:30 + 0.5",                         "1:30:30");
    row("a half second is rounded away from zero",         "0:00:01 / 2 - 0:00:03 / 2",          "-0:00:01");
    row("a number from a duration",                        "2:30 - 45",                          "1:45");
    row("a duration from a number of minutes",             "100 - 1:30",                         "0:10");
    row("a duration from a number of seconds",             "100 - 0:01:30",                      "0:00:10");
    row("durations never wrap",                            "23:00 + 3:00",                       "26:00");
    row("a difference below zero",                         "1:00:00 - 26:30",                    "-25:30:00");
    row("a sign prints",                                   "-0:30",                              "-0:30");
    row("two signs cancel",                                "- -0:30 + +X",                       "0:32");
    row("seconds that were written stay",                  "0:00:00",                            "0:00:00");
    row("a product, either way round",                     "1:30 * 4 + 2 * 0:10",                "6:20");
    row("a quotient",                                      "5:00 / 2",                           "2:30");
    row("a quotient of no whole minutes shows seconds",    "0:01 / 7",                           "0:00:09");
    row("products bind tighter, to the left",              "1:00 + 12:00 / 2 / 3 * 2",           "5:00");
    row("a sign binds tighter than a product",             "-1:00 * 2 - -3 * (1 + 1) * 0:10",    "-1:00");
    row("numbers among themselves",                        "HOUR(7:00) * 1.5e1 - .5 / (1 - 2) ", "=105.5");
    row("exponents with a sign",                           "1:30 * 20E-1 + 1E+1",                "3:10");
    row("names are the resolver's, in upper case",         "0:10 * x + \u00e4_1",                "0:23");
    row("white space beyond ASCII",                        "\u00a01:00\u2003+\u00851\t",         "1:01");

    row("duration by duration",                            "5:00 / 1:00",                        "fails");
    row("duration times duration",                         "1:30 * 1:30",                        "fails");
    row("division by zero",                                "1:30 / 0",                           "fails");
    row("60 minutes",                                      "1:60",                               "fails");
    row("60 seconds",                                      "1:00:60",                            "fails");
    row("half a seconds field",                            "1:30:4",                             "fails");
    row("no implied product",                              "2 1:30",                             "fails");
    row("no implied product with a bracket",               "2(1:30)",                            "fails");
    row("an unknown name",                                 "1:30 + RATE",                        "fails");
    row("a name without a number value",                   "1:30 + NONE",                        "fails");
    row("a bracket left open",                             "(1:30",                              "fails");
    row("a bracket too many",                              "1:30)",                              "fails");
    row("a comma outside a call",                          "(1:30, 2)",                          "fails");
    row("a comma outside any bracket",                     "1:30, 2",                            "fails");
    row("a comma too many",                                "HOUR(1:30, 2)",                      "fails");
    row("a call of a plain word",                          "TODAY()",                            "fails");
    row("an operator without an operand",                  "1:30 +",                             "fails");
    row("two full stops in a number",                      "1:30 + 1.2.3",                       "fails");
    row("an exponent without digits",                      "1:30 + 2E",                          "fails");
    row("a line of another language",                      "1 + 2 * X",                          "other");

    row("a clock time and minutes",                        "1:23 PM + 47",                       "2:10 PM");
    row("a clock time and seconds",                        "10 + 1:23:45 pm",                    "1:23:55 PM");
    row("half a minute makes it show seconds",             "1:23 PM + 0.5",                      "1:23:30 PM");
    row("past midnight",                                   "11:45PM + 30",                       "12:15 AM");
    row("a duration past midnight",                        "11:00 PM + 3:00",                    "2:00 AM");
    row("before midnight",                                 "12:00 AM - 1",                       "11:59 PM");
    row("a duration back over days",                       "1:00 AM - 49:00",                    "12:00 AM");
    row("noon",                                            "12:59 PM + 1 - 1:00",                "12:00 PM");
    row("between clock times",                             "1:00 AM - 2:30:15 PM",               "-13:30:15");
    row("hour 13 with PM",                                 "13:00 PM",                           "fails");
    row("hour 0 with AM",                                  "0:30 AM",                            "fails");
    row("a clock time has no sign",                        "-(1:00 AM)",                         "fails");
    row("nor a sum with another",                          "1:00 AM + 1:00 AM",                  "fails");
    row("AM within a word",                                "1:30 AMX",                           "fails");
    row("AM parted by a space that is no literal's",       "1:30\u00a0AM",                       "fails");

    row("days on a date",                                  "DATE(\"9/10/2026\") + 30",           "10/10/2026");
    row("days off a date",                                 "DATE(\"9/10/2026\") - 30",           "8/11/2026");
    row("the leap day",                                    "1 + DATE(\"2/28/2028\")",            "2/29/2028");
    row("no leap day",                                     "DATE(\"2/28/2026\") + 1",            "3/1/2026");
    row("no leap day in 2100",                             "DATE(\"2/29/2100\")",                "fails");
    row("over the year's end",                             "DATE(\"12/31/2026 11:59 pm\") + 0:01", "1/1/2027 12:00 AM");
    row("a date moves by whole days",                      "DATE(\"9/10/2026\") + 1.5",          "fails");
    row("whole but for rounding",                          "DATE(\"9/10/2026\") + 0.1 * 3 * 10",    "9/13/2026");
    row("a duration makes a date a time of day",           "DATE(\"9/10/2026\") - 1:30:00",      "9/9/2026 10:30:00 PM");
    row("a stamp and a duration",                          "2:00 + DATE(\"9/10/2026 11:30 PM\")", "9/11/2026 1:30 AM");
    row("a stamp and days keep the seconds shown",         "DATE(\"9/10/2026 1:00:00 PM\") + 1", "9/11/2026 1:00:00 PM");
    row("days between dates",                              "DATE(\"12/25/2026\") - DATE(\"9/10/2026\")", "=106");
    row("time between stamps",                             "DATE(\"9/10/2026 1:00 AM\") - DATE(\"9/11/2026 1:00:30 AM\")", "-24:00:30");
    row("time between a date and a stamp",                 "DATE(\"9/11/2026\") - DATE(\"9/10/2026 11:00 PM\")", "1:00");
    row("no sum of dates",                                 "TODAY + TODAY",                      "fails");
    row("a date from a number",                            "1 - TODAY",                          "fails");
    row("other marks and spaces in a literal",             "DATE(\" 9 - 1 . 2026  1 : 05 am \")", "9/1/2026 1:05 AM");
    row("a day that is not",                               "DATE(\"2/30/2026\")",                "fails");
    row("a literal's time has AM or PM",                   "DATE(\"9/10/2026 14:00\")",          "fails");
    row("a literal's hour ends at 12",                     "DATE(\"9/10/2026 14:00 PM\")",       "fails");
    row("a literal's minutes end at 59",                   "DATE(\"9/10/2026 1:60 PM\")",        "fails");
    row("a literal is an argument of its own",             "DATE(\"9/10/2026\" + 1)",            "fails");
    row("a literal stands in calls alone",                 "TODAY + \"9/10/2026\"",              "fails");
    row("a literal left open",                             "DATE(\"9/10/2026)",                  "fails");
    row("a date of an expression",                         "DATE((TODAY + 3))",                  "9/13/2026");
    row("a date of a number",                              "DATE(3)",                            "fails");
    row("now, to the second",                              "now + 1",                            "9/11/2026 11:30:15 PM");
    row("now is one moment in a line",                     "NOW - NOW",                          "0:00:00");
    row("a whole second below now is counted",             "TODAY - NOW",                        "-23:30:15");

    row("days from the first to the second",               "days(\"9/10/2026\", TODAY + 106)",   "=106");
    row("days backward",                                   "DAYS(\"1/1/2029\",\"1/1/2028\")",    "=-366");
    row("days from a number",                              "DAYS(1, TODAY)",                     "fails");
    row("the day of the week of a number",                 "WEEKDAY(3)",                         "fails");
    row("days of one date",                                "DAYS(TODAY)",                        "fails");
    row("fields of a date",                                "DAY(NOW) + 100*MONTH(\"9/1/2026\") + 10000*YEAR(TODAY)", "=20260910");
    row("fields of a wrong kind",                          "DAY(1:30)",                          "fails");
    row("the day of the week is English",                  "WEEKDAY(\"9/10/2026\")",             "Thursday");
    row("words do not add",                                "WEEKDAY(TODAY) + 1",                 "fails");
    row("hours of a duration run on",                      "HOUR(-26:00)",                       "=26");
    row("minutes and seconds of a duration",               "MINUTE(1:23:45) * 100 + SECOND(-1:23:45)", "=2345");
    row("hours of a clock time",                           "HOUR(1:23 PM) + HOUR(12:00 AM - 1)", "=36");
    row("fields of a stamp",                               "HOUR(NOW)*10000 + MINUTE(NOW)*100 + SECOND(NOW)", "=233015");
    row("hours of a date",                                 "HOUR(TODAY)",                        "fails");

    row("born today",                                      "AGE(TODAY)",                         "0 years, 0 months, 0 days");
    row("one of each",                                     "AGE(\"8/9/2025\")",                  "1 year, 1 month, 1 day");
    row("the day before the birthday",                     "AGE(\"9/11/2000\")",                 "25 years, 11 months, 30 days");
    row("days are borrowed from the month before",         "AGE(\"1/31/2026\")",                 "0 years, 7 months, 10 days");
    row("born on a leap day",                              "AGE(\"2/29/2024\")",                 "2 years, 6 months, 13 days");
    row("there is no year 0",                              "AGE(DATE(\"1/1/0001\") - 1)",        "2025 years, 8 months, 10 days");
    row("not born yet",                                    "AGE(TODAY + 1)",                     "fails");

    row("a second past the longest duration",                         "2562047788015215:30:07 + 1",         "fails");
    row("the lowest duration",                             "-2562047788015215:30:07 - 1",        "-2562047788015215:30:08");
    row("has no opposite",                                 "-(-2562047788015215:30:07 - 1)",     "fails");
    row("its hours",                                       "HOUR(-2562047788015215:30:07 - 1)",  "=2.56204778801522e+15");
    row("a product past 64 bits",                          "1:00 * 1e300",                       "fails");
    row("a product of 2 to the 63",                        "0:00:01 * 9223372036854775808",      "fails");
    row("a quotient past 64 bits",                         "1:00 / 1e-300",                      "fails");
    row("a number of minutes past 64 bits",                "1:00 PM + 1e18",                     "fails");
    row("a number past the range of numbers",              "1:00 + 1e999",                       "fails");
    row("days past 64 bits",                               "TODAY + 1e19",                       "fails");
    row("days past the calendar",                          "TODAY - 784354000000",               "fails");
    row("a year of many digits",                           "DATE(\"12/31/9999\") + 1",           "1/1/10000");
    row("a date too far for a time of day",                "TODAY + 410000000 + 0:01",        "fails");
    row("an age past counting",                            "AGE(DATE(\"1/1/2026\") - 784353035921)", "fails");
    row("a far stamp comes back",                          "DATE(\"9/10/2026 1:00 AM\") + 3.9e8 - 390000000", "9/10/2026 1:00 AM");
    row("days past a stamp's range",                       "NOW + 4.1e8",                         "fails");
    row("time past a stamp's range",                       "NOW + 2562047788015215:00",          "fails");
    row("time back past a stamp's range",                  "NOW - 2562047788015215:00",          "fails");
    row("time off without an opposite",                    "NOW - (-2562047788015215:30:07 - 1)", "fails");
    row("time since a date too far for it",                "NOW - (TODAY - 410000000)",          "fails");
    row("a duration off too large a number",               "1e18 - 1:30",                        "fails");
    row("the widest distance of stamps",                   "TODAY + 3.9e8 + 0:00 - (TODAY - 3.9e8 + 0:00)", "18720000000:00");
    // clang-format on
}

void DateTimeLanguageTest::Ans_data()
{
    const Table row([](bool allowed, const QString& ansText, const QString& line, const QString& expected,
                       const QString& newAnsText) {
        const DateTimeAnswer answer = EvaluateDateTimeLanguageInternal(line, Resolve, allowed, ansText, Clock());
        QCOMPARE(AnswerOf(answer), expected);
        QCOMPARE(answer.newAnsText, newAnsText);
    });
    // clang-format off
    row("a duration goes on",             true,  "-1:30:00",              "ANS + 30",         "-1:29:30",           "-1:29:30");
    row("a clock time goes on",           true,  "11:45 PM",              "ans + 30",         "12:15 AM",           "12:15 AM");
    row("a date goes on",                 true,  "DATE(\"9/10/2026\")",   "ANS - 30",         "8/11/2026",          "DATE(\"8/11/2026\")");
    row("a stamp goes on",                true,  "DATE(\"9/10/2026 11:30 PM\")", "ANS + 2:00", "9/11/2026 1:30 AM", "DATE(\"9/11/2026 1:30 AM\")");
    row("a number takes no text",         true,  "DATE(\"9/10/2026\")",   "TODAY - ANS",      "=0",                 "");
    row("words take no text",             true,  "DATE(\"9/10/2026\")",   "WEEKDAY(ANS)",     "Thursday",           "");
    row("a failure takes no text",        true,  "1:30",                  "ANS + TODAY + x/0", "fails",             "");
    row("an answer counts as a whole",    true,  "1:30",                  "-ANS * 2",         "-3:00",              "-3:00");
    row("a number among times",           false, "1:30",                  "1:00 + ANS",       "1:40",               "1:40");
    row("a number by itself is no line",  false, "1:30",                  "ANS + 1",          "other",              "");
    row("no text, no date-time answer",   true,  "",                      "ANS + 1",          "other",              "");
    row("an answer is not its own part",  true,  "ANS + 1:00",            "ANS",              "1:40",               "1:40");
    row("a year past a literal's digits", true,  "DATE(\"1/1/10000\")",   "ANS + 1",          "fails",              "");
    // clang-format on
}

// New York's clocks go from 2:00 to 3:00 on 3/8/2026 and from 2:00 to 1:00 on 11/1/2026, those of Sao Paulo went
// from 0:00 to 1:00 on 11/4/2018.
void DateTimeLanguageTest::DaylightSaving_data()
{
    const Table row([](const char* zone, const QString& line, const QString& expected) {
        SetTimeZone(zone);
        const QString answer = AnswerOf(line);
        SetTimeZone("UTC0");
        QCOMPARE(answer, expected);
    });
    const char* const newYork = "EST5EDT,M3.2.0,M11.1.0";
    const char* const saoPaulo = "BRT3BRST,M11.1.0/0,M2.3.0/0";
    // clang-format off
    row("a day keeps the time of day",          newYork,  "DATE(\"3/7/2026 12:00 PM\") + 1",     "3/8/2026 12:00 PM");
    row("24 hours do not in spring",            newYork,  "DATE(\"3/7/2026 12:00 PM\") + 24:00", "3/8/2026 1:00 PM");
    row("nor in autumn",                        newYork,  "DATE(\"11/1/2026\") + 24:00",         "11/1/2026 11:00 PM");
    row("dates are whole days apart",           newYork,  "DATE(\"3/9/2026\") - DATE(\"3/8/2026\")", "=1");
    row("stamps are as far apart as time ran",  newYork,  "DATE(\"3/9/2026 12:00 AM\") - DATE(\"3/8/2026\")", "23:00");
    row("a skipped time is none",               newYork,  "DATE(\"3/8/2026 2:30 AM\")",          "fails");
    row("a day onto a skipped time goes on",    newYork,  "DATE(\"3/7/2026 2:30 AM\") + 1",      "3/8/2026 3:30 AM");
    row("a day back onto one goes on as well",  newYork,  "DATE(\"3/9/2026 2:30 AM\") - 1",      "3/8/2026 3:30 AM");
    row("a day without midnight begins at one", saoPaulo, "DATE(\"11/4/2018\") + 2:00",          "11/4/2018 3:00 AM");
    // clang-format on
}

void DateTimeLanguageTest::AnyDepthOnASmallStack_data()
{
    const Table row([](const QString& line, const QString& expected) {
        QString answer;
        const std::unique_ptr<QThread> thread(QThread::create([&] { answer = AnswerOf(line); }));
        thread->setStackSize(256 * 1024);
        thread->start();
        thread->wait();
        QCOMPARE(answer, expected);
    });
    constexpr int depth = 100'000;
    const auto repeated = [](const QString& piece) { return piece.repeated(depth); };
    row("brackets", repeated("(") + "1:30" + repeated(")"), "1:30");
    row("brackets left open", "1:30 + " + repeated("("), "fails");
    row("signs", repeated("-") + "1:30", "1:30");
    row("sums within sums", repeated("1+(") + "0:00" + repeated(")"), "1666:40");
    row("calls", repeated("DATE(") + "\"9/10/2026\"" + repeated(")"), "9/10/2026");
    row("a long line", repeated("0:01+") + "0:00", "1666:40");
    row("a long run of digits", repeated("1") + ":30", "fails");
}

QTEST_GUILESS_MAIN(DateTimeLanguageTest)
#include "DateTimeLanguageTest.moc"
