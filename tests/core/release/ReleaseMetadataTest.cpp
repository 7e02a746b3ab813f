#include "core/release/ReleaseMetadata.h"
#include "../Table.h"

#include "SignedRelease.h"
#include "core/release/ReleaseProduct.h"

#include <QJsonArray>

using namespace ReleaseDesk;

namespace {

const QStringList urlKeys = {"purchaseUrl", "upgradeUrl", "downloadUrl", "detailsUrl"};

QByteArray Nested(qsizetype depth)
{
    return QByteArray(depth, '[') + QByteArray(depth, ']');
}

} // namespace

class ReleaseMetadataTest : public QObject {
    Q_OBJECT

private slots:
    void init() { Initialize("quellbrook-desktop", "Quellbrook Desktop", "1.0.0"); }
    void Fields();
    void Result_data();
    void Result() { CheckRow(); }
    void Url_data();
    void Url() { CheckRow(); }
    void Uninitialized();
    void RepeatedKeyCountsOnceAsSigned();
    void ResultTexts();
    void Dismissal();
};

void ReleaseMetadataTest::Fields()
{
    ReleaseMetadata metadata;
    const QJsonObject fields = ReleaseFields({{"currentVersion", " 12.0.345\n"}, {"message", "\t<b>é</b> 😀 "}});
    QCOMPARE(ParseReleaseMetadata(Signed(fields), metadata), ReleaseMetadataResult::Success);
    QCOMPARE(metadata.productId, "quellbrook-desktop");
    QCOMPARE(metadata.currentVersion, "12.0.345");
    QCOMPARE(metadata.purchasePrice, "$29");
    QCOMPARE(metadata.purchaseUrl, "https://example.org/buy");
    QCOMPARE(metadata.upgradePrice, "$15");
    QCOMPARE(metadata.upgradeUrl, "https://example.org/upgrade");
    QCOMPARE(metadata.downloadUrl, "https://example.org/download");
    QCOMPARE(metadata.detailsUrl, "https://example.org/details");
    QCOMPARE(metadata.message, "<b>é</b> 😀");
    QCOMPARE(metadata.signature.toLatin1(), SignatureOf(fields));
    QCOMPARE(QList({metadata.majorVersion, metadata.minorVersion, metadata.patchVersion}), QList({12, 0, 345}));

    QCOMPARE(ParseReleaseMetadata("{}", metadata), ReleaseMetadataResult::AuthenticationFailed);
    QVERIFY(metadata.currentVersion.isEmpty() && metadata.majorVersion == 0);
}

void ReleaseMetadataTest::Result_data()
{
    const Table row([](const QByteArray& json, int result) {
        ReleaseMetadata metadata;
        QCOMPARE(static_cast<int>(ParseReleaseMetadata(json, metadata)), result);
    });
    const QByteArray good = Signed(ReleaseFields());
    // clang-format off
    row("all fields",                          good,                                                     0);
    row("a byte order mark may stand before",  "\xef\xbb\xbf" + good,                                    0);
    row("nothing",                             QByteArray(),                                             2);
    row("a word",                              QByteArray("release"),                                    2);
    row("an array",                            "[" + good + "]",                                         2);
    row("a string",                            QByteArray("\"productId\""),                              2);
    row("cut short",                           good.chopped(2),                                          2);
    row("something behind it",                 good + "{}",                                              2);
    row("bytes that are no UTF-8",             QByteArray(good).replace("$29", "\xff\xfe"),              2);
    row("too deep",                            Nested(200000),                                           2);
    row("too deep in a field",                 QByteArray(good).replace("\"$29\"", Nested(5000)),        2);
    row("too big a number",                    QByteArray(good).replace("\"$29\"", "1e999999"),          2);
    row("no fields, no signature",             QByteArray("{}"),                                         6);
    row("no signature",                        QJsonDocument(ReleaseFields()).toJson(),                  6);
    row("a changed value",                     QByteArray(good).replace("$15", "$16"),                   6);
    row("the signature comes before the keys", QByteArray(good).replace("{", "{\"extra\": \"\","),       6);
    row("and before the product",              QByteArray(good).replace("desktop", "phone"),             6);
    row("one key too many",                    Signed(ReleaseFields({{"extra", ""}})),                   4);
    row("deep in one too many",                Signed(ReleaseFields({{"a", QJsonArray{QJsonObject{{"b", 1.5}}}}})), 4);
    row("a key in another case is another",    Signed(Without(ReleaseFields({{"Message", ""}}), "message")), 4);
    row("other keys come before missing ones", Signed({{"extra", ""}}),                                  4);
    row("missing ones before the product",     Signed(Without(ReleaseFields({{"productId", "x"}}), "detailsUrl")), 3);
    row("a message that is missing",           Signed(Without(ReleaseFields(), "message")),              3);
    row("a message that is none",              Signed(ReleaseFields({{"message", QJsonValue()}})),       3);
    row("a message may be blank",              Signed(ReleaseFields({{"message", "  "}})),               0);
    row("another product",                     Signed(ReleaseFields({{"productId", "quellbrook"}})),     5);
    row("a product in another case",           Signed(ReleaseFields({{"productId", "Quellbrook-Desktop"}})), 5);
    row("blanks around the product",           Signed(ReleaseFields({{"productId", " quellbrook-desktop "}})), 0);
    row("the product comes before the version", Signed(ReleaseFields({{"productId", "x"}, {"currentVersion", "2"}})), 5);
    row("no version",                          Signed(ReleaseFields({{"currentVersion", "2.0"}})),       4);
    // clang-format on
    for (const QString& key : ReleaseFields().keys()) {
        if (key == "message")
            continue;
        row(qPrintable("without " + key), Signed(Without(ReleaseFields(), key)), 3);
        row(qPrintable("blank " + key), Signed(ReleaseFields({{key, " \t\n"}})), 3);
        row(qPrintable("a number as " + key), Signed(ReleaseFields({{key, 2}})), 3);
    }
}

