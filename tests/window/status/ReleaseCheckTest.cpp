#include "window/status/ReleaseCheck.h"

#include "ReleaseServer.h"
#include "core/release/ReleaseProduct.h"
#include "core/release/SignedRelease.h"

#include <QApplication>
#include <QTest>

#include <memory>
#include <vector>

using namespace ReleaseDesk;

namespace {

constexpr int failed = 3;
constexpr int atLeastASecond = 0;
constexpr int longEnough = 60000; // milliseconds

// A check and what it has come to.
struct Check {
    explicit Check(const QUrl& url, int timeout = longEnough)
    {
        CheckForReleaseAsync(parent.get(), url, Callback(), timeout);
    }

    ReleaseCallback Callback()
    {
        return [this](ReleaseCheckResult r, const ReleaseMetadata& m, ReleaseComparison c) {
            ++calls;
            result = static_cast<int>(r);
            comparison = static_cast<int>(c);
            metadata = m;
        };
    }

    int calls = 0;
    int result = -1;
    int comparison = -1;
    ReleaseMetadata metadata;
    std::unique_ptr<QObject> parent = std::make_unique<QObject>();
};

QByteArray Release(const QString& version)
{
    return Signed(ReleaseFields({{"currentVersion", version}}));
}

QByteArray Chunked(const QByteArray& body)
{
    const auto chunk = [](const QByteArray& bytes) -> QByteArray {
        return QByteArray::number(bytes.size(), 16) + "\r\n" + bytes + "\r\n";
    };
    return "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n" + chunk(body.left(100)) + chunk(body.mid(100)) +
           chunk("");
}

} // namespace

class ReleaseCheckTest : public QObject {
    Q_OBJECT

private slots:
    void init() { Initialize("quellbrook-desktop", "Quellbrook Desktop", "1.0.0"); }
    void Answer_data();
    void Answer();
    void Redirected_data();
    void Redirected();
    void Request();
    void TimesOut();
    void NobodyListens();
    void FailsAtOnce();
    void NothingToDo();
    void ParentGoes();
    void ParentGoesInTheCallback();
};

void ReleaseCheckTest::Answer_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<int>("result");
    QTest::addColumn<int>("comparison");
    const QByteArray good = Release("2.0.0");
    const QByteArray compact = QJsonDocument::fromJson(good).toJson(QJsonDocument::Compact);
    const auto padded = [&](qsizetype size) { return Ok(good + QByteArray(size - good.size(), ' ')); };
    const QByteArray unlengthed = "HTTP/1.1 200 OK\r\n\r\n";
    // clang-format off
    QTest::newRow("a new major release")               << Ok(good)                                        << 1 << 3;
    QTest::newRow("a new minor release")               << Ok(Release("1.1.0"))                            << 1 << 2;
    QTest::newRow("the release that is running")       << Ok(Release("1.0.0"))                            << 0 << 1;
    QTest::newRow("an older one")                      << Ok(Release("0.9.9"))                            << 0 << 4;
    QTest::newRow("another layout")                    << Ok(compact)                                     << 1 << 3;
    QTest::newRow("in pieces")                         << Chunked(good)                                   << 1 << 3;
    QTest::newRow("until the connection closes")       << unlengthed + good                               << 1 << 3;
    QTest::newRow("as long as it may be")              << padded(64 * 1024)                               << 1 << 3;
    QTest::newRow("a byte longer")                     << padded(64 * 1024 + 1)                           << failed << 0;
    QTest::newRow("far longer")                        << padded(5000000)                                 << failed << 0;
    QTest::newRow("a changed value")                   << Ok(QByteArray(good).replace("$15", "$16"))      << failed << 0;
    QTest::newRow("no JSON")                           << Ok("<html>Welcome to the hotel</html>")         << failed << 0;
    QTest::newRow("nothing")                           << Ok("")                                          << failed << 0;
    QTest::newRow("no such file")                      << Response("404 Not Found", good)                 << failed << 0;
    QTest::newRow("a server in trouble")               << Response("503 Service Unavailable", good)       << failed << 0;
    QTest::newRow("a password is asked for")           << Response("401 Unauthorized", good, "WWW-Authenticate: Basic realm=\"x\"\r\n") << failed << 0;
    QTest::newRow("compressed without being asked")    << Response("200 OK", qCompress(good).mid(4), "Content-Encoding: deflate\r\n") << failed << 0;
    QTest::newRow("cut short")                         << Ok(good).chopped(10)                            << failed << 0;
    QTest::newRow("whole, but more was promised")      << Ok(good + "    ").chopped(4)                    << failed << 0;
    QTest::newRow("another protocol")                  << QByteArray("220 mail ready\r\n")                << failed << 0;
    QTest::newRow("nothing but a closed door")         << QByteArray()                                    << failed << 0;
    // clang-format on
}

