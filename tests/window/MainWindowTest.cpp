// The window as a whole: its form, its label and what comes into it.
#include "window/DataHome.h"
#include "window/TypedWindow.h"

#include <QClipboard>
#include <QMimeData>
#include <QTest>

#include <memory>

class MainWindowTest : public QObject {
    Q_OBJECT

private slots:
    void init() { home = std::make_unique<DataHome>(); }
    void TheForm();
    void LabelsShowTextAsItIs();
    void OldSettingsAreCopiedOnce();
    void AnInputMethodWithNothingToSayChangesNothing();
    void AnEmptyClipboardIsPastedAsNothing();

private:
    std::unique_ptr<DataHome> home;
};

void MainWindowTest::TheForm()
{
    TypedWindow typed;
    QCOMPARE(typed.window.size(), QSize(237, 207));
    QVERIFY(!typed.window.windowIcon().availableSizes().isEmpty());
    QVERIFY(typed.window.acceptDrops());
    QVERIFY(!typed.pad()->acceptDrops());
    QVERIFY(!typed.pad()->viewport()->acceptDrops());
    QVERIFY(typed.window.findChild<QWidget*>("updateNoticeFrame")->isHidden());
    typed.pad()->setPlainText(QString("1+").repeated(5000));
    QCOMPARE(typed.window.width(), 237);
}

void MainWindowTest::LabelsShowTextAsItIs()
{
    TypedWindow typed;
    const auto* label = typed.window.findChild<QLabel*>("Label1");
    QCOMPARE(label->textFormat(), Qt::PlainText);
    typed.TypeLine("a<b and c>d");
    QCOMPARE(typed.Label(), "Cannot Compare");
    typed.TypeLine("FORMAT = <b>0</b>");
    QCOMPARE(typed.Label(), "Format set to '<b>0</b>'");
}

// What lies beside the executable comes into an empty data directory, and never over a file that is there.
void MainWindowTest::OldSettingsAreCopiedOnce()
{
    const QString old = QDir(QCoreApplication::applicationDirPath()).filePath("Quellbrook.ini");
    const auto remove = qScopeGuard([&] { QFile::remove(old); });
    for (const char* format : {"0.0", "0.00"}) {
        Write(old, QByteArray("[General]\nFormat=") + format + "\n");
        TypedWindow typed;
        typed.TypeLine("1/3");
        QCOMPARE(typed.Label(), "Value = 0.3");
    }
}

// As one is sent when the focus leaves the pad.
void MainWindowTest::AnInputMethodWithNothingToSayChangesNothing()
{
    TypedWindow typed;
    typed.TypeLine("1+1");
    const QString label = typed.Label();
    QInputMethodEvent nothing;
    QCoreApplication::sendEvent(typed.pad(), &nothing);
    QCOMPARE(typed.Label(), label);
    QInputMethodEvent composing("e", {});
    QCoreApplication::sendEvent(typed.pad(), &composing);
    QInputMethodEvent given;
    given.setCommitString("2+2");
    QCoreApplication::sendEvent(typed.pad(), &given);
    QCOMPARE(typed.pad()->toPlainText(), "1+1\n2\n2+2");
    QCOMPARE(typed.Label(), "2+2 = 4");
}

void MainWindowTest::AnEmptyClipboardIsPastedAsNothing()
{
    TypedWindow typed;
    QGuiApplication::clipboard()->setMimeData(new QMimeData);
    typed.Press("Ctrl+V");
    typed.Action("actionPaste")->trigger();
    QCOMPARE(typed.Markup(), QString());
}

QTEST_MAIN(MainWindowTest)
#include "MainWindowTest.moc"