void ReleaseMetadataTest::Url_data()
{
    const Table row([](const QString& url, int result) {
        for (const QString& key : urlKeys) {
            ReleaseMetadata metadata;
            QCOMPARE(static_cast<int>(ParseReleaseMetadata(Signed(ReleaseFields({{key, url}})), metadata)), result);
        }
    });
    // clang-format off
    row("https",                       "https://example.org/a?b=c#d",     0);
    row("http",                        "http://example.org",              0);
    row("a scheme has no case",        "HTTPS://EXAMPLE.ORG",             0);
    row("a name of any script",        "https://büro.example/€",          0);
    row("blanks in a path are mended", "https://example.org/a b",         0);
    row("but not in a host",           "https://exa mple.org",            4);
    row("no scheme",                   "example.org",                     4);
    row("a relative one",              "//example.org",                   4);
    row("a file",                      "file:///etc/passwd",              4);
    row("a program",                   "javascript:alert(1)",             4);
    row("a scheme that begins alike",  "httpsx://example.org",            4);
    row("a port that is none",         "https://example.org:port",        4);
    // clang-format on
}

void ReleaseMetadataTest::Uninitialized()
{
    Initialize({}, {}, {});
    ReleaseMetadata metadata;
    QCOMPARE(ParseReleaseMetadata(Signed(ReleaseFields()), metadata), ReleaseMetadataResult::NotInitialized);
    QCOMPARE(ParseReleaseMetadata("no JSON", metadata), ReleaseMetadataResult::NotInitialized);
}

// The last of them, in the signature as in what is shown.
void ReleaseMetadataTest::RepeatedKeyCountsOnceAsSigned()
{
    QByteArray json = Signed(ReleaseFields({{"message", "signed"}}));
    json.replace("\"message\"", "\"message\": \"smuggled\", \"message\"").replace("{", "{\"signature\": \"00\",");
    ReleaseMetadata metadata;
    QCOMPARE(ParseReleaseMetadata(json, metadata), ReleaseMetadataResult::Success);
    QCOMPARE(metadata.message, "signed");
    json.replace("}", ",\"message\": \"smuggled\"}");
    QCOMPARE(ParseReleaseMetadata(json, metadata), ReleaseMetadataResult::AuthenticationFailed);
}

void ReleaseMetadataTest::ResultTexts()
{
    const QStringList texts = {"Success",
                               "Release metadata module is not initialized",
                               "Release metadata is not valid JSON",
                               "Release metadata is missing a required field",
                               "Release metadata contains an invalid field",
                               "Release metadata is for a different product",
                               "Release metadata authentication failed",
                               "Unknown release metadata result"};
    for (int result = 0; result < texts.size(); ++result)
        QCOMPARE(ReleaseMetadataResultText(static_cast<ReleaseMetadataResult>(result)), texts.at(result));
}

void ReleaseMetadataTest::Dismissal()
{
    ReleaseMetadata metadata;
    metadata.currentVersion = " 2.0.0 ";
    metadata.signature = "ab\n";
    QCOMPARE(DismissalValue(metadata), "quellbrook-desktop|2.0.0|ab");
}

QTEST_APPLESS_MAIN(ReleaseMetadataTest)
#include "ReleaseMetadataTest.moc"
