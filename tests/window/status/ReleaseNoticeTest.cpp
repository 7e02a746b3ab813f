// The notice above the pad on the real window, from what a server says to what is remembered.
#include "ReleaseServer.h"
#include "core/release/ReleaseProduct.h"
#include "core/release/SignedRelease.h"
#include "window/DataHome.h"
#include "window/MainWindow.h"

#include <QAction>
#include <QDialog>
#include <QFrame>
#include <QLabel>
#include <QNetworkAccessManager>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSettings>
#include <QTest>
#include <QToolButton>

#include <algorithm>
#include <memory>

namespace {

// A window and what is above its pad, once the server has told what there is to tell.
struct Start {
    explicit Start(const QUrl& url) : window(url) { window.show(); }
    explicit Start(const QJsonObject& fields) : Start(Ok(Signed(fields))) {}

    explicit Start(const QByteArray& answer) : Start(ServerWith(answer).Url())
    {
        QTRY_VERIFY(!window.findChild<QNetworkAccessManager*>()); // it goes when the check is over
    }

    static ReleaseServer& ServerWith(const QByteArray& answer)
    {
        static ReleaseServer server;
        server.answers["/release.json"] = answer;
        return server;
    }

    QFrame* Frame() { return window.findChild<QFrame*>("updateNoticeFrame"); }
    QLabel* Notice() { return window.findChild<QLabel*>("updateNoticeLabel"); }
    QToolButton* CloseButton() { return window.findChild<QToolButton*>("updateNoticeCloseButton"); }
    void OpenFromTheMenu() { window.findChild<QAction*>("actionCheckForUpdates")->trigger(); }
    QDialog* UpdateDialog() { return window.findChild<QDialog*>("UpdateWindow"); }
    QString Told(const QString& name) { return UpdateDialog()->findChild<QLabel*>(name)->text(); }

    MainWindow window;
};

QString Link(const QString& html)
{
    return "<a href=\"update\" style=\"color:#202020; text-decoration:none;\">" + html + "</a>";
}

const QJsonObject newer = {{"currentVersion", "1.0.1"}};

} // namespace

class ReleaseNoticeTest : public QObject {
    Q_OBJECT

private slots:
    void init() { home = std::make_unique<DataHome>(); }
    void Text_data();
    void Text();
    void NothingToTell_data();
    void NothingToTell();
    void LongMessage();
    void DarkTheme();
    void LinkOpensTheUpdateWindow();
    void DismissedForThisRelease();
    void ReturnsWithAnotherDescription_data();
    void ReturnsWithAnotherDescription();
    void WithoutAnAddress();
    void OpenUpdateWindowHearsOfTheRelease();
    void WindowClosesDuringTheCheck();

private:
    std::unique_ptr<DataHome> home;
};

void ReleaseNoticeTest::Text_data()
{
    QTest::addColumn<QJsonObject>("fields");
    QTest::addColumn<QString>("html");
    using Changes = QJsonObject;
    // clang-format off
    QTest::newRow("a minor release")         << Changes{{"currentVersion", "1.2.0"}} << "Quellbrook 1.2.0 is available.";
    QTest::newRow("a major release")         << Changes{{"currentVersion", "2.0.0"}} << "Quellbrook 2.0.0 is available as a new major release.";
    QTest::newRow("a message of its own")    << Changes{{"message", " Half price! "}} << "Half price!";
    QTest::newRow("a blank message is none") << Changes{{"message", " \n"}} << "Quellbrook 2.0.0 is available as a new major release.";
    QTest::newRow("markup is text")          << Changes{{"message", "<b>5 > 4</b> & \"x\""}} << "&lt;b&gt;5 &gt; 4&lt;/b&gt; &amp; &quot;x&quot;";
    QTest::newRow("a link is text")          << Changes{{"message", "</a><a href=\"http://evil.example\">"}} << "&lt;/a&gt;&lt;a href=&quot;http://evil.example&quot;&gt;";
    QTest::newRow("a place marker is text")  << Changes{{"message", "%1 %2"}} << "%1 %2";
    // clang-format on
}

