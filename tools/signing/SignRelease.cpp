// Makes the signed description of a release, release.json, from its fields.
//
// The program that this is built with is asked whether it takes the result, and nothing is written if it does not.
#include "core/release/ReleaseAuthentication.h"
#include "core/release/ReleaseMetadata.h"
#include "core/release/ReleaseProduct.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>
#include <QJsonDocument>
#include <QSaveFile>
#include <QTextStream>

#include <optional>

using namespace ReleaseDesk;
using namespace Qt::StringLiterals;

namespace {

// The options that are fields of the description, by the field's key.
struct FieldOption {
    QLatin1StringView key;
    QLatin1StringView meaning;
};

// clang-format off
constexpr FieldOption fieldOptions[] = {
    {QLatin1StringView("productId"),      QLatin1StringView("The product; if missing: this one.")},
    {QLatin1StringView("currentVersion"), QLatin1StringView("The released version, major.minor.patch.")},
    {QLatin1StringView("purchasePrice"),  QLatin1StringView("Price of a first copy.")},
    {QLatin1StringView("purchaseUrl"),    QLatin1StringView("Page where it is sold.")},
    {QLatin1StringView("upgradePrice"),   QLatin1StringView("Price of the upgrade, where the major number is new.")},
    {QLatin1StringView("upgradeUrl"),     QLatin1StringView("Page of the upgrade.")},
    {QLatin1StringView("downloadUrl"),    QLatin1StringView("Page of the download, where the major number is the same.")},
    {QLatin1StringView("detailsUrl"),     QLatin1StringView("Page about the release.")},
    {QLatin1StringView("message"),        QLatin1StringView("The notice's text, in place of the usual one.")},
};
// clang-format on

int Fail(const QString& message)
{
    QTextStream(stderr) << "sign-release: " << message << Qt::endl;
    return 1;
}

std::optional<QByteArray> BytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? std::optional(file.readAll()) : std::nullopt;
}

// A key file is two lines of 64 hexadecimal digits, beside comments: the key is the one XOR the other.
std::optional<QByteArray> KeyIn(const QByteArray& keyFile)
{
    QList<QByteArray> tables;
    for (const QByteArray& line : keyFile.split('\n')) {
        if (!line.isEmpty() && !line.startsWith('#'))
            tables.append(QByteArray::fromHex(line));
    }
    if (tables.size() != 2 || tables[0].size() != 32 || tables[1].size() != 32)
        return std::nullopt;
    for (qsizetype i = 0; i < tables[0].size(); ++i)
        tables[0][i] = static_cast<char>(tables[0][i] ^ tables[1][i]);
    return tables[0];
}

// The fields that the file and the options give; an option goes before the file's field.
std::optional<QJsonObject> DescriptionFrom(const QCommandLineParser& options)
{
    QJsonObject description{{u"productId"_s, quellbrookProductId.toString()}, {u"message"_s, QString()}};
    if (!options.positionalArguments().isEmpty()) {
        const std::optional<QByteArray> json = BytesOf(options.positionalArguments().constFirst());
        const QJsonDocument document = QJsonDocument::fromJson(json.value_or(QByteArray()));
        if (!document.isObject())
            return std::nullopt;
        const QJsonObject fields = document.object();
        for (auto field = fields.begin(); field != fields.end(); ++field)
            description.insert(field.key(), field.value());
    }
    for (const FieldOption& option : fieldOptions) {
        if (options.isSet(option.key))
            description.insert(option.key, options.value(option.key));
    }
    return description;
}

bool WriteWhole(const QString& path, const QByteArray& bytes)
{
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
}

int Sign(QJsonObject description, const QByteArray& key, const QString& output)
{
    const QByteArray signature = ReleaseSignature(description, key);
    description.insert("signature"_L1, QString::fromLatin1(signature));
    const QByteArray json = QJsonDocument(description).toJson();
    if (json.size() > longestReleaseJson)
        return Fail(u"The description is longer than the program reads."_s);
    ReleaseMetadata metadata;
    const ReleaseMetadataResult result = ParseReleaseMetadata(json, metadata);
    if (result != ReleaseMetadataResult::Success)
        return Fail(u"The program would refuse it: "_s + ReleaseMetadataResultText(result));
    if (!WriteWhole(output, json))
        return Fail(u"Cannot write "_s + output);
    QTextStream(stdout) << "Product:   " << metadata.productId << "\nVersion:   " << metadata.currentVersion
                        << "\nSigned:    " << CanonicalForm(description) << "\nSignature: " << signature
                        << "\nWritten:   " << output << Qt::endl;
    return 0;
}

void Declare(QCommandLineParser& options)
{
    options.setApplicationDescription(u"Signs the description of a release."_s);
    options.addHelpOption();
    options.addPositionalArgument(u"FIELDS.json"_s, u"Fields as a JSON object of strings."_s, u"[FIELDS.json]"_s);
    options.addOption({u"key"_s, u"The key's file; see make-release-key."_s, u"FILE"_s});
    options.addOption({u"output"_s, u"Where the signed description goes."_s, u"FILE"_s});
    for (const FieldOption& option : fieldOptions)
        options.addOption({option.key, option.meaning, u"TEXT"_s});
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser options;
    Declare(options);
    options.process(application);
    if (!options.isSet(u"key"_s) || !options.isSet(u"output"_s) || options.positionalArguments().size() > 1)
        options.showHelp(2);
    const std::optional<QByteArray> keyFile = BytesOf(options.value(u"key"_s));
    const std::optional<QByteArray> key = KeyIn(keyFile.value_or(QByteArray()));
    if (!key)
        return Fail(u"Not a key of make-release-key: "_s + options.value(u"key"_s));
    const std::optional<QJsonObject> description = DescriptionFrom(options);
    if (!description)
        return Fail(u"Not a JSON object: "_s + options.positionalArguments().constFirst());
    Initialize(quellbrookProductId.toString(), quellbrookProductName.toString(), BuiltVersion());
    return Sign(*description, *key, options.value(u"output"_s));
}