void ReleaseCheckTest::Answer()
{
    QFETCH(QByteArray, answer);
    ReleaseServer server;
    server.answers["/release.json"] = answer;
    Check check(server.Url());
    QCOMPARE(check.calls, 0);
    QTRY_COMPARE(check.calls, 1);
    QTEST(check.result, "result");
    QTEST(check.comparison, "comparison");
    QCOMPARE(check.metadata.currentVersion.isEmpty(), check.result == failed);
    QTRY_VERIFY(check.parent->children().isEmpty());
    QCOMPARE(check.calls, 1);
    QVERIFY(!QApplication::activeModalWidget());
}

void ReleaseCheckTest::Redirected_data()
{
    QTest::addColumn<QStringList>("way"); // where each address leads, "%1" being the server and "%2" its other name
    QTest::addColumn<int>("result");
    QTest::addColumn<int>("requests");
    // clang-format off
    QTest::newRow("within the host")             << QStringList{"%1/a"}                               << 1 << 2;
    QTest::newRow("by a path alone")             << QStringList{"/a"}                                 << 1 << 2;
    QTest::newRow("three times")                 << QStringList{"/a", "/b", "/c"}                     << 1 << 4;
    QTest::newRow("four times")                  << QStringList{"/a", "/b", "/c", "/d"}               << failed << 4;
    QTest::newRow("in a circle")                 << QStringList{"/release.json"}                      << failed << 4;
    QTest::newRow("to another host")             << QStringList{"%2/a"}                               << failed << 1;
    QTest::newRow("to another host on the way")  << QStringList{"/a", "%2/b"}                         << failed << 2;
    QTest::newRow("to another scheme")           << QStringList{"https://127.0.0.1:9/a"}              << failed << 1;
    QTest::newRow("to a file")                   << QStringList{"file:///etc/hostname"}               << failed << 1;
    QTest::newRow("nowhere")                     << QStringList{""}                                   << failed << 1;
    // clang-format on
}

void ReleaseCheckTest::Redirected()
{
    QFETCH(QStringList, way);
    ReleaseServer server;
    QString path = "/release.json";
    for (const QString& next : way) {
        const QString to = QString(next)
                               .replace("%1", server.Url("").toString())
                               .replace("%2", server.Url("", "localhost").toString());
        server.answers[path] = Redirection(QUrl(to));
        path = QUrl(to).path();
    }
    if (!server.answers.contains(path))
        server.answers[path] = Ok(Release("2.0.0"));
    Check check(server.Url());
    QTRY_COMPARE(check.calls, 1);
    QTEST(check.result, "result");
    QTRY_VERIFY(check.parent->children().isEmpty());
    QTEST(static_cast<int>(server.requests.size()), "requests");
}

void ReleaseCheckTest::Request()
{
    ReleaseServer server;
    server.answers["/release.json"] = Redirection(server.Url("/again"));
    server.answers["/again"] = Ok(Release("2.0.0"));
    Check check(server.Url());
    QTRY_COMPARE(check.calls, 1);
    QCOMPARE(server.requests.size(), 2);
    for (const QByteArray& request : server.requests) {
        QVERIFY2(request.startsWith("GET /"), request.constData());
        QVERIFY2(request.contains("\r\nUser-Agent: Ostrellworks/1.0.0 (quellbrook-desktop)\r\n"), request.constData());
        QVERIFY2(request.contains("\r\nAccept-Language: *\r\n"), request.constData());
        for (const char* word : {"cookie", "authorization", "gzip"})
            QVERIFY2(!request.toLower().contains(word), request.constData());
    }
}