void ReleaseNoticeTest::Text()
{
    QFETCH(QJsonObject, fields);
    QFETCH(QString, html);
    Start start(ReleaseFields(fields));
    QVERIFY(start.Frame()->isVisible());
    QCOMPARE(start.Notice()->text(), Link(html));
    QVERIFY(!start.Notice()->openExternalLinks());
}

void ReleaseNoticeTest::NothingToTell_data()
{
    QTest::addColumn<QByteArray>("answer");
    // clang-format off
    QTest::newRow("the release that is running") << Ok(Signed(ReleaseFields({{"currentVersion", "1.0.0"}})));
    QTest::newRow("an older one")                << Ok(Signed(ReleaseFields({{"currentVersion", "0.9.0"}})));
    QTest::newRow("a changed message")           << Ok(Signed(ReleaseFields({{"message", "signed"}})).replace("signed", "forged"));
    QTest::newRow("another product")             << Ok(Signed(ReleaseFields({{"productId", "other"}})));
    QTest::newRow("no such file")                << Response("404 Not Found", "");
    QTest::newRow("no connection")               << QByteArray();
    // clang-format on
}

void ReleaseNoticeTest::NothingToTell()
{
    QFETCH(QByteArray, answer);
    Start start(answer);
    QVERIFY(start.Frame()->isHidden());
    QVERIFY(!QApplication::activeModalWidget());
    QCOMPARE(start.window.findChild<QLabel*>("Label1")->text(), "");
    start.OpenFromTheMenu();
    QCOMPARE(start.Told("headingLabel"), "No Update Available");
}

void ReleaseNoticeTest::LongMessage()
{
    Start start(ReleaseFields({{"message", QString("long <i>message</i>\n").repeated(2000)}}));
    QVERIFY(start.Frame()->isVisible());
    QCOMPARE(start.window.size(), QSize(237, 207));
    QVERIFY(start.Frame()->height() <= 26);
    QVERIFY(start.CloseButton()->geometry().right() < start.Frame()->width());
    QVERIFY(start.CloseButton()->isVisible());
}

// The frame stays light, so what stands on it must be dark.
void ReleaseNoticeTest::DarkTheme()
{
    const QPalette usual = QApplication::palette();
    const auto restore = qScopeGuard([&] { QApplication::setPalette(usual); });
    QApplication::setPalette(QPalette(Qt::black));
    Start start(ReleaseFields());
    for (QWidget* widget : QWidgetList{start.Notice(), start.CloseButton()}) {
        const QImage image = start.Frame()->grab(widget->geometry()).toImage();
        int darkest = 255;
        for (int y = 2; y < image.height() - 2; ++y) {
            for (int x = 2; x < image.width() - 2; ++x)
                darkest = std::min(darkest, qGray(image.pixel(x, y)));
        }
        QVERIFY2(darkest < 100, qPrintable(widget->objectName()));
        QVERIFY(qGray(image.pixel(3, image.height() / 2)) > 200);
    }
}

void ReleaseNoticeTest::LinkOpensTheUpdateWindow()
{
    Start start(ReleaseFields());
    QVERIFY(!start.UpdateDialog());
    QTest::mouseClick(start.Notice(), Qt::LeftButton, {}, QPoint(20, start.Notice()->height() / 2));
    QVERIFY(start.UpdateDialog() && start.UpdateDialog()->isVisible());
    QCOMPARE(start.Told("availableVersionValue"), "2.0.0");
    start.UpdateDialog()->findChild<QPushButton*>("closeButton")->click();
    QVERIFY(start.UpdateDialog()->isHidden());
    emit start.Notice()->linkActivated("update");
    QVERIFY(start.UpdateDialog()->isVisible());
    QCOMPARE(start.window.findChildren<QDialog*>("UpdateWindow").size(), 1);
}

