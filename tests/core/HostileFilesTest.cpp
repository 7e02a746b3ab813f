// Files that were cut short, at every byte, and searches whose expressions explode: each ends soon, and nothing that
// was not there is read.
#include "Table.h"
#include "core/Calculator.h"
#include "core/engine/ReservedNames.h"
#include "core/release/ReleaseMetadata.h"
#include "core/release/ReleaseProduct.h"
#include "core/workspace/LogSearch.h"
#include "release/SignedRelease.h"
#include "workspace/TestFiles.h"

#include <QSettings>
#include <QTemporaryDir>

namespace {

CustomFunctionMap Definitions()
{
    return {{"AREA", {"AREA", {"W", "H"}, "W * H"}},
            {"GREET", {"GREET", {}, QString("\"%1\", \\x41; ä€ = <b>\n[General]")}},
            {"ZERO_", {"ZERO_", {"A"}, "A - A"}}};
}

CustomFunctionMap Loaded(const QString& path)
{
    CustomFunctions functions;
    QSettings settings(path, QSettings::IniFormat);
    functions.LoadCustomFunctions(settings, IsReservedBuiltInName);
    return functions.Definitions();
}

const char* NameOf(SearchResult result)
{
    constexpr const char* names[] = {"found", "absent", "unfinished", "failed"};
    return names[static_cast<int>(result)];
}

} // namespace

class HostileFilesTest : public QObject {
    Q_OBJECT

private slots:
    void SettingsCutAtEachByte();
    void ReleaseCutAtEachByte();
    void Search_data();
    void Search() { CheckRow(); }
    void SearchTerms_data();
    void SearchTerms() { CheckRow(); }
};

// Of a cut file the functions are read whose lines are all there; of the last one it may be a part.
void HostileFilesTest::SettingsCutAtEachByte()
{
    const QTemporaryDir directory;
    const QString saved = directory.filePath("saved.ini");
    CustomFunctions functions;
    functions.SetDefinitions(Definitions());
    {
        QSettings settings(saved, QSettings::IniFormat);
        functions.SaveCustomFunctions(settings);
    }
    QCOMPARE(Loaded(saved), Definitions());
    QFile file(saved);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    for (qsizetype size = 0; size < bytes.size(); ++size) {
        const QString cut = directory.filePath(QString::number(size));
        Write(cut, bytes.first(size));
        const CustomFunctionMap loaded = Loaded(cut);
        int changed = 0;
        for (const CustomFunctionDefinition& function : loaded) {
            QVERIFY(!function.expression.isEmpty());
            changed += Definitions().value(function.name) != function;
        }
        QVERIFY2(changed <= 1, qPrintable(cut));
    }
}

void HostileFilesTest::ReleaseCutAtEachByte()
{
    using namespace ReleaseDesk;
    Initialize(quellbrookProductId.toString(), quellbrookProductName.toString(), BuiltVersion());
    const QByteArray json = Signed(ReleaseFields({{"message", "ä€ 😀"}})).trimmed();
    ReleaseMetadata metadata;
    QCOMPARE(ParseReleaseMetadata(json, metadata), ReleaseMetadataResult::Success);
    for (qsizetype size = 0; size < json.size(); ++size) {
        QCOMPARE(ParseReleaseMetadata(json.first(size), metadata), ReleaseMetadataResult::InvalidJson);
        QVERIFY(metadata.currentVersion.isEmpty());
        QByteArray damaged = json;
        damaged[size] = static_cast<char>(damaged[size] ^ (1 << (size % 5)));
        const bool same = QJsonDocument::fromJson(damaged) == QJsonDocument::fromJson(json);
        QVERIFY2(same || ParseReleaseMetadata(damaged, metadata) != ReleaseMetadataResult::Success, damaged);
    }
}