// However much comes meanwhile.
void ReleaseCheckTest::TimesOut()
{
    // Nothing, or a header or a body that does not end.
    for (const QByteArray begins : {"", "HTTP/1.1 200 OK\r\n", "HTTP/1.1 200 OK\r\n\r\n"}) {
        ReleaseServer server;
        if (!begins.isEmpty()) {
            server.answers["/release.json"] = begins;
            server.endless = "\r\n X: y";
        }
        Check check(server.Url(), atLeastASecond);
        QTRY_COMPARE(server.requests.size(), 1);
        QCOMPARE(check.calls, 0);
        QTRY_COMPARE(check.calls, 1);
        QCOMPARE(check.result, failed);
        QTRY_COMPARE(server.Connections(), 0);
        QTRY_VERIFY(check.parent->children().isEmpty());
        QCOMPARE(check.calls, 1);
    }
}

void ReleaseCheckTest::NobodyListens()
{
    const Check check(QUrl("http://127.0.0.1:1/release.json"));
    QTRY_COMPARE(check.calls, 1);
    QCOMPARE(check.result, failed);
}

void ReleaseCheckTest::FailsAtOnce()
{
    for (const char* address : {"", "release.json", "file:///etc/hostname", "ftp://127.0.0.1/release.json",
                                "https://127.0.0.1:port/release.json"}) {
        const Check check{QUrl(address)};
        QVERIFY2(check.calls == 1 && check.result == failed, address);
        QVERIFY(check.parent->children().isEmpty());
    }
}

void ReleaseCheckTest::NothingToDo()
{
    const ReleaseServer server;
    Check check(QUrl("file:///etc/hostname")); // has failed at once
    CheckForReleaseAsync(nullptr, server.Url(), check.Callback(), longEnough);
    CheckForReleaseAsync(check.parent.get(), server.Url(), {}, longEnough);
    Initialize({}, {}, {});
    CheckForReleaseAsync(check.parent.get(), server.Url(), check.Callback(), longEnough);
    CheckForReleaseAsync(check.parent.get(), QUrl(), check.Callback(), longEnough);
    QVERIFY(check.parent->children().isEmpty());
    QCOMPARE(check.calls, 1);
}

void ReleaseCheckTest::ParentGoes()
{
    struct Departure {
        QByteArray answer; // how far the server has come
        bool connected;
        ReleaseServer server = {};
    };
    const QByteArray answer = Ok(Release("2.0.0"));
    Departure departures[] = {{"", false}, {"", true}, {answer.chopped(20), true}, {answer, true}};
    std::vector<std::unique_ptr<Check>> checks;
    for (Departure& departure : departures) {
        checks.push_back(std::make_unique<Check>(departure.server.Url(), atLeastASecond));
        if (departure.connected)
            QTRY_COMPARE(departure.server.requests.size(), 1);
        if (!departure.answer.isEmpty())
            departure.server.AnswerWaiting(departure.answer);
        checks.back()->parent.reset();
    }
    QTest::qWait(1200); // the time-outs would have come by then
    for (const auto& check : checks)
        QCOMPARE(check->calls, 0);
    for (const Departure& departure : departures)
        QTRY_COMPARE(departure.server.Connections(), 0);
}

void ReleaseCheckTest::ParentGoesInTheCallback()
{
    ReleaseServer server;
    server.answers["/release.json"] = Ok(Release("2.0.0"));
    auto* parent = new QObject;
    int calls = 0;
    CheckForReleaseAsync(
        parent, server.Url(),
        [&](ReleaseCheckResult, const ReleaseMetadata&, ReleaseComparison) {
            ++calls;
            delete parent;
        },
        longEnough);
    QTRY_COMPARE(calls, 1);
    QTRY_COMPARE(server.Connections(), 0);
}

QTEST_MAIN(ReleaseCheckTest)
#include "ReleaseCheckTest.moc"
