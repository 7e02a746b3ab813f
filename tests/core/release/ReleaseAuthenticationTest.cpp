#include "core/release/ReleaseAuthentication.h"
#include "../Table.h"

#include "SignedRelease.h"

#include <QJsonArray>

#include <algorithm>

using namespace ReleaseDesk;

namespace {

// Fields whose signature begins with a zero digit: read as hexadecimal, it is the same number without it.
QJsonObject FieldsWithZeroDigit()
{
    QJsonObject fields = ReleaseFields();
    for (int i = 0; !SignatureOf(fields).startsWith('0'); ++i)
        fields.insert("message", QString::number(i));
    return fields;
}

} // namespace

class ReleaseAuthenticationTest : public QObject {
    Q_OBJECT

private slots:
    void KnownAnswer();
    void Layout_data();
    void Layout() { CheckRow(); }
    void SignatureText_data();
    void SignatureText() { CheckRow(); }
};

// The same bytes signed by Python's json and hmac modules.
void ReleaseAuthenticationTest::KnownAnswer()
{
    const QJsonObject description{{"productId", "quellbrook-desktop"},
                                  {"signature", "of no account"},
                                  {"message", "5 < 7 & \"é\" \\ / 😀\n\u007f\u0001"},
                                  {"currentVersion", "2.0.0"}};
    const QByteArray key = QByteArray::fromHex("000102030405060708090a0b0c0d0e0f101112131415161718191a1b1c1d1e1f");
    QCOMPARE(CanonicalForm(description), QByteArray(R"({"currentVersion":"2.0.0","message":)"
                                                    "\"5 < 7 & \\\"é\\\" \\\\ / 😀\\n\x7f\\u0001\""
                                                    R"(,"productId":"quellbrook-desktop"})"));
    QCOMPARE(ReleaseSignature(description, key),
             QByteArray("9f7dc4a153c782a37f6f9831c42a22e4366de82b8453d24d268a768fa6dbf495"));
    QCOMPARE(ReleaseKey().size(), 32);
}

void ReleaseAuthenticationTest::Layout_data()
{
    const Table row([](const QByteArray& json, bool valid) { QCOMPARE(VerifyReleaseJsonAuthentication(json), valid); });
    const QJsonObject fields = ReleaseFields({{"message", "Why? é"}});
    const QByteArray json = Signed(fields);
    QByteArray reordered = "{";
    QStringList keys = fields.keys();
    std::ranges::reverse(keys);
    for (const QString& key : keys)
        reordered += "\n\t\"" + key.toUtf8() + "\" :\r\n\"" + fields.value(key).toString().toUtf8() + "\" , ";
    reordered += "\"signature\":\"" + SignatureOf(fields) + "\"}\n\n";
    // clang-format off
    row("as it was written",                  json,                                                 true);
    row("without blanks",                     QJsonDocument::fromJson(json).toJson(QJsonDocument::Compact), true);
    row("keys in another order, more blanks", reordered,                                            true);
    row("a letter spelled by its number",     QByteArray(json).replace("Why", "\\u0057hy"),         true);
    row("another letter",                     QByteArray(json).replace("Why", "why"),               false);
    row("a blank within a value",             QByteArray(json).replace("Why", " Why"),              false);
    row("another key",                        QByteArray(json).replace("message", "Message"),       false);
    row("values that change places",          QByteArray(json).replace("$29", "x").replace("$15", "$29").replace("x", "$15"), false);
    row("half a surrogate pair is no '?'",    QByteArray(json).replace("Why?", "Why\\ud800"),       false);
    row("nor is one in a key",                Signed(ReleaseFields({{"?", ""}})).replace("\"?\"", "\"\\udc00\""), false);
    row("an array",                           "[" + json + "]",                                     false);
    row("nothing",                            QByteArray(),                                         false);
    // clang-format on
}

void ReleaseAuthenticationTest::SignatureText_data()
{
    const Table row([](const QByteArray& json, bool valid) { QCOMPARE(VerifyReleaseJsonAuthentication(json), valid); });
    const QJsonObject fields = FieldsWithZeroDigit();
    const QString good = QString::fromLatin1(SignatureOf(fields));
    const QString rest = good.mid(1);
    QJsonObject listed = fields;
    listed.insert("signature", QJsonArray{good});
    const QString changed = rest.chopped(1) + (rest.endsWith('7') ? '8' : '7');
    // clang-format off
    row("in lower case",                  WithSignature(fields, good),                       true);
    row("in upper case",                  WithSignature(fields, good.toUpper()),             true);
    row("its last digit changed",         WithSignature(fields, "0" + changed),              false);
    row("its first digit changed",        WithSignature(fields, "8" + rest),                 false);
    row("63 digits",                      WithSignature(fields, rest),                       false);
    row("65 digits",                      WithSignature(fields, "0" + good),                 false);
    row("a stray character for a zero",   WithSignature(fields, "z" + rest),                 false);
    row("a blank for a zero",             WithSignature(fields, " " + rest),                 false);
    row("a zero of another script",       WithSignature(fields, QString::fromUtf8("０") + rest), false);
    row("a blank behind it",              WithSignature(fields, good + " "),                 false);
    row("empty",                          WithSignature(fields, ""),                         false);
    row("none",                           QJsonDocument(fields).toJson(),                    false);
    row("a list of it",                   QJsonDocument(listed).toJson(),                     false);
    row("under another key",              WithSignature(fields, QString(ReleaseSignature(fields, QByteArray(32, 'k')))), false);
    // clang-format on
}

QTEST_APPLESS_MAIN(ReleaseAuthenticationTest)
#include "ReleaseAuthenticationTest.moc"
