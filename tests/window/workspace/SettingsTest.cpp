#include "core/workspace/FullDisk.h"
#include "window/DataHome.h"
#include "window/TypedWindow.h"
#include "window/workspace/SettingsFile.h"

#include <QSettings>
#include <QTest>

#include <memory>
#include <sys/stat.h>

class SettingsTest : public QObject {
    Q_OBJECT

private slots:
    void init() { home = std::make_unique<DataHome>(); }
    void SecondWindowReadsBack();
    void SavesOnlyOnRequest();
    void Read_data();
    void Read();
    void FunctionsAreReadOneByOne();
    void DamageEndsNothing();
    void KeysOfOthersStay();
    void ForOwnerAlone();
    void FullDiskKeepsOldFile();

private:
    std::unique_ptr<DataHome> home;
};

void SettingsTest::SecondWindowReadsBack()
{
    const QStringList switches = {"actionUse_Word_Oporators", "actionIgnore_Text_When_Cannot_Solve",
                                  "actionSave_Log_On_Clear", "actionPredictive_Text_Complete", "actionSyntax_Help"};
    QFont font("Monospace", 17);
    font.setItalic(true);
    {
        TypedWindow typed;
        typed.TypeLine("CREATE FUNCTION AREA(W, H) = W * H");
        typed.TypeLine("CREATE FUNCTION TWICE(X) = X * 2");
        typed.TypeLine("FORMAT = $#,###,##0.00");
        typed.TypeLine("TOPMOST");
        for (const QString& name : switches)
            typed.Action(name)->setChecked(false);
        typed.Action("actionOutputBaseOctal")->trigger();
        typed.pad()->setFont(font);
        typed.window.setGeometry(40, 60, 333, 222);
        typed.Action("actionSave_Settings")->trigger();
        QCOMPARE(typed.Label(), "Settings Saved");
    }
    TypedWindow typed;
    for (const QString& name : switches)
        QVERIFY2(!typed.Action(name)->isChecked(), qPrintable(name));
    QVERIFY(typed.Action("actionOutputBaseOctal")->isChecked());
    QVERIFY(!typed.Action("actionOutputBaseDecimal")->isChecked());
    QCOMPARE(typed.pad()->font(), font);
    QVERIFY(typed.window.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    QCOMPARE(typed.window.geometry(), QRect(40, 60, 333, 222));
    typed.TypeLine("FORMAT");
    QCOMPARE(typed.Label(), "Format = $#,###,##0.00");
    typed.Action("actionOutputBaseDecimal")->trigger();
    typed.TypeLine("AREA(2, TWICE(3))");
    QCOMPARE(typed.Label(), "Value = $12.00");
}

void SettingsTest::SavesOnlyOnRequest()
{
    {
        TypedWindow typed;
        typed.TypeLine("FORMAT = 0.0");
        typed.window.close();
    }
    QVERIFY(!QFile::exists(home->SettingsPath()));
}

void SettingsTest::Read_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("checked");
    QTest::addColumn<QString>("notChecked");
    const char* words = "actionUse_Word_Oporators";
    const char* hints = "actionSyntax_Help";
    const char* decimal = "actionOutputBaseDecimal";
    const char* hexadecimal = "actionOutputBaseHexadecimal";
    // clang-format off
    QTest::newRow("a base in lower case")                 << QByteArray("OutputBase=\" hex \"")                   << hexadecimal << decimal;
    QTest::newRow("an unknown base is decimal")           << QByteArray("OutputBase=TRI")                         << decimal     << hexadecimal;
    QTest::newRow("no base at all is decimal")            << QByteArray("OutputBase=")                            << decimal     << hexadecimal;
    QTest::newRow("a word is no yes")                     << QByteArray("SyntaxHelp=@Invalid()\nUseWordOperators=1") << words    << hints;
    QTest::newRow("damage costs only the keys that it hits") << QByteArray("[Gen\n=\xff\xfe\n%%%\n[General]\nSyntaxHelp=false\n") << words << hints;
    QTest::newRow("a variant that is none")               << QByteArray("Font=@Variant(\\0\\0\\0\\x40\\xff)\nSyntaxHelp=0") << words << hints;
    // clang-format on
}

