#include "core/workspace/LogBook.h"
#include "../Table.h"

#include <QHash>
#include <QRegularExpression>

#include <algorithm>
#include <functional>
#include <random>

namespace {

QByteArray Header(const QByteArray& text)
{
    return QByteArray(20, '-') + text + QByteArray(20, '-') + "\n";
}

// The days as "date: text", each line feed as "|" and each header as "@".
QStringList Days(const QByteArray& log)
{
    static const QRegularExpression header("-{20}(Su|Mo|Tu|We|Th|Fr|Sa)[^\n]*-{20}\r?\n");
    QStringList days;
    for (const LogDay& day : ReadLogDays(log)) {
        const QString text = QString(day.text).replace(header, "@").replace('\n', '|');
        days << day.date.toString(Qt::ISODate) + ": " + text;
    }
    return days;
}

// The days as one pattern over the decoded log gives them.
QStringList DaysByPattern(const QByteArray& log)
{
    static const QRegularExpression header("^-{20}(.*)-{20}\r?\n", QRegularExpression::MultilineOption);
    const QString text = QString::fromUtf8(log);
    QList<QRegularExpressionMatch> headers;
    for (const QRegularExpressionMatch& match : header.globalMatch(text))
        headers << match;
    QHash<QDate, QString> textOfDay;
    for (qsizetype i = 0; i < headers.size(); ++i) {
        const QDate date = QDateTime::fromString(headers[i].captured(1).trimmed(), Qt::TextDate).date();
        const qsizetype from = headers[i].capturedStart();
        const qsizetype end = i + 1 < headers.size() ? headers[i + 1].capturedStart() : text.size();
        if (date.isValid())
            textOfDay[date] += text.sliced(from, end - from);
    }
    QList<QDate> dates = textOfDay.keys();
    std::sort(dates.begin(), dates.end(), std::greater<>());
    QStringList days;
    for (const QDate& date : dates)
        days << date.toString(Qt::ISODate) + "\n" + textOfDay[date];
    return days;
}

QStringList DaysByScan(const QByteArray& log)
{
    QStringList days;
    for (const LogDay& day : ReadLogDays(log))
        days << day.date.toString(Qt::ISODate) + "\n" + day.text;
    return days;
}

const QByteArray monday = Header("Mon Nov 16 05:33:44 2026");
const QByteArray tuesday = Header("Tue Nov 17 23:59:59 2026");

} // namespace

class LogBookTest : public QObject {
    Q_OBJECT

public:
    // Month and day names are those of the log, not those of the user's language; and there are hours that the user's
    // clock skips, but not that of the place where the log was written.
    static void initMain()
    {
        qputenv("LC_ALL", "tr_TR.UTF-8");
        qputenv("TZ", "Europe/Berlin");
    }

private slots:
    void Written();
    void Read_data();
    void Read() { CheckRow(); }
    void SameAsThePattern();
    void CutAnywhere();
    void OneLongLine();
};

void LogBookTest::Written()
{
    QCOMPARE(LogEntry(QDateTime(QDate(2026, 11, 5), QTime(5, 3, 4)), QString::fromUtf8("√2\n=1.41\n")),
             QString::fromUtf8("--------------------Thu Nov 5 05:03:04 2026--------------------\n√2\n=1.41\n\n"));
    for (QDate date(2024, 1, 1); date < QDate(2025, 1, 1); date = date.addDays(1)) {
        const QList<LogDay> days = ReadLogDays(LogEntry(date.endOfDay(), "1").toUtf8());
        QCOMPARE(days.size(), 1);
        QCOMPARE(days.first().date, date);
    }
}

