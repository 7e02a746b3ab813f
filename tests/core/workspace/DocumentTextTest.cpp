#include "core/workspace/DocumentText.h"
#include "../Table.h"

class DocumentTextTest : public QObject {
    Q_OBJECT

private slots:
    void Strict_data();
    void Strict() { CheckRow(); }
    void EveryCodePoint();
    void Decode_data();
    void Decode() { CheckRow(); }
};

// Well-formed byte sequences: RFC 3629, section 4; The Unicode Standard, table 3-7.
void DocumentTextTest::Strict_data()
{
    const Table row(
        [](const QByteArray& hex, bool strict) { QCOMPARE(IsStrictUtf8(QByteArray::fromHex(hex)), strict); });
    // clang-format off
    row("nothing is valid",                     QByteArray(""),             true);
    row("ASCII with its first and last",        QByteArray("00 41 7f"),     true);
    row("a continuation begins nothing",        QByteArray("80"),           false);
    row("nor does its last",                    QByteArray("bf"),           false);
    row("an overlong two",                      QByteArray("c0 80"),        false);
    row("an overlong two of the last ASCII",    QByteArray("c1 bf"),        false);
    row("an overlong three",                    QByteArray("e0 9f bf"),     false);
    row("an overlong four",                     QByteArray("f0 8f bf bf"),  false);
    row("the first surrogate",                  QByteArray("ed a0 80"),     false);
    row("the last surrogate",                   QByteArray("ed bf bf"),     false);
    row("above the last code point",            QByteArray("f4 90 80 80"),  false);
    row("a lead above all",                     QByteArray("f5 80 80 80"),  false);
    row("no lead at all",                       QByteArray("ff"),           false);
    row("two cut short",                        QByteArray("41 c3"),        false);
    row("three cut short",                      QByteArray("e2 82"),        false);
    row("four cut short",                       QByteArray("f0 9f 98"),     false);
    row("a letter in a continuation's place",   QByteArray("c3 41"),        false);
    row("a lead in a continuation's place",     QByteArray("e2 82 c3 a9"),  false);
    row("one continuation too many",            QByteArray("c3 a9 a9"),     false);
    row("the fault is seen at the end too",     QByteArray("c3 a9 41 e9"),  false);
    // clang-format on
}

void DocumentTextTest::EveryCodePoint()
{
    for (char32_t code = 0; code <= 0x10ffff; ++code) {
        if (code >= 0xd800 && code <= 0xdfff)
            continue;
        const QByteArray bytes = QString().append(QChar::fromUcs4(code)).toUtf8();
        QVERIFY2(IsStrictUtf8(bytes), bytes.toHex().constData());
        QVERIFY2(bytes.size() == 1 || !IsStrictUtf8(bytes.chopped(1)), bytes.toHex().constData());
    }
}

void DocumentTextTest::Decode_data()
{
    const Table row(
        [](const QByteArray& hex, const QString& text) { QCOMPARE(DecodeDocument(QByteArray::fromHex(hex)), text); });
    // clang-format off
    row("UTF-8",                                 QByteArray("c3a9 20 f09f9880"), QString::fromUtf8("é 😀"));
    row("a lone accent is Windows-1252",         QByteArray("e9 20"),           QString::fromUtf8("é "));
    row("one bad byte turns the whole file",     QByteArray("c3a9 20 e9"),      QString::fromUtf8("Ã© é"));
    row("the row of punctuation has its signs",  QByteArray("80 85 96 9f ff"),  QString::fromUtf8("€…–Ÿÿ"));
    row("unassigned bytes stay as they are",     QByteArray("81 8d 8f 90 9d"),  QString::fromUtf8("\u0081\u008d\u008f\u0090\u009d"));
    // clang-format on
}

QTEST_APPLESS_MAIN(DocumentTextTest)
#include "DocumentTextTest.moc"