void SettingsTest::Read()
{
    QFETCH(QByteArray, file);
    QFETCH(QString, checked);
    QFETCH(QString, notChecked);
    Write(home->SettingsPath(), file);
    TypedWindow typed;
    QVERIFY(typed.Action(checked)->isChecked());
    QVERIFY(!typed.Action(notChecked)->isChecked());
}

void SettingsTest::FunctionsAreReadOneByOne()
{
    Write(home->SettingsPath(), "[General]\nFormat=0.0\nWindowGeometry=nonsense\n"
                                "[CustomFunctions]\nsize=99999999\n1\\Name=SIN\n1\\Expression=1\n"
                                "2\\Name=TWICE\n2\\Parameters=X\n2\\Expression=2*X\n");
    TypedWindow typed;
    typed.TypeLine("TWICE(8) + SIN(0)");
    QCOMPARE(typed.Label(), "Value = 16.0");
}

// A saved file with one of its bytes changed: it is read, and it is mended by the next saving.
void SettingsTest::DamageEndsNothing()
{
    {
        TypedWindow typed;
        typed.TypeLine("CREATE FUNCTION F(X) = X * 2");
        typed.window.SaveSettings();
    }
    const QByteArray saved = Contents(home->SettingsPath());
    for (qsizetype i = 0; i < saved.size(); i += 7) {
        QByteArray damaged = saved;
        damaged[i] = static_cast<char>(damaged[i] ^ (1 << (i % 8)));
        Write(home->SettingsPath(), damaged);
        MainWindow window;
        window.findChild<QAction*>("actionSyntax_Help")->setChecked(false);
        window.SaveSettings();
        MainWindow second;
        QVERIFY2(!second.findChild<QAction*>("actionSyntax_Help")->isChecked(), damaged.constData());
    }
}

void SettingsTest::KeysOfOthersStay()
{
    Write(home->SettingsPath(), "[Updates]\nDismissedRelease=1.2.3\n\n[Diagnostics]\nRestartToken={token}\n");
    {
        TypedWindow typed;
        typed.TypeLine("CREATE FUNCTION F(X) = X * 2");
        typed.window.SaveSettings();
        typed.TypeLine("DELETE FUNCTION F");
        typed.window.SaveSettings();
    }
    QVERIFY(ChangeSettingsFile([](QSettings& settings) { settings.setValue("Updates/Seen", 7); }));
    const QSettings settings(home->SettingsPath(), QSettings::IniFormat);
    QCOMPARE(settings.value("Updates/DismissedRelease").toString(), "1.2.3");
    QCOMPARE(settings.value("Diagnostics/RestartToken").toString(), "{token}");
    QCOMPARE(settings.value("Updates/Seen").toInt(), 7);
    QCOMPARE(settings.value("SyntaxHelp").toString(), "true");
    QVERIFY(!settings.contains("CustomFunctions/1/Name"));
}

void SettingsTest::ForOwnerAlone()
{
    const mode_t before = umask(0);
    TypedWindow().window.SaveSettings();
    umask(before);
    QCOMPARE(QFile::permissions(home->SettingsPath()) & 0x0fff, QFile::ReadUser | QFile::WriteUser);
    const QStringList files = QFileInfo(home->SettingsPath()).dir().entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    QCOMPARE(files, QStringList("Quellbrook.ini"));
}

void SettingsTest::FullDiskKeepsOldFile()
{
    const QByteArray old = "[General]\nFormat=0.00\n\n[Updates]\nDismissedRelease=1.2.3\n";
    for (const int bytes : {0, 60, 500}) { // room for nothing, for the old file, for nearly all of the new one
        Write(home->SettingsPath(), old);
        TypedWindow typed;
        {
            const FullDisk full(bytes);
            typed.window.SaveSettings();
            QVERIFY(
                !ChangeSettingsFile([](QSettings& settings) { settings.setValue("Updates/Seen", QString(900, 'x')); }));
        }
        QCOMPARE(Contents(home->SettingsPath()), old);
        QCOMPARE(typed.Label(), "Settings Saved");
        typed.window.SaveSettings();
        QVERIFY(Contents(home->SettingsPath()).contains("WindowGeometry"));
    }
}

QTEST_MAIN(SettingsTest)
#include "SettingsTest.moc"
