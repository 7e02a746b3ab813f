#include "core/datetime/DateTimeArithmetic.h"
#include "../Table.h"

#include <QMap>

using namespace Qt::StringLiterals;

class DateTimeArithmeticTest : public QObject {
    Q_OBJECT

private slots:
    void KindOfEachPair_data();
    void KindOfEachPair() { CheckRow(); }
};

// A row for each left kind, in it the kind of the result for each right kind, both in the order of `kinds`.
void DateTimeArithmeticTest::KindOfEachPair_data()
{
    const Table row([](DateTimeOperator operation, const QString& results) {
        const QDate day(2026, 9, 10);
        const QList<DateTimeValue> kinds = {
            MakeNumberValue(2),
            MakeTimeValue(DateTimeKind::Duration, 5400, false),
            MakeTimeValue(DateTimeKind::ClockTime, 49980, false),
            MakeDateValue(day),
            MakeStampValue(day.startOfDay(), false),
            MakeTextValue(u"Thursday"_s),
            DateTimeValue(),
        };
        const QMap<DateTimeKind, char16_t> letters = {
            {DateTimeKind::Number, u'N'}, {DateTimeKind::Duration, u'D'},      {DateTimeKind::ClockTime, u'C'},
            {DateTimeKind::Date, u'A'},   {DateTimeKind::DateTimeStamp, u'S'}, {DateTimeKind::Invalid, u'.'}};
        QStringList found;
        for (const DateTimeValue& left : kinds) {
            QString kindsOfResult;
            for (const DateTimeValue& right : kinds)
                kindsOfResult += QChar(letters.value(CombineValues(operation, left, right).kind, u'?'));
            found += kindsOfResult;
        }
        QCOMPARE(found.join(u' '), results);
    });
    // clang-format off
    //                                                    left: N       D       C       A       S       T       I
    row("+", DateTimeOperator::Add,      QString("NDCAS.. DDCSS.. CC..... AS..... SS..... ....... ......."_L1));
    row("-", DateTimeOperator::Subtract, QString("ND..... DD..... CCD.... AS.ND.. SS.DD.. ....... ......."_L1));
    row("*", DateTimeOperator::Multiply, QString("ND..... D...... ....... ....... ....... ....... ......."_L1));
    row("/", DateTimeOperator::Divide,   QString("N...... D...... ....... ....... ....... ....... ......."_L1));
    // clang-format on
}

QTEST_APPLESS_MAIN(DateTimeArithmeticTest)
#include "DateTimeArithmeticTest.moc"
