#include "core/datetime/DateTimeArithmetic.h"

#include <QMap>
#include <QTest>

using namespace Qt::StringLiterals;

class DateTimeArithmeticTest : public QObject {
    Q_OBJECT

private slots:
    void KindOfEachPair_data();
    void KindOfEachPair();
};

// A row for each left kind, in it the kind of the result for each right kind, both in the order of `kinds`.
void DateTimeArithmeticTest::KindOfEachPair_data()
{
    QTest::addColumn<DateTimeOperator>("operation");
    QTest::addColumn<QString>("results");
    // clang-format off
    //                                                    left: N       D       C       A       S       T       I
    QTest::newRow("+") << DateTimeOperator::Add      << QString("NDCAS.. DDCSS.. CC..... AS..... SS..... ....... ......."_L1);
    QTest::newRow("-") << DateTimeOperator::Subtract << QString("ND..... DD..... CCD.... AS.ND.. SS.DD.. ....... ......."_L1);
    QTest::newRow("*") << DateTimeOperator::Multiply << QString("ND..... D...... ....... ....... ....... ....... ......."_L1);
    QTest::newRow("/") << DateTimeOperator::Divide   << QString("N...... D...... ....... ....... ....... ....... ......."_L1);
    // clang-format on
}

void DateTimeArithmeticTest::KindOfEachPair()
{
    QFETCH(DateTimeOperator, operation);
    QFETCH(QString, results);
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
    const QMap<DateTimeKind, char16_t> letters = {{DateTimeKind::Number, u'N'},        {DateTimeKind::Duration, u'D'},
                                                  {DateTimeKind::ClockTime, u'C'},     {DateTimeKind::Date, u'A'},
                                                  {DateTimeKind::DateTimeStamp, u'S'}, {DateTimeKind::Invalid, u'.'}};
    QStringList found;
    for (const DateTimeValue& left : kinds) {
        QString row;
        for (const DateTimeValue& right : kinds)
            row += QChar(letters.value(CombineValues(operation, left, right).kind, u'?'));
        found += row;
    }
    QCOMPARE(found.join(u' '), results);
}

QTEST_APPLESS_MAIN(DateTimeArithmeticTest)
#include "DateTimeArithmeticTest.moc"
