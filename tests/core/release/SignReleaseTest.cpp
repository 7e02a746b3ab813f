// The program that signs descriptions, from its options to what the parser says of its file.
#include "../Table.h"
#include "core/release/ReleaseMetadata.h"
#include "core/release/ReleaseProduct.h"

#include "SignedRelease.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

using namespace ReleaseDesk;

namespace {

struct Outcome {
    int exitCode;
    QString output;
};

Outcome SignRelease(const QStringList& arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QUELLBROOK_SIGN_RELEASE, arguments);
    process.waitForFinished();
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            QString::fromUtf8(process.readAll())};
}

} // namespace

class SignReleaseTest : public QObject {
    Q_OBJECT

private slots:
    void init() { Initialize("quellbrook-desktop", "Quellbrook Desktop", "1.0.0"); }
    void SignsWhatTheProgramTakes();
    void Refusals_data();
    void Refusals() { CheckRow(); }

private:
    QString Path(const QString& name) const { return directory.filePath(name); }

    QString WrittenTo(const QString& name, const QByteArray& bytes) const
    {
        QFile file(Path(name));
        return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() ? file.fileName() : QString();
    }

    QByteArray Output() const
    {
        QFile file(Path("release.json"));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QTemporaryDir directory;
};

void SignReleaseTest::SignsWhatTheProgramTakes()
{
    QJsonObject fields = Without(Without(ReleaseFields(), "message"), "productId");
    fields.insert("signature", "an older one");
    const QString message = "5 < 7 & \"é\" 😀";
    const Outcome outcome =
        SignRelease({"--key", QUELLBROOK_RELEASE_KEY_FILE, "--output", Path("release.json"), "--currentVersion",
                     "1.10.0", "--message", message, WrittenTo("fields.json", QJsonDocument(fields).toJson())});
    QVERIFY2(outcome.exitCode == 0, qPrintable(outcome.output));

    ReleaseMetadata metadata;
    QCOMPARE(ParseReleaseMetadata(Output(), metadata), ReleaseMetadataResult::Success);
    QCOMPARE(metadata.message, message);
    QCOMPARE(metadata.currentVersion, "1.10.0");
    QCOMPARE(metadata.upgradeUrl, "https://example.org/upgrade");
    const QByteArray canonical = CanonicalForm(QJsonDocument::fromJson(Output()).object());
    for (const QString& told : {QString("1.10.0"), metadata.signature, QString::fromUtf8(canonical)})
        QVERIFY2(outcome.output.contains(told), qPrintable(told));
}

void SignReleaseTest::Refusals_data()
{
    // No reason: signed.
    const Table row([this](const QByteArray& key, const QByteArray& fields, const QString& reason) {
        QFile::remove(Path("release.json"));
        const Outcome outcome = SignRelease(
            {"--key", WrittenTo("test.key", key), "--output", Path("release.json"), WrittenTo("fields.json", fields)});
        QVERIFY2(outcome.exitCode == (reason.isEmpty() ? 0 : 1), qPrintable(outcome.output));
        QVERIFY2(outcome.output.contains(reason), qPrintable(outcome.output));
        QCOMPARE(Output().isEmpty(), !reason.isEmpty());
    });
    QFile keyFile(QUELLBROOK_RELEASE_KEY_FILE);
    QVERIFY(keyFile.open(QIODevice::ReadOnly));
    const QByteArray key = keyFile.readAll();
    const QByteArray table(64, '7');
    const auto fields = [](const QJsonObject& changes) { return QJsonDocument(ReleaseFields(changes)).toJson(); };
    // clang-format off
    row("nothing to refuse",              key,                  fields({}),                                 "");
    row("a key that the program has not", table + "\n" + table, fields({}),                                 "authentication failed");
    row("half a key",                     table,                fields({}),                                 "Not a key");
    row("no key",                         QByteArray(),         fields({}),                                 "Not a key");
    row("no JSON",                        key,                  QByteArray("currentVersion=2.0.0"),         "Not a JSON object");
    row("a field too many",               key,                  fields({{"extra", ""}}),                    "contains an invalid field");
    row("a field that is empty",          key,                  fields({{"detailsUrl", ""}}),               "missing a required field");
    row("no version",                     key,                  fields({{"currentVersion", "2"}}),          "contains an invalid field");
    row("another product",                key,                  fields({{"productId", "other"}}),           "different product");
    row("longer than the program reads",  key,                  fields({{"message", QString(70000, 'm')}}), "longer than");
    // clang-format on
}

QTEST_GUILESS_MAIN(SignReleaseTest)
#include "SignReleaseTest.moc"
