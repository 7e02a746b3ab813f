// Lines that an accident, a pasted text or a malicious sheet can bring. Each must end soon, in an answer or in a word
// of failure, and leave a workspace in which one can go on. How soon is not measured here: what hangs runs into the
// time-out of the test.
#include "core/assist/Suggestions.h"
#include "core/assist/SyntaxHints.h"
#include "core/engine/AnswerFormat.h"
#include "core/engine/Functions.h"
#include "fuzz/Harness.h"

#include <QTest>

namespace {

constexpr int deep = 100'000;
constexpr int megabyte = 1'000'000;

const QString cannotSolve = "-Cannot Solve-";

QString Repeated(const QString& text, int count)
{
    return text.repeated(count);
}

// `core` within `count` openings and as many closings.
QString Nested(const QString& open, const QString& core, const QString& close, int count = deep)
{
    return open.repeated(count) + core + close.repeated(count);
}

// A megabyte of a text over and over.
QString Megabyte(const QString& text)
{
    return text.repeated(megabyte / text.size());
}

// Names that are all different: A0+A1+A2...
QString ManyNames(int count, QChar sign)
{
    QStringList names;
    for (int i = 0; i < count; ++i)
        names.append('A' + QString::number(i) + 'V');
    return names.join(sign);
}

// What a line came to: what it wrote into the pad, else its status. Of a long text the beginning and the length.
QString Outcome(const Submission& submission)
{
    QString text;
    for (const PadRun& run : submission.runs)
        text += run.text;
    text = submission.runs.isEmpty() ? submission.status.value_or(QString()) : text.chopped(1);
    return text.size() <= 60 ? text : text.first(20) + QString("... (%1)").arg(text.size());
}

Calculator Workspace()
{
    Calculator calculator = PredictableCalculator(3);
    calculator.values.variables = {{"X", 2}, {"E", 3}};
    calculator.customFunctions.SetDefinitions({{"SQ", {"SQ", {"A"}, "A*A"}},
                                               {"OCTUPLE", {"OCTUPLE", {"A"}, "A+A+A+A+A+A+A+A"}},
                                               {"PERCENTS", {"PERCENTS", {}, "%1+%2"}}});
    return calculator;
}

void AddRow(const char* name, const QString& line, const QString& outcome)
{
    QTest::newRow(name) << line << outcome;
}

// clang-format off
void AddNesting()
{
    AddRow("brackets",                      Nested("(", "7", ")"),                              "7");
    AddRow("brackets with blanks",          Nested(" ( ", "7", " ) "),                          "7");
    AddRow("brackets around products",      Nested("1(", "7", ")"),                             "7");
    AddRow("brackets that stay open",       Repeated("(", deep) + "7",                          cannotSolve);
    AddRow("brackets that only close",      "7" + Repeated(")", deep),                          cannotSolve);
    AddRow("brackets around nothing",       Nested("(", "", ")"),                               cannotSolve);
    AddRow("brackets of other kinds",       Nested("[{", "7", "}]"),                            "7");
    AddRow("an even number of minus signs", Repeated("-", deep) + "7",                          "7");
    AddRow("an odd number of minus signs",  Repeated("-", deep + 1) + "7",                      "-7");
    AddRow("plus signs",                    Repeated("+ ", deep) + "7",                         "7");
    AddRow("signs without an operand",      Repeated("+-", deep),                               cannotSolve);
    AddRow("minus signs and brackets",      Nested("-(", "7", ")"),                             "7");
    AddRow("powers of one",                 Repeated("1^", deep) + "1",                         "1");
    AddRow("powers of two",                 Repeated("2^", deep) + "2",                         "inf");
    AddRow("powers to the left",            Nested("(", "1.0000001", ")^2", 1000),              "inf");
    AddRow("negative exponents",            Repeated("2^-", deep) + "1",                        "0.641185744504986");
    AddRow("factorials of two",             "2" + Repeated("!", deep),                          "2");
    AddRow("factorials of three",           "3" + Repeated("!", deep),                          cannotSolve);
    AddRow("percent signs",                 "5" + Repeated("%", deep),                          "0");
    AddRow("percent signs and factorials",  "1" + Repeated("!%", deep),                         cannotSolve);
    AddRow("calls of one argument",         Nested("ABS(", "-7", ")"),                          "7");
    AddRow("calls of several arguments",    Nested("MAX(1,", "7", ",2)"),                       "7");
    AddRow("calls that stay open",          Repeated("SIN(", deep),                             cannotSolve);
    AddRow("conversions to another base",   Nested("HEX(", "255", ")"),                         "FF");
    AddRow("calls of a custom function",    Nested("SQ(", "1", ")"),                            cannotSolve);
    AddRow("braces",                        Nested("{", "7", "}"),                              "7");
    AddRow("brackets around a time",        Nested("(", "1:30", ")"),                           "1:30");
    AddRow("signs before a time",           Repeated("-", deep) + "1:30",                       "1:30");
    AddRow("signs before a clock time",     Repeated("-", deep) + "1:30 PM",                    cannotSolve);
    AddRow("dates of dates",                Nested("DATE(", "\"2/29/2000\"", ")"),              "2/29/2000");
    AddRow("hours that stay open",          Repeated("HOUR(", deep),                            cannotSolve);
    AddRow("brackets around a conversion",  Nested("(", "12 IN TO CM", ")"),                    "30.48");
    AddRow("conversions of conversions",    Nested("(", "1", " IN TO IN)", 100),                "1");
    AddRow("too many conversions",          Nested("(", "1", " IN TO IN)", 2000),               cannotSolve);
    AddRow("SIMPLIFY brackets",             "SIMPLIFY " + Nested("(", "Y", ")"),                "Y");
    AddRow("SIMPLIFY minus signs",          "SIMPLIFY " + Repeated("-", deep) + "Y",            "Y");
    AddRow("SIMPLIFY functions",            "SIMPLIFY " + Nested("ABS(", "Y", ")"),             "ABS(ABS(ABS(ABS(ABS(... (500001)");
    AddRow("SIMPLIFY powers",               "SIMPLIFY " + Repeated("Y^", deep) + "Y",           "Y^Y^Y^Y^Y^Y^Y^Y^Y^Y^... (200001)");
    AddRow("SIMPLIFY powers of powers",     "SIMPLIFY " + Nested("(", "Y", ")^2", 2000),        "(Y^89884656743115795... (608)");
    AddRow("SIMPLIFY products of sums",     "SIMPLIFY " + Nested("(B+", "Y", ")*C", 300),      "B*C + B*C^2 + B*C^3 ... (2897)");
    AddRow("SIMPLIFY quotients",            "SIMPLIFY " + Nested("1/(", "Y", ")"),              "1/(1/(1/(1/(1/(1/(1/... (399999)");
    AddRow("SIMPLIFY an open bracket",      "SIMPLIFY " + Repeated("(", deep) + "Y",            "Cannot Simplify");
    AddRow("ISOLATE brackets",              "ISOLATE Y, " + Nested("(", "Y", ")") + "=B",       "Y = B");
    AddRow("ISOLATE minus signs",           "ISOLATE Y, " + Nested("-(", "Y", ")") + "=B",      "Y = B");
    AddRow("ISOLATE roots",                 "ISOLATE Y, " + Nested("SQRT(", "Y", ")") + "=B",   "ISOLATE stopped after too many algebra steps.");
    AddRow("ISOLATE squares",               "ISOLATE Y, " + Nested("(", "Y", "+1)^2", 60) + "=B", "ISOLATE stopped after too many algebra steps.");
    AddRow("ISOLATE quotients",             "ISOLATE Y, " + Nested("1/(", "Y", "+1)", 5000) + "=B", "ISOLATE stopped after too many algebra steps.");
    AddRow("an equation in brackets",       Nested("(", "Y", ")") + "=3",                       "Y = 3");
    AddRow("an equation of signs",          Repeated("-", deep) + "Y=3",                        "Y = 3");
    AddRow("a comparison in brackets",      Nested("(", "1", ")") + "<2",                       "TRUE");
}

void AddMegabytes()
{
    AddRow("digits",                        Megabyte("9"),                                      cannotSolve);
    AddRow("zeros",                         Megabyte("0"),                                      "0");
    AddRow("decimals",                      "0." + Megabyte("3"),                               "0.333333333333333");
    AddRow("points",                        Megabyte("."),                                      cannotSolve);
    AddRow("exponents",                     "1" + Megabyte("e1"),                               cannotSolve);
    AddRow("a long exponent",               "1e" + Megabyte("9"),                               cannotSolve);
    AddRow("a long hexadecimal literal",    "0x" + Megabyte("F"),                               cannotSolve);
    AddRow("blanks",                        Megabyte(" "),                                      cannotSolve);
    AddRow("blanks within",                 "2+" + Megabyte(" ") + "2",                         "4");
    AddRow("letters around a sum",          Megabyte("a") + " 2+2 " + Megabyte("b"),            "4");
    AddRow("a sum",                         Megabyte("1+") + "1",                               "500001");
    AddRow("a quotient",                    Megabyte("1/") + "1",                               "1");
    AddRow("an implied product",            Megabyte("(1)"),                                    "1");
    AddRow("constants side by side",        Megabyte("PI "),                                    "inf");
    AddRow("arguments",                     "SUM(" + Megabyte("1,") + "1)",                     "500001");
    AddRow("arguments to be sorted",        "MEDIAN(" + Megabyte("3,1,2,") + "1)",              "2");
    AddRow("cash flows",                    "IRR(-9," + Megabyte("1,") + "1)",                  "0.111111111111111");
    AddRow("commas",                        "SUM(" + Megabyte(",") + ")",                       cannotSolve);
    AddRow("variables",                     Megabyte("X+") + "X",                               "1000002");
    AddRow("calls of custom functions",     Megabyte("SQ(1)+") + "1",                           cannotSolve);
    AddRow("a long argument",               "SQ(" + Megabyte("1") + ")",                        cannotSolve);
    AddRow("unknown names",                 ManyNames(100'000, '+'),                            "4999950000");
    AddRow("equals signs",                  Megabyte("="),                                      "Cannot Compare");
    AddRow("a chain of equals signs",       Megabyte("1=") + "1",                               "TRUE");
    AddRow("a chain of comparisons",        Megabyte("1<=") + "1",                              "TRUE");
    AddRow("signs of comparison",           Megabyte("<>"),                                     "Cannot Compare");
    AddRow("an assignment",                 "Y = " + Megabyte("1+") + "1",                      "Y = 500001");
    AddRow("an assignment of nothing",      "Y = " + Megabyte(" "),                             "Variable has no value");
    AddRow("a long name",                   Megabyte("Y") + " = 1",                             "YYYYYYYYYYYYYYYYYYYY... (1000004)");
    AddRow("an equation",                   Megabyte("Y+") + "Y=1",                             "Y = 1.999996e-06");
    AddRow("an equation in many unknowns",  ManyNames(100'000, '+') + "=1",                     cannotSolve);
    AddRow("an equation in some unknowns",  ManyNames(900, '+') + "=1",                         "Solve cancelled");
    AddRow("an opening brace over and over", Megabyte("{"),                                     cannotSolve);
    AddRow("quotes",                        Megabyte("\""),                                     cannotSolve);
    AddRow("a date in many quotes",         "DATE(\"" + Megabyte("\"") + ")",                   cannotSolve);
    AddRow("a date of many digits",         "DATE(\"" + Megabyte("1/") + "\")",                 cannotSolve);
    AddRow("a date of blanks",              "DATE(\"" + Megabyte(" ") + "1/1/2000\")",          "1/1/2000");
    AddRow("colons",                        Megabyte(":"),                                      cannotSolve);
    AddRow("a sum of times",                Megabyte("0:01+") + "0:01",                         "3333:21");
    AddRow("hours without end",             Megabyte("9") + ":00",                              cannotSolve);
    AddRow("words of the time",             Megabyte("TODAY "),                                 cannotSolve);
    AddRow("the word TO",                   Megabyte("TO "),                                    cannotSolve);
    AddRow("units without values",          Megabyte("IN TO CM "),                              cannotSolve);
    AddRow("conversions",                   Megabyte("1 IN TO CM + ") + "1",                    cannotSolve);
    AddRow("a long value of a conversion",  Megabyte("1*") + "1 IN TO CM",                      "2.54");
    AddRow("blanks in a conversion",        "1 IN" + Megabyte(" ") + "TO" + Megabyte(" ") + "CM", "2.54");
    AddRow("number words",                  Megabyte("five "),                                  "1000000");
    AddRow("number words in hyphens",       Megabyte("twenty-") + "one",                        "2857141");
    AddRow("hundreds",                      Megabyte("hundred "),                               cannotSolve);
    AddRow("trillions",                     Megabyte("trillion "),                              "1.11111e+17");
    AddRow("points in words",               Megabyte("point "),                                 cannotSolve);
    AddRow("decimals in words",             "point " + Megabyte("five "),                       "0.555555555555556");
    AddRow("negatives",                     Megabyte("negative ") + "1",                        "-1");
    AddRow("operators in words",            Megabyte("1 plus ") + "1",                          "142858");
    AddRow("phrases that are none",         Megabyte("raised to the power "),                   cannotSolve);
    AddRow("phrases over blanks",           "2 raised" + Megabyte(" ") + "to 3",                "8");
    AddRow("SIMPLIFY a sum",                "SIMPLIFY " + Megabyte("Y+") + "Y",                 "Cannot Simplify");
    AddRow("SIMPLIFY a product of names",   "SIMPLIFY " + ManyNames(100'000, '*'),              "A0V*A10000V*A10001V*... (788889)");
    AddRow("SIMPLIFY an equation",          "SIMPLIFY " + ManyNames(50'000, '+') + '=' + ManyNames(50'000, '+'), "0 = 0");
    AddRow("SIMPLIFY equals signs",         "SIMPLIFY " + Megabyte("="),                        "Cannot Simplify");
    AddRow("ISOLATE in a sum",              "ISOLATE A0V, " + ManyNames(20'000, '+') + "=Y",    "ISOLATE stopped after too many algebra steps.");
    AddRow("ISOLATE commas",                "ISOLATE " + Megabyte(","),                         "Use: ISOLATE variabl... (64)");
    AddRow("FRACTION of a sum",             "FRACTION(" + Megabyte("1/2+") + "1/2)",            "250001/2\n\nApproximat... (64)");
    AddRow("a pattern of digits",           "FORMAT = " + Megabyte("0"),                        "Format set to '00000... (1000016)");
    AddRow("a pattern of decimals",         "FORMAT = 0." + Megabyte("0"),                      "Format set to '0.000... (1000018)");
    AddRow("a pattern of commas",           "FORMAT = #" + Megabyte(","),                       "Format set to '#,,,,... (1000017)");
    AddRow("a pattern of sections",         "FORMAT = " + Megabyte(";"),                        "Format set to ';;;;;... (1000016)");
    AddRow("a pattern of words",            "FORMAT = " + Megabyte("word "),                    "Format set to 'word ... (1000015)");
    AddRow("a function of many parameters", "CREATE FUNCTION F(" + ManyNames(100'000, ',') + ") = 1", "F(A0V, A1V, A2V, A3V... (888895)");
    AddRow("a function of many brackets",   "CREATE FUNCTION F(" + Megabyte("(") + ") = 1",     "Use CREATE FUNCTION NAME(parameter, ...) = expression");
    AddRow("a function of a long text",     "CREATE FUNCTION F(A) = " + Megabyte("A+") + "A",   "F(A) = A+A+A+A+A+A+A... (1000008)");
    AddRow("a function to be deleted",      "DELETE FUNCTION " + Megabyte("F"),                 "No custom function n... (1000025)");
    AddRow("help on words",                 "HELP " + Megabyte("sine "),                        "No exact help topic ... (1000441)");
    AddRow("help on letters",               "HELP " + Megabyte("z"),                            "No help topic or des... (1000115)");
    AddRow("help on signs",                 "HELP " + Megabyte("/"),                            "====================... (947)");
    AddRow("a handle of digits",            "HIDE " + Megabyte("9"),                            "Invalid Handle");
    AddRow("handles with a title",          "HANDLE " + Megabyte("z"),                          "Windows handle tools are only available on Windows.");
}

void AddNumbers()
{
    AddRow("an exponent beyond the range",  "1e309",                                            cannotSolve);
    AddRow("an exponent below the range",   "1e-400",                                           cannotSolve);
    AddRow("an exponent beyond integers",   "1e99999999999999999999",                           cannotSolve);
    AddRow("an exponent beyond 32 bits",    "1e2147483648+1e-2147483649",                       cannotSolve);
    AddRow("two exponents",                 "1e1e1",                                            cannotSolve);
    AddRow("an overflow by addition",       "1e308+1e308",                                      "inf");
    AddRow("an overflow by product",        "-1e308*10",                                        "-inf");
    AddRow("an overflow by power",          "1e308^1e308",                                      "inf");
    AddRow("an underflow by power",         "0.5^1e308",                                        "0");
    AddRow("infinity less infinity",        "2^1024-2^1024",                                    "nan");
    AddRow("no real power",                 "(-8)^(1/3)",                                       "nan");
    AddRow("infinity as an argument",       "SIN(2^1024)",                                      cannotSolve);
    AddRow("zero to the power of zero",     "0^0",                                              "1");
    AddRow("zero to a negative power",      "0^-1",                                             "inf");
    AddRow("a division by zero",            "1/(2-2)",                                          cannotSolve);
    AddRow("a division by negative zero",   "1/-0",                                             cannotSolve);
    AddRow("negative zero",                 "-0",                                               "0");
    AddRow("the smallest number",           "5e-324",                                           "0");
    AddRow("the largest factorial",         "170!",                                             "7.25741561530799e+306");
    AddRow("a factorial too large",         "171!",                                             cannotSolve);
    AddRow("a tower of factorials",         "3!!!",                                             cannotSolve);
    AddRow("a tower of powers",             "9^9^9^9^9",                                        "inf");
    AddRow("factorials to the power",       "170!^170!",                                        "inf");
    AddRow("a quotient of factorials",      "170!/169!",                                        "170");
    AddRow("the factorial of infinity",     "(2^1024)!",                                        cannotSolve);
    AddRow("decimals of infinity",          "ROUND(1e308, 1e308)",                              cannotSolve);
    AddRow("a shift too far",               "SHL(1, 1e308)",                                    cannotSolve);
    AddRow("an integer too large",          "HEX(2^53)",                                        cannotSolve);
    AddRow("a common divisor of infinity",  "GCD(2^1023, 3)",                                   cannotSolve);
    AddRow("a payment over no periods",     "PMT(0.1, 1e-320, 1e308)",                          cannotSolve);
    AddRow("a payment over many periods",   "NPER(1e-300, 1e300, 1e308)",                       "100000000");
    AddRow("a random number of no range",   "RANDINT(9007199254740991, -9007199254740991)",     cannotSolve);
    AddRow("a percentile beyond all",       "PERCENTILE(1e308, 1, 2)",                          cannotSolve);
    AddRow("a fraction of the largest",     "FRACTION(1.7976931348623157e308)",                 cannotSolve);
    AddRow("a fraction of infinity",        "FRACTION(2^1024)",                                 cannotSolve);
    AddRow("a fraction of the smallest",    "FRACTION(5e-324)",                                 cannotSolve);
    AddRow("a function that fans out",      Nested("OCTUPLE(", "1", ")", 3),                      "512");
    AddRow("a function that fans out too far", Nested("OCTUPLE(", "1", ")", 60),                  cannotSolve);
    AddRow("a function in a circle",        "CREATE FUNCTION SQ(A) = OCTUPLE(SQ(A))",             "Custom functions cannot call themselves recursively");
    AddRow("an equation without a number",  "Y+1=Y+2^1024",                                     "Solve cancelled");
    AddRow("an equation of a pole",         "1/Y=0",                                            "Solve cancelled");
    AddRow("an equation of a tower",        "Y^Y^Y=1e308",                                      "Solve cancelled");
    AddRow("an equation of factorials",     "Y!=170!",                                          "Y = 170");
    AddRow("an equation of steps",          "FLOOR(Y)=0.5",                                     "Solve cancelled");
    AddRow("an equation of chance",         "RANDOM()=Y",                                       "Solve cancelled");
}

void AddCharacters()
{
    AddRow("a NUL within",                  QString("2") + QChar(0) + "+2",                     "4");
    AddRow("control characters",            "2\x01\x02\x1b[31m+\x7f 2",                         "233");
    AddRow("NULs",                          QString(megabyte, QChar(0)),                        cannotSolve);
    AddRow("a lone high surrogate",         QString("2") + QChar(0xd83d) + "+2",                "4");
    AddRow("a lone low surrogate",          QString("2+2") + QChar(0xde00),                     "4");
    AddRow("surrogates the wrong way round", QString(QChar(0xde00)) + QChar(0xd83d) + " 2+2",   "4");
    AddRow("lone surrogates",               QString(megabyte, QChar(0xd800)),                   cannotSolve);
    AddRow("a surrogate in help",           QString("HELP ") + QChar(0xd800),                   "====================... (947)");
    AddRow("a surrogate in SIMPLIFY",       QString("SIMPLIFY ") + QChar(0xd800),               "Cannot Simplify");
    AddRow("text from right to left",       u"2+2 \u202e\u05e9\u05dc\u05d5\u05dd"_qs,           "4");
    AddRow("marks of direction",            u"\u200e2\u200f+\u202a2\u202c"_qs,                  "4");
    AddRow("zero-width characters",         u"2\u200b+\u200d2\ufeff"_qs,                        "4");
    AddRow("a combining mark",              u"2\u0301+2"_qs,                                    "4");
    AddRow("combining marks",               "2" + QString(megabyte, QChar(0x301)) + "+2",       "4");
    AddRow("line and paragraph separators", u"2\u2028+\u20292"_qs,                              "4");
    AddRow("spaces of all kinds",           u"2\u00a0+\u2003\u3000\u00852"_qs,                  "4");
    AddRow("digits of other scripts",       u"\u0662+\uff12"_qs,                                cannotSolve);
    AddRow("digits beyond the first plane", u"\U0001d7d0+2"_qs,                                 "2");
    AddRow("letters that grow in upper case", QString(megabyte, QChar(0xdf)) + "+2",            "2");
    AddRow("a letter that becomes two",     u"\u00df=1"_qs,                                     cannotSolve);
    AddRow("an emoji",                      u"\U0001f468\u200d\U0001f469\u200d\U0001f467 2+2"_qs, "4");
    AddRow("noncharacters",                 u"\uffff\ufdd0 2+2"_qs,                             "4");
    AddRow("a placeholder",                 "%1 + 2",                                           cannotSolve);
    AddRow("placeholders of a function",    "PERCENTS()",                                       cannotSolve);
    AddRow("placeholders of another language", "%s%n%x 2+2",                                   cannotSolve);
    AddRow("a placeholder as a pattern",    "FORMAT = %1 %2 %L1",                               "Format set to '%1 %2 %L1'");
    AddRow("a placeholder in help",         "HELP %1 %2",                                       "No help topic or des... (120)");
    AddRow("a placeholder as a handle",     "HIDE %1",                                          "0");
    AddRow("a placeholder to isolate",      "ISOLATE %1, %1 = 2",                               "ISOLATE needs one valid variable name before the comma.");
    AddRow("bold text",                     "<b>2</b>",                                         "Cannot Compare");
    AddRow("a link",                        "<a href=\"file:///\">2+2</a>",                     "Cannot Compare");
    AddRow("a picture",                     "SIMPLIFY <img src=\"x\">",                         "Cannot Simplify");
    AddRow("entities",                      "&lt;2+2&gt;",                                      "4");
    AddRow("a pattern of rich text",        "FORMAT = <b>0</b>",                                "Format set to '<b>0</b>'");
    AddRow("a regular expression",          "HELP (a+)+$ .* [",                                 "No help topic or des... (126)");
    AddRow("a regular expression of units", "5 .* TO (a|a)*$",                                  cannotSolve);
    AddRow("a shell's signs",               "$(2+2) `2` ; | & \\",                              cannotSolve);
    AddRow("a path",                        "../../../2",                                       cannotSolve);
    AddRow("a formula of a spreadsheet",    "=2+2",                                             "Cannot Compare");
}

void AddDates()
{
    AddRow("the day after 9999",            "DATE(\"12/31/9999\")+1",                           "1/1/10000");
    AddRow("the day before year one",       "DATE(\"1/1/0001\")-1",                             "12/31/-0001");
    AddRow("the year zero",                 "DATE(\"1/1/0000\")",                               cannotSolve);
    AddRow("a leap day that is none",       "DATE(\"2/29/1900\")",                              cannotSolve);
    AddRow("a leap day of 2000",            "DATE(\"2/29/2000\")+366",                          "3/1/2001");
    AddRow("the calendar's end",            "DATE(\"1/1/2000\")+9e18",                          cannotSolve);
    AddRow("days beyond 64 bits",           "DATE(\"1/1/2000\")+1e308",                         cannotSolve);
    AddRow("days that are no number",       "DATE(\"1/1/2000\")+0/1*1:00",                      "1/1/2000 12:00 AM");
    AddRow("millions of years",             "DATE(\"1/1/2000\")+700000000000",                  "11/22/1916536904");
    AddRow("millions of years and a time",  "DATE(\"1/1/2000 1:00 AM\")+700000000000",          cannotSolve);
    AddRow("the most hours",                "2562047788015215:30:07",                           "2562047788015215:30:07");
    AddRow("one second more",               "2562047788015215:30:08",                           cannotSolve);
    AddRow("one hour more",                 "2562047788015216:00",                              cannotSolve);
    AddRow("hours beyond 64 bits",          "99999999999999999999:00",                          cannotSolve);
    AddRow("the fewest seconds",            "-2562047788015215:30:07-1",                        "-2562047788015215:30:08");
    AddRow("one second less",               "-2562047788015215:30:07-2",                        cannotSolve);
    AddRow("a product beyond 64 bits",      "1:30*1e308",                                       cannotSolve);
    AddRow("a quotient beyond 64 bits",     "1:30/1e-308",                                      cannotSolve);
    AddRow("a time over zero",              "1:30/0",                                           cannotSolve);
    AddRow("a clock time far ahead",        "1:30 PM+2562047788015210:00",                      cannotSolve);
    AddRow("a stamp far ahead",             "NOW+2562047788015215:00",                          cannotSolve);
    AddRow("an hour that does not exist",   "DATE(\"3/8/2026 2:30 AM\")",                       cannotSolve);
    AddRow("the age of an ancestor",        "AGE(\"1/1/0001\")",                                "2025 years, 10 months, 14 days");
    AddRow("the age of a descendant",       "AGE(\"1/1/9999\")",                                cannotSolve);
    AddRow("the days of the calendar",      "DAYS(\"1/1/0001\", \"12/31/9999\")",               "3652058");
    AddRow("a field of a number",           "HOUR(1e308)+YEAR(1)",                              cannotSolve);
    AddRow("a date that stays open",        "DATE(\"1/1/2000",                                  cannotSolve);
    AddRow("a date of separators",          "DATE(\"1/-.1/1/2000\")",                           cannotSolve);
    AddRow("a month of many digits",        "DATE(\"000000000001/1/2000\")",                    cannotSolve);
    AddRow("a time of many parts",          "1:30:30:30",                                       cannotSolve);
}
// clang-format on

} // namespace

class HostileInputTest : public QObject {
    Q_OBJECT

private slots:
    void Line_data();
    void Line();
    void CirclesFromASettingsFile();
    void EveryFunctionNests();
};

void HostileInputTest::Line_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("outcome");
    AddNesting();
    AddMegabytes();
    AddNumbers();
    AddCharacters();
    AddDates();
}

void HostileInputTest::Line()
{
    QFETCH(QString, line);
    Calculator calculator = Workspace();
    PreviewChangingNothing(calculator, line);
    SuggestionsFor(calculator, line, {});
    SyntaxHintFor(calculator, line);
    QTEST(Outcome(SubmitLine(calculator, line, StopSearch)), "outcome");
    calculator.values.formatPattern.clear();
    QCOMPARE(Outcome(SubmitLine(calculator, "2+2", StopSearch)), QString("4"));
}

// The command makes none, but a file can hold anything.
void HostileInputTest::CirclesFromASettingsFile()
{
    Calculator calculator = Workspace();
    calculator.customFunctions.SetDefinitions({{"PING", {"PING", {"A"}, "PONG(A)"}},
                                               {"PONG", {"PONG", {"A"}, "PING(A)"}},
                                               {"GROW", {"GROW", {"A"}, "GROW(A+A)*GROW(A)"}},
                                               {"FORK", {"FORK", {}, "FORK()+FORK()"}}});
    for (const QString line : {"PING(1)", "PONG(PING(1))", "GROW(1)", "FORK()", "FORK()=Y", "FORK()<1"}) {
        PreviewChangingNothing(calculator, line);
        const QString outcome = Outcome(SubmitLine(calculator, line, StopSearch));
        QVERIFY2(outcome == cannotSolve || outcome == "Cannot Compare", qPrintable(line + " -> " + outcome));
    }
    QCOMPARE(Outcome(SubmitLine(calculator, "2+2", StopSearch)), QString("4"));
}

// What a function gives of what it gives, and so on, is what its nested calls give.
void HostileInputTest::EveryFunctionNests()
{
    constexpr int depth = 20'000;
    for (const FunctionLibrary library : FunctionLibraries()) {
        for (const FunctionRow& row : library) {
            if (row.drawn)
                continue;
            Value expected = 0.5;
            for (int i = 0; i < depth && expected; ++i)
                expected = CallFunction(row, {&*expected, 1}, GlobalRandomBits);
            const QString text = Nested(row.name + '(', "0.5", ")", depth);
            const std::optional<double> value = EvaluateText(text, {}, GlobalRandomBits);
            QVERIFY2(value.has_value() == expected.has_value() && (!value || *value == *expected), row.name.data());
        }
    }
}

QTEST_APPLESS_MAIN(HostileInputTest)
#include "HostileInputTest.moc"