// In a megabyte of one letter, at most twenty slices of time, each of which has a bound.
void HostileFilesTest::Search_data()
{
    const Table row([](const QString& pattern, const QString& expected) {
        const QString text = QString(1'000'000, 'a') + "\n!";
        const QRegularExpression expression = SearchExpression(pattern, Qt::CaseInsensitive);
        QString result = "invalid";
        if (expression.isValid()) {
            PatternSearch search(expression, text);
            SearchResult reached = SearchResult::Unfinished;
            for (int slice = 0; slice < 20 && reached == SearchResult::Unfinished; ++slice)
                reached = search.Continue(QDeadlineTimer(0));
            result = NameOf(reached);
        }
        QCOMPARE(result, expected);
    });
    const auto repeated = [](const char* text, int count) { return QString(text).repeated(count); };
    // clang-format off
    row("a repeated repetition",       "(a+)+$",                              "failed");
    row("a repeated choice",           "(a|aa)+$",                            "failed");
    row("a repeated nothing",          "(a*)*x",                              "failed");
    row("everything over and over",    "(.*)*x",                              "failed");
    row("many anythings",              repeated("a.*", 50) + "x",             "failed");
    row("many lazy anythings",         repeated("a.*?", 50) + "x",            "failed");
    row("many options",                repeated("a?", 60) + repeated("a", 60) + "x", "failed");
    row("a reference to a repetition", "(a*)*\\1x",                           "failed");
    row("a look ahead over all",       "(?=(a+))*x",                          "absent");
    row("a recursion",                 "(a(?1)?)x",                           "failed");
    row("an endless recursion",        "(?R)",                                "failed");
    row("counts of counts",            "(((a{1,99}){1,99}){1,99}){1,99}x",    "invalid");
    row("a count beyond all",          "a{65536}",                            "invalid");
    row("deep groups",                 repeated("(", 10000) + repeated(")", 10000), "invalid");
    row("open groups",                 repeated("(", 10000),                  "invalid");
    row("open sets",                   repeated("[", 10000),                  "invalid");
    row("an end of a quote",           "\\Qa\\Eb\\E",                         "absent");
    row("a verb of the engine",        "(*NO_START_OPT)(*UCP)z",              "absent");
    row("a higher limit",              "(*LIMIT_MATCH=4000000000)(a+)+$",     "failed");
    row("many choices",                repeated("b|", 5000) + "!",            "found");
    row("more choices than fit",       repeated("b|", 30000) + "!",           "invalid");
    // clang-format on
}

// In a day whose text is what was typed.
void HostileFilesTest::SearchTerms_data()
{
    const Table row([](const QString& text, const QString& expected) {
        QList<SearchTerm> terms;
        QString error;
        QString result = "invalid";
        if (BuildFriendlySearchTerms(text, Qt::CaseSensitive, terms, error)) {
            LogSearch search({{QDate(2026, 11, 15), text}}, terms);
            result = NameOf(search.Continue(QDeadlineTimer(QDeadlineTimer::Forever)));
        }
        QCOMPARE(result, expected);
    });
    const auto filled = [](const char* text) {
        const int most = 32767; // characters of a field of the window
        return QString(text).repeated(most / static_cast<int>(qstrlen(text)));
    };
    // clang-format off
    row("words",                  filled("a "),     "found");
    row("minus signs",            filled("-"),      "invalid");
    row("minus signs and blanks", filled("- "),     "found");
    row("quotes",                 filled("\""),     "found");
    row("asterisks",              filled("*"),      "invalid");
    row("asterisks and letters",  filled("*a").first(1000) + "b", "failed");
    row("question marks",         filled("?"),      "found");
    row("number signs",           filled("#"),      "absent");
    row("open sets",              filled("["),      "invalid");
    row("sets",                   filled("[!a]").first(4000), "absent");
    row("ranges that are none",   "[z-a]",          "invalid");
    row("the end of a quote",     "\\E\\Q\\E",      "found");
    row("NULs before digits",     QString("%1%1%11").arg(QChar(0)), "found");
    // clang-format on
}

QTEST_APPLESS_MAIN(HostileFilesTest)
#include "HostileFilesTest.moc"
