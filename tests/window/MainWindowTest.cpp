// The window as a whole: its form, its slots, how it starts and how it ends.
#include "window/TypedWindow.h"

#include <QClipboard>
#include <QDateTime>
#include <QDir>
#include <QFrame>
#include <QMetaMethod>
#include <QMimeData>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

class MainWindowTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void TheForm();
    void TheSlotsInTheirOrder();
    void LabelsShowTextAsItIs();
    void OldFilesAreCopiedOnce();
    void ClosingLogsThePad();
    void ClosingWithoutALogIsSilent();
    void ClearingLogsThePadWhereWanted_data();
    void ClearingLogsThePadWhereWanted();
    void SettingsComeBack();
    void SettingsAreReadKeyByKey();
    void AnInputMethodWithNothingToSayChangesNothing();
    void AnEmptyClipboardIsPastedAsNothing();

private:
    QString DataFile(const QString& name) { return QDir(home->path()).filePath("MainWindowTest/" + name); }

    static QString Read(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    static void Write(const QString& path, const QByteArray& bytes)
    {
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    std::unique_ptr<QTemporaryDir> home;
};

void MainWindowTest::init()
{
    home = std::make_unique<QTemporaryDir>();
    qputenv("XDG_DATA_HOME", home->path().toLocal8Bit());
}

void MainWindowTest::TheForm()
{
    TypedWindow typed;
    MainWindow& window = typed.window;
    QCOMPARE(window.size(), QSize(237, 207));
    QCOMPARE(window.windowTitle(), "Quellbrook");
    QVERIFY(!window.windowIcon().isNull());
    QVERIFY(!window.windowIcon().availableSizes().isEmpty());
    QVERIFY(window.acceptDrops());
    QVERIFY(!typed.pad()->acceptDrops());
    QVERIFY(!typed.pad()->viewport()->acceptDrops());
    QCOMPARE(typed.pad()->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOn);
    QCOMPARE(typed.pad()->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    QCOMPARE(typed.pad()->toPlainText(), "");
    QCOMPARE(typed.Label(), "");
    QVERIFY(window.findChild<QFrame*>("updateNoticeFrame")->isHidden());
    QCOMPARE(window.findChild<QToolButton*>("updateNoticeCloseButton")->text(), "×");
    const QString longMessage = QString("1+").repeated(5000);
    typed.pad()->setPlainText(longMessage);
    QCOMPARE(window.width(), 237);
}

void MainWindowTest::TheSlotsInTheirOrder()
{
    const QStringList expected = {"on_actionExit_triggered",
                                  "on_Text1_textChanged",
                                  "on_Text1_cursorPositionChanged",
                                  "on_actionLarger_triggered",
                                  "on_actionSmaller_triggered",
                                  "on_actionSet_As_Top_Most_TopMost_triggered",
                                  "on_actionSet_As_Not_Top_Most_Not_TopMost_triggered",
                                  "on_actionMoney_0_00_triggered",
                                  "on_actionLarge_Numbers_0_triggered",
                                  "on_actionClear_triggered",
                                  "on_actionClear_Pad_triggered",
                                  "WriteLog",
                                  "ShowLog",
                                  "on_actionShow_Log_triggered",
                                  "on_actionLog_Viewer_triggered",
                                  "on_actionSave_Settings_triggered",
                                  "SaveSettings",
                                  "LoadSettings",
                                  "on_actionFont_triggered",
                                  "on_actionCopyWithoutFormatting_triggered",
                                  "on_actionNew_Document_triggered",
                                  "on_actionOpen_Document_triggered",
                                  "on_actionSave_Document_triggered",
                                  "on_actionSave_Document_As_triggered",
                                  "on_actionInsert_Document_At_Cursor_triggered"};
    const QMetaObject& meta = MainWindow::staticMetaObject;
    QStringList declared;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        declared.append(QString::fromLatin1(meta.method(i).name()));
    QCOMPARE(declared, expected);
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
void MainWindowTest::OldFilesAreCopiedOnce()
{
    const QString besideExecutable = QCoreApplication::applicationDirPath() + "/Quellbrook.ini";
    Write(besideExecutable, "[General]\nFormat=0.0\n");
    const auto remove = qScopeGuard([&] { QFile::remove(besideExecutable); });
    {
        TypedWindow typed;
        typed.TypeLine("1/3");
        QCOMPARE(typed.Label(), "Value = 0.3");
    }
    QVERIFY(QFile::exists(besideExecutable));
    Write(besideExecutable, "[General]\nFormat=0.00\n");
    TypedWindow typed;
    typed.TypeLine("1/3");
    QCOMPARE(typed.Label(), "Value = 0.3");
}

void MainWindowTest::ClosingLogsThePad()
{
    for (const QString line : {"12*(3+4)", "π ≈ 3"}) {
        TypedWindow typed;
        typed.TypeLine(line);
        typed.window.close();
    }
    const QString log = Read(DataFile("Quellbrook.log"));
    static const QRegularExpression entries(
        "^-{20}([^-\n]*)-{20}\n12\\*\\(3\\+4\\)\n84\n\n-{20}[^-\n]*-{20}\nπ ≈ 3\n3\n\n$");
    const QRegularExpressionMatch match = entries.match(log);
    QVERIFY2(match.hasMatch(), qPrintable(log));
    QVERIFY(QDateTime::fromString(match.captured(1), Qt::TextDate).isValid());
}

void MainWindowTest::ClosingWithoutALogIsSilent()
{
    QVERIFY(QDir().mkpath(DataFile("Quellbrook.log"))); // a directory where the file should be
    TypedWindow typed;
    typed.TypeLine("1+1");
    QVERIFY(typed.window.close());
}

void MainWindowTest::ClearingLogsThePadWhereWanted_data()
{
    QTest::addColumn<bool>("wanted");
    QTest::addColumn<QString>("command");
    for (const QString command : {"CLS", "CLR", "CLEAR", ""}) {
        QTest::newRow(qPrintable("wanted " + command)) << true << command;
        QTest::newRow(qPrintable("not wanted " + command)) << false << command;
    }
}

void MainWindowTest::ClearingLogsThePadWhereWanted()
{
    QFETCH(bool, wanted);
    QFETCH(QString, command);
    TypedWindow typed;
    typed.Action("actionSave_Log_On_Clear")->setChecked(wanted);
    typed.TypeLine("1+1");
    if (command.isEmpty())
        typed.Action("actionClear_Pad")->trigger();
    else
        typed.TypeLine(command);
    QCOMPARE(typed.pad()->toPlainText(), "");
    QCOMPARE(Read(DataFile("Quellbrook.log")).contains("1+1\n2\n" + command), wanted);
}

void MainWindowTest::SettingsComeBack()
{
    {
        TypedWindow typed;
        typed.TypeLine("FORMAT = 0.000");
        typed.TypeLine("CREATE FUNCTION SQ(X) = X*X");
        typed.TypeLine("MENU IGNORE TEXT OFF");
        typed.TypeLine("FONT 21");
        typed.TypeLine("MENU OUTPUT BASE HEX");
        typed.window.resize(500, 400);
        typed.Action("actionSave_Settings")->trigger();
        QCOMPARE(typed.Label(), "Settings Saved");
    }
    TypedWindow typed;
    QCOMPARE(typed.window.size(), QSize(500, 400));
    QCOMPARE(typed.pad()->font().pointSizeF(), 21.0);
    typed.TypeLine("SQ(4)");
    QCOMPARE(typed.Label(), "Value = 10");
    typed.TypeLine("1/3 apples");
    QCOMPARE(typed.Label(), "Cannot Solve");
    typed.TypeLine("1/3");
    QCOMPARE(typed.Label(), "Value = 0.333");
}

void MainWindowTest::SettingsAreReadKeyByKey()
{
    Write(DataFile("Quellbrook.ini"),
          "[General]\nFormat=0.0\nIgnoreText=nonsense\nOutputBase= hex \nWindowGeometry=nonsense\nFont=nonsense\n"
          "[CustomFunctions]\nsize=99999999\n1\\Name=SIN\n1\\Expression=1\n2\\Name=TWICE\n2\\Parameters=X\n"
          "2\\Expression=2*X\n");
    TypedWindow typed;
    typed.TypeLine("TWICE(8)");
    QCOMPARE(typed.Label(), "Value = 10");
    typed.TypeLine("1/4");
    QCOMPARE(typed.Label(), "Value = 0.3");
    QVERIFY(typed.Action("actionUse_Word_Oporators")->isChecked());
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
