// Files that were cut short, at every byte, and searches whose expressions explode: each ends soon, and nothing that
// was not there is read.
#include "core/Calculator.h"
#include "core/engine/ReservedNames.h"
#include "core/release/ReleaseMetadata.h"
#include "core/release/ReleaseProduct.h"
#include "core/workspace/LogSearch.h"
#include "release/SignedRelease.h"

#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

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

void WriteFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
}

QByteArray Log()
{
    QString log;
    for (const int day : {3, 1, 3, 2})
        log += LogEntry(QDateTime(QDate(2026, 11, day), QTime(5, 33, day)), QString("%1 + 2\nä€ 😀\n").arg(day));
    return log.toUtf8();
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
    void LogCutAtEachByte();
    void ReleaseCutAtEachByte();
    void Search_data();
    void Search();
    void SearchTerms_data();
    void SearchTerms();
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
        WriteFile(cut, bytes.first(size));
        const CustomFunctionMap loaded = Loaded(cut);
        int changed = 0;
        for (const CustomFunctionDefinition& function : loaded) {
            QVERIFY(!function.expression.isEmpty());
            changed += Definitions().value(function.name) != function;
        }
        QVERIFY2(changed <= 1, qPrintable(cut));
    }
}

// A day of a cut log is the beginning of that day, but for a line that was cut itself: it may be the next day's header.
void HostileFilesTest::LogCutAtEachByte()
{
    const QByteArray log = Log();
    QMap<QDate, QString> whole;
    for (const LogDay& day : ReadLogDays(log))
        whole.insert(day.date, day.text);
    QCOMPARE(whole.size(), 3);
    for (qsizetype size = 0; size < log.size(); ++size) {
        for (const LogDay& day : ReadLogDays(log.first(size))) {
            const QString lines = day.text.first(day.text.lastIndexOf('\n') + 1);
            QVERIFY2(!lines.isEmpty() && whole.value(day.date).startsWith(lines), qPrintable(lines));
        }
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

void HostileFilesTest::Search_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("result");
    const auto repeated = [](const char* text, int count) { return QString(text).repeated(count); };
    // clang-format off
    QTest::newRow("a repeated repetition")       << "(a+)+$"                              << "failed";
    QTest::newRow("a repeated choice")           << "(a|aa)+$"                            << "failed";
    QTest::newRow("a repeated nothing")          << "(a*)*x"                              << "failed";
    QTest::newRow("everything over and over")    << "(.*)*x"                              << "failed";
    QTest::newRow("many anythings")              << repeated("a.*", 50) + "x"             << "failed";
    QTest::newRow("many lazy anythings")         << repeated("a.*?", 50) + "x"            << "failed";
    QTest::newRow("many options")                << repeated("a?", 60) + repeated("a", 60) + "x" << "failed";
    QTest::newRow("a reference to a repetition") << "(a*)*\\1x"                           << "failed";
    QTest::newRow("a look ahead over all")       << "(?=(a+))*x"                          << "absent";
    QTest::newRow("a recursion")                 << "(a(?1)?)x"                           << "failed";
    QTest::newRow("an endless recursion")        << "(?R)"                                << "failed";
    QTest::newRow("counts of counts")            << "(((a{1,99}){1,99}){1,99}){1,99}x"    << "invalid";
    QTest::newRow("a count beyond all")          << "a{65536}"                            << "invalid";
    QTest::newRow("deep groups")                 << repeated("(", 10000) + repeated(")", 10000) << "invalid";
    QTest::newRow("open groups")                 << repeated("(", 10000)                  << "invalid";
    QTest::newRow("open sets")                   << repeated("[", 10000)                  << "invalid";
    QTest::newRow("an end of a quote")           << "\\Qa\\Eb\\E"                         << "absent";
    QTest::newRow("a verb of the engine")        << "(*NO_START_OPT)(*UCP)z"              << "absent";
    QTest::newRow("a higher limit")              << "(*LIMIT_MATCH=4000000000)(a+)+$"     << "failed";
    QTest::newRow("many choices")                << repeated("b|", 5000) + "!"            << "found";
    QTest::newRow("more choices than fit")       << repeated("b|", 30000) + "!"           << "invalid";
    // clang-format on
}

// In a megabyte of one letter, at most twenty slices of time, each of which has a bound.
void HostileFilesTest::Search()
{
    QFETCH(QString, pattern);
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
    QTEST(result, "result");
}

void HostileFilesTest::SearchTerms_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("result");
    const auto filled = [](const char* text) {
        const int most = 32767; // characters of a field of the window
        return QString(text).repeated(most / static_cast<int>(qstrlen(text)));
    };
    // clang-format off
    QTest::newRow("words")                  << filled("a ")     << "found";
    QTest::newRow("minus signs")            << filled("-")      << "invalid";
    QTest::newRow("minus signs and blanks") << filled("- ")     << "found";
    QTest::newRow("quotes")                 << filled("\"")     << "found";
    QTest::newRow("asterisks")              << filled("*")      << "invalid";
    QTest::newRow("asterisks and letters")  << filled("*a").first(1000) + "b" << "failed";
    QTest::newRow("question marks")         << filled("?")      << "found";
    QTest::newRow("number signs")           << filled("#")      << "absent";
    QTest::newRow("open sets")              << filled("[")      << "invalid";
    QTest::newRow("sets")                   << filled("[!a]").first(4000) << "absent";
    QTest::newRow("ranges that are none")   << "[z-a]"          << "invalid";
    QTest::newRow("the end of a quote")     << "\\E\\Q\\E"      << "found";
    QTest::newRow("NULs before digits")     << QString("%1%1%11").arg(QChar(0)) << "found";
    // clang-format on
}

// In a day whose text is what was typed.
void HostileFilesTest::SearchTerms()
{
    QFETCH(QString, text);
    QList<SearchTerm> terms;
    QString error;
    QString result = "invalid";
    if (BuildFriendlySearchTerms(text, Qt::CaseSensitive, terms, error)) {
        LogSearch search({{QDate(2026, 11, 15), text}}, terms);
        result = NameOf(search.Continue(QDeadlineTimer(QDeadlineTimer::Forever)));
    }
    QTEST(result, "result");
}

QTEST_APPLESS_MAIN(HostileFilesTest)
#include "HostileFilesTest.moc"
