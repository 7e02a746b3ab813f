#include "window/status/UpdateWindow.h"

#include "core/release/ReleaseProduct.h"

#include <QDesktopServices>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QUrl>

using namespace ReleaseDesk;

namespace {

ReleaseMetadata Release()
{
    ReleaseMetadata release;
    release.currentVersion = "2.0.0";
    release.upgradePrice = "<b>$15</b>";
    release.upgradeUrl = "https://example.org/upgrade";
    release.downloadUrl = "https://example.org/download";
    release.detailsUrl = "https://example.org/details";
    release.message = "Now with <i>fractions</i> & more";
    return release;
}

constexpr const char* schemes[] = {"http", "https", "file", "javascript"};
constexpr auto major = ReleaseComparison::NewerMajorRelease;
constexpr auto minor = ReleaseComparison::NewerMinorRelease;

} // namespace

class UpdateWindowTest : public QObject {
    Q_OBJECT

public slots:
    void TakeUrl(const QUrl& url) { opened.append(url.toString()); }

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init() { opened.clear(); }
    void State_data();
    void State();
    void StatesFollowEachOther();
    void TextOfOthersIsPlain();
    void Destination_data();
    void Destination();
    void StaysOnTheScreen();
    void KeysAlone();

private:
    static QLabel* Label(UpdateWindow& window, const QString& name) { return window.findChild<QLabel*>(name); }
    static QPushButton* Button(UpdateWindow& window, const QString& name)
    {
        return window.findChild<QPushButton*>(name);
    }

    static QStringList Told(UpdateWindow& window)
    {
        QStringList texts;
        for (const char* name : {"headingLabel", "installedVersionValue", "availableVersionValue", "priceCaptionLabel",
                                 "priceValueLabel", "messageLabel"}) {
            const QLabel* label = Label(window, name);
            texts.append(label->isVisible() ? label->text() : "(hidden)");
        }
        const QPushButton* button = Button(window, "updateButton");
        return texts << button->text() << (button->isEnabled() ? "enabled" : "disabled");
    }

    QStringList opened;
};

void UpdateWindowTest::initTestCase()
{
    Initialize("quellbrook-desktop", "Quellbrook Desktop", "1.0.0");
    for (const char* scheme : schemes)
        QDesktopServices::setUrlHandler(scheme, this, "TakeUrl");
}

void UpdateWindowTest::cleanupTestCase()
{
    for (const char* scheme : schemes)
        QDesktopServices::unsetUrlHandler(scheme);
}

void UpdateWindowTest::State_data()
{
    QTest::addColumn<bool>("available");
    QTest::addColumn<ReleaseComparison>("comparison");
    QTest::addColumn<QStringList>("told");
    const QString heading = "A newer version of Quellbrook is available.";
    const QString message = Release().message;
    const QStringList majorRelease = {
        heading, "1.0.0", "2.0.0", "Upgrade price:", "<b>$15</b>", message, "View Upgrade", "enabled"};
    const QStringList minorRelease = {
        heading,  "1.0.0", "2.0.0", "Update:", "Included with this major version", message, "View / Download Update",
        "enabled"};
    const QString newest = "You are currently running the newest release Quellbrook has detected.";
    const QStringList none = {
        "No Update Available",    "1.0.0",   "No newer release detected", "(hidden)", "(hidden)", newest,
        "View / Download Update", "disabled"};
    QTest::newRow("a major release") << true << major << majorRelease;
    QTest::newRow("a minor release") << true << minor << minorRelease;
    QTest::newRow("a release of another kind") << true << ReleaseComparison::Unknown << minorRelease;
    QTest::newRow("no release") << false << ReleaseComparison::Unknown << none;
    QTest::newRow("no release, whatever is said of it") << false << major << none;
}

void UpdateWindowTest::State()
{
    QFETCH(bool, available);
    QFETCH(ReleaseComparison, comparison);
    UpdateWindow window(nullptr);
    window.SetReleaseState(available, Release(), comparison);
    window.show();
    QTEST(Told(window), "told");
}

// Nothing of a state is left in the next.
void UpdateWindowTest::StatesFollowEachOther()
{
    ReleaseMetadata silent = Release();
    silent.message.clear();
    UpdateWindow window(nullptr);
    window.show();
    QVERIFY(!Button(window, "updateButton")->isEnabled());
    for (const bool available : {true, false, true}) {
        window.SetReleaseState(available, silent, major);
        QCOMPARE(Label(window, "messageLabel")->text().isEmpty(), available);
        QCOMPARE(Label(window, "priceValueLabel")->isVisible(), available);
        QCOMPARE(Button(window, "updateButton")->isEnabled(), available);
        window.OpenReleaseDestination();
    }
    QCOMPARE(opened.size(), 2);
}