void LogBookTest::Read_data()
{
    const Table row([](const QByteArray& log, const QStringList& days) { QCOMPARE(Days(log), days); });
    const QByteArray dawn = Header("Mon Nov 16 01:00:00 2026");
    const QByteArray padded = Header("  Mon Nov 16 05:33:44 2026 ");
    const QString cut = QString::fromLatin1(tuesday.chopped(1));
    const QChar unknown = QChar::ReplacementCharacter;
    const QStringList both{"2026-11-17: @b|", "2026-11-16: @a|"};
    // clang-format off
    row("nothing",                          QByteArray(),                                       QStringList());
    row("the newest day first",             monday + "a\n" + tuesday + "b\n",                   both);
    row("whatever their order in the log",  tuesday + "b\n" + monday + "a\n",                   both);
    row("sessions of a day in file order",  monday + "a\n" + dawn + "b\n",                      QStringList{"2026-11-16: @a|@b|"});
    row("also with another day between",    monday + "a\n" + tuesday + "b\n" + dawn + "c\n",    QStringList{"2026-11-17: @b|", "2026-11-16: @a|@c|"});
    row("an empty pad",                     monday + "\n" + tuesday,                            QStringList{"2026-11-17: @", "2026-11-16: @|"});
    row("text before the first header",     "lost\n" + monday + "a\n",                          QStringList{"2026-11-16: @a|"});
    row("a header that is no date",         monday + "a\n" + Header("x") + "lost\n" + dawn + "b\n", QStringList{"2026-11-16: @a|@b|"});
    row("a day that does not exist",        monday + "a\n" + Header("Mon Feb 30 05:33:44 2026") + "lost\n", QStringList{"2026-11-16: @a|"});
    row("an hour that does not exist",      monday + "a\n" + Header("Mon Nov 16 24:00:00 2026") + "lost\n", QStringList{"2026-11-16: @a|"});
    row("a minute that is no number",       monday + "a\n" + Header("Mon Nov 16 05:3/:44 2026") + Header("Mon Nov 16 05:x3:44 2026") + "lost\n", QStringList{"2026-11-16: @a|"});
    row("other marks in the time",          monday + "a\n" + Header("Mon Nov 16 05.33:44 2026") + Header("Mon Nov 16 05:33.44 2026") + "lost\n", QStringList{"2026-11-16: @a|"});
    row("an hour that the clock skips here", Header("Sun Mar 29 02:30:00 2026") + "a\n",        QStringList{"2026-03-29: @a|"});
    row("a name in another language",       Header("Pzt Kas 16 05:33:44 2026") + "lost\n",      QStringList());
    row("hyphens alone",                    monday + QByteArray(60, '-') + "\nlost\n",          QStringList{"2026-11-16: @"});
    row("too few hyphens are text",         monday + QByteArray(39, '-') + "\n",                QStringList{"2026-11-16: @" + QString(39, '-') + "|"});
    row("so is a header within a line",     monday + " " + tuesday,                             QStringList{"2026-11-16: @ @"});
    row("and one with text behind it",      monday + tuesday.chopped(1) + "a\n",                QStringList{"2026-11-16: @" + cut + "a|"});
    row("and one that was cut short",       monday + tuesday.chopped(1),                        QStringList{"2026-11-16: @" + cut});
    row("line ends of another system",      monday.chopped(1) + "\r\na\r\n",                    QStringList{"2026-11-16: @a\r|"});
    row("blanks around the time",           padded + "a\n",      QStringList{QString("2026-11-16: ") + QString(padded).replace('\n', '|') + "a|"});
    row("a byte order mark",                "\xef\xbb\xbf" + monday + "a\n",                    QStringList{"2026-11-16: @a|"});
    row("no UTF-8, and a character of 0",   monday + QByteArray("\xff\0\xe2\x82\n", 5),         QStringList{"2026-11-16: @" + unknown + QChar(0) + unknown + unknown + "|"});
    // clang-format on
}

void LogBookTest::SameAsThePattern()
{
    const QByteArray rule(20, '-');
    // clang-format off
    const QList<QByteArray> pieces{
        monday, tuesday, rule, "-", "\n", "\r", "\r\n", "Mon Nov 16 ", "2026", "05:33:44", "05:60:44", " ",
        "\xc3\xa4", "\xff", "\xe2\x82", "\xe2\x80\xa8", "\xc2\x85", "\f", QByteArray(1, 0), "a", rule + "\n",
        monday.chopped(1) + "\r\n", "Sun Nov 15 05:33:44 2026"};
    // clang-format on
    std::mt19937 random(1);
    int found = 0;
    for (int round = 0; round < 20000; ++round) {
        QByteArray log = round % 2 == 0 ? monday : QByteArray();
        for (unsigned left = random() % 20; left > 0; --left)
            log += pieces[static_cast<qsizetype>(random() % static_cast<unsigned>(pieces.size()))];
        const QStringList days = DaysByPattern(log);
        QCOMPARE(DaysByScan(log), days);
        found += static_cast<int>(days.size());
    }
    QVERIFY(found > 10000);
}

void LogBookTest::CutAnywhere()
{
    const QList<QByteArray> entries{monday + "a\n\xe2\x88\x9a\n", tuesday + "\n", monday + "b\nc\n"};
    const QByteArray log = entries.join();
    for (qsizetype cut = 0; cut <= log.size(); ++cut) {
        const QString all = DaysByScan(log.first(cut)).join("");
        qsizetype end = 0;
        for (const QByteArray& entry : entries) {
            end += entry.size();
            QVERIFY2(end > cut || all.contains(QString::fromUtf8(entry)), QByteArray::number(cut).constData());
        }
        QCOMPARE(DaysByScan(log.first(cut)), DaysByPattern(log.first(cut)));
    }
}

void LogBookTest::OneLongLine()
{
    constexpr qsizetype size = 5'000'000;
    const QByteArray text(size, 'x');
    const QByteArray hyphens(size, '-');
    const QByteArray words = QByteArray("x ").repeated(size / 2);
    for (const QByteArray& line : {text, hyphens, words, Header(hyphens).chopped(1), Header(words).chopped(1)}) {
        const QByteArray entry = monday + line;
        const QString day = DaysByScan(entry).value(0);
        QVERIFY(day == QString("2026-11-16\n") + entry);
    }
    QVERIFY(ReadLogDays(Header(hyphens)).isEmpty());
    QVERIFY(ReadLogDays(Header(words)).isEmpty());
}

QTEST_GUILESS_MAIN(LogBookTest)
#include "LogBookTest.moc"