void ReleaseNoticeTest::DismissedForThisRelease()
{
    const QJsonObject fields = ReleaseFields(newer);
    {
        Start start(fields);
        QTest::mouseClick(start.CloseButton(), Qt::LeftButton);
        QVERIFY(start.Frame()->isHidden());
        start.window.SaveSettings();
    }
    const QSettings settings(home->SettingsPath(), QSettings::IniFormat);
    QCOMPARE(settings.value("Updates/DismissedRelease").toString(),
             "quellbrook-desktop|1.0.1|" + QString(SignatureOf(fields)));
    Start second(fields);
    QVERIFY(second.Frame()->isHidden());
    second.OpenFromTheMenu();
    QCOMPARE(second.Told("availableVersionValue"), "1.0.1");
}

void ReleaseNoticeTest::ReturnsWithAnotherDescription_data()
{
    QTest::addColumn<QString>("dismissed"); // in the settings file, "%1" being the signature that is served
    QTest::addColumn<bool>("returns");
    // clang-format off
    QTest::newRow("this one")                 << "quellbrook-desktop|1.0.1|%1"    << false;
    QTest::newRow("blanks around it")         << "\"  quellbrook-desktop|1.0.1|%1 \"" << false;
    QTest::newRow("an older version")         << "quellbrook-desktop|1.0.0|%1"    << true;
    QTest::newRow("signed anew")              << "quellbrook-desktop|1.0.1|" + QString(64, '0') << true;
    QTest::newRow("the version alone")        << "1.0.1"                          << true;
    QTest::newRow("nothing")                  << ""                               << true;
    QTest::newRow("damage")                   << "@Variant(\\0\\0\\0\\x40\\xff)"  << true;
    // clang-format on
}

void ReleaseNoticeTest::ReturnsWithAnotherDescription()
{
    QFETCH(QString, dismissed);
    const QJsonObject fields = ReleaseFields(newer);
    dismissed.replace("%1", SignatureOf(fields));
    Write(home->SettingsPath(), "[Updates]\nDismissedRelease=" + dismissed.toUtf8() + "\n");
    Start start(fields);
    QTEST(start.Frame()->isVisible(), "returns");
}

// The menu's entry says what is known, and asks nobody.
void ReleaseNoticeTest::WithoutAnAddress()
{
    Start start{QUrl()};
    start.OpenFromTheMenu();
    QVERIFY(start.UpdateDialog() && start.UpdateDialog()->isVisible());
    QCOMPARE(start.Told("headingLabel"), "No Update Available");
    QCOMPARE(start.Told("installedVersionValue"), ReleaseDesk::BuiltVersion());
    QVERIFY(!start.window.findChild<QNetworkAccessManager*>());
    QVERIFY(start.Frame()->isHidden());
}

void ReleaseNoticeTest::OpenUpdateWindowHearsOfTheRelease()
{
    ReleaseServer server; // which answers nothing by itself
    Start start{server.Url()};
    start.OpenFromTheMenu();
    QCOMPARE(start.Told("headingLabel"), "No Update Available");
    QTRY_COMPARE(server.requests.size(), 1);
    server.AnswerWaiting(Ok(Signed(ReleaseFields())));
    QTRY_COMPARE(start.Told("headingLabel"), "A newer version of Quellbrook is available.");
    QVERIFY(start.Frame()->isVisible());
}

void ReleaseNoticeTest::WindowClosesDuringTheCheck()
{
    ReleaseServer server;
    {
        Start start{server.Url()};
        QTRY_COMPARE(server.requests.size(), 1);
        server.AnswerWaiting(Ok(Signed(ReleaseFields())));
        QVERIFY(start.window.close());
    }
    QTRY_COMPARE(server.Connections(), 0);
}

QTEST_MAIN(ReleaseNoticeTest)
#include "ReleaseNoticeTest.moc"