void UpdateWindowTest::TextOfOthersIsPlain()
{
    UpdateWindow window(nullptr);
    for (const QLabel* label : window.findChildren<QLabel*>())
        QVERIFY2(label->textFormat() == Qt::PlainText, qPrintable(label->objectName()));
}

void UpdateWindowTest::Destination_data()
{
    QTest::addColumn<ReleaseComparison>("comparison");
    QTest::addColumn<QStringList>("urls"); // of the upgrade, the download, the details
    QTest::addColumn<QString>("opens");    // empty: nothing
    using Urls = QStringList;
    const QString a = "https://a.example/";
    const QString b = "http://b.example/?x=1";
    const QString c = "https://c.example/";
    // clang-format off
    QTest::newRow("a major release has its page")     << major << Urls{a, b, c}                    << a;
    QTest::newRow("a minor release has another")      << minor << Urls{a, b, c}                    << b;
    QTest::newRow("blanks around it")                 << major << Urls{" " + a + "\n", b, c}       << a;
    QTest::newRow("a missing one has a fallback")     << major << Urls{"", b, c}                   << c;
    QTest::newRow("a blank one too")                  << minor << Urls{a, "  ", " " + c}           << c;
    QTest::newRow("a bad one has none")               << minor << Urls{a, "file:///etc", c}        << "";
    QTest::newRow("nor has a word")                   << major << Urls{"upgrade", b, c}            << "";
    QTest::newRow("a program is not run")             << major << Urls{"", b, "javascript:a()"}    << "";
    QTest::newRow("nothing anywhere")                 << major << Urls{"", "", ""}                 << "";
    // clang-format on
}

void UpdateWindowTest::Destination()
{
    QFETCH(ReleaseComparison, comparison);
    QFETCH(QStringList, urls);
    QFETCH(QString, opens);
    ReleaseMetadata release = Release();
    release.upgradeUrl = urls[0];
    release.downloadUrl = urls[1];
    release.detailsUrl = urls[2];
    UpdateWindow window(nullptr);
    window.SetReleaseState(true, release, comparison);
    Button(window, "updateButton")->click();
    QCOMPARE(opened, opens.isEmpty() ? QStringList() : QStringList(opens));
}

void UpdateWindowTest::StaysOnTheScreen()
{
    for (const QString& word : {QString("line\n"), QString("word "), QString("word")}) {
        const QString text = word.repeated(10000);
        ReleaseMetadata release = Release();
        release.message = text;
        release.upgradePrice = text.left(10000);
        release.currentVersion = text.left(5000);
        UpdateWindow window(nullptr);
        window.SetReleaseState(true, release, major);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        const QSize screen = window.screen()->availableSize();
        QVERIFY(window.width() < screen.width() && window.height() < screen.height());
        window.SetReleaseState(false, release, major);
        window.SetReleaseState(true, release, major);
        QCoreApplication::processEvents();
        QVERIFY(window.width() < screen.width() && window.height() < screen.height());

        window.resize(window.minimumSizeHint());
        QVERIFY(window.width() < 400 && window.height() < 300);
        const QRect inside = window.rect();
        for (const char* name : {"updateButton", "closeButton"})
            QVERIFY(inside.contains(Button(window, name)->geometry()));
        QVERIFY(window.findChild<QScrollArea*>()->verticalScrollBar()->maximum() > 0);
    }
}

void UpdateWindowTest::KeysAlone()
{
    UpdateWindow window(nullptr);
    ReleaseMetadata release = Release();
    release.message = QString("line\n").repeated(200);
    window.SetReleaseState(true, release, minor);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QCOMPARE(window.focusWidget()->objectName(), "updateButton");
    QTest::keyClick(&window, Qt::Key_Return);
    QCOMPARE(opened, QStringList("https://example.org/download"));
    for (int presses = 0; presses < 2; ++presses)
        QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
    QTest::keyClick(window.focusWidget(), Qt::Key_PageDown);
    QVERIFY(window.findChild<QScrollArea*>()->verticalScrollBar()->value() > 0);
}

QTEST_MAIN(UpdateWindowTest)
#include "UpdateWindowTest.moc"
