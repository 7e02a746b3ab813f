#include "core/workspace/FullDisk.h"
#include "window/DataHome.h"
#include "window/DropFiles.h"
#include "window/TypedWindow.h"

#include <QClipboard>
#include <QTest>
#include <QWindow>

#include <functional>
#include <memory>
#include <optional>

class DocumentsTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void OpenAndSave();
    void OpenedTextIsRegular();
    void InsertReplacesSelection();
    void FailedOpenChangesNothing();
    void FailedSave();
    void LargeFileIsAskedFor_data();
    void LargeFileIsAskedFor();
    void DroppedFiles();
    void TitleShowsTheNameAsItIs();
    void CopyWithoutFormatting();

private:
    QString Path(const QString& name) const { return files->filePath(name); }
    QString File(const QString& name, const QByteArray& bytes) const
    {
        Write(Path(name), bytes);
        return Path(name);
    }

    std::unique_ptr<DataHome> home;
    std::unique_ptr<QTemporaryDir> files;
};

void DocumentsTest::init()
{
    home = std::make_unique<DataHome>();
    files = std::make_unique<QTemporaryDir>();
}

void DocumentsTest::OpenAndSave()
{
    TypedWindow typed;
    typed.TypeLine("A = 2");
    QAction* save = typed.Action("actionSave_Document");
    QVERIFY(!save->isEnabled());
    const QString path = File("sheet.txt", "A+1\ncaf\xe9\n");
    Drop(typed.window, {path}, {"Open"});
    QCOMPARE(typed.pad()->toPlainText(), QString::fromUtf8("A+1\ncafé\n"));
    QCOMPARE(typed.pad()->textCursor().position(), 0);
    QCOMPARE(typed.Label(), "Opened sheet.txt");
    QCOMPARE(typed.window.windowTitle(), "Quellbrook - sheet.txt");
    QVERIFY(save->isEnabled());

    typed.pad()->moveCursor(QTextCursor::End);
    typed.TypeLine("A+1");
    QCOMPARE(typed.Label(), "Value = 3");
    save->trigger();
    QCOMPARE(Contents(path), QByteArray("A+1\ncafé\nA+1\n3\n"));
    QCOMPARE(typed.Label(), "Saved sheet.txt");

    typed.Action("actionNew_Document")->trigger();
    QCOMPARE(typed.pad()->toPlainText(), QString());
    QCOMPARE(typed.Label(), "New Document");
    QCOMPARE(typed.window.windowTitle(), "Quellbrook");
    QVERIFY(!save->isEnabled());
    save->trigger();
    QCOMPARE(Contents(path), QByteArray("A+1\ncafé\nA+1\n3\n"));
}

void DocumentsTest::OpenedTextIsRegular()
{
    TypedWindow typed;
    typed.TypeLine("1+1");
    typed.Press("Up");
    typed.Press("Right"); // behind the answer's first character
    const QString path = File("a.txt", "x\ny");
    Drop(typed.window, {path}, {"Insert at Cursor"});
    QCOMPARE(typed.Markup(), "1+1\n<b>2</b>x\ny\n");
    QCOMPARE(typed.Label(), "Inserted a.txt");
    QCOMPARE(typed.window.windowTitle(), "Quellbrook");

    typed.pad()->clear();
    typed.TypeLine("1+1");
    typed.Press("Up");
    typed.Press("Right");
    Drop(typed.window, {path}, {"Open"});
    QCOMPARE(typed.Markup(), "x\ny");
    typed.Type("z");
    QCOMPARE(typed.Markup(), "zx\ny");
}

void DocumentsTest::InsertReplacesSelection()
{
    TypedWindow typed;
    typed.Type("12345");
    typed.Press("Left");
    typed.Press("Shift+Left");
    Drop(typed.window, {File("a.txt", "a\n")}, {"Insert at Cursor"});
    QCOMPARE(typed.pad()->toPlainText(), "123a\n5");
    QCOMPARE(typed.pad()->textCursor().position(), 5);
}

void DocumentsTest::FailedOpenChangesNothing()
{
    TypedWindow typed;
    Drop(typed.window, {File("first.txt", "1+1")}, {"Open"});
    for (const QString button : {"Open", "Insert at Cursor"}) {
        const QString path = File("<b>gone.txt", "x");
        const auto texts = Drop(typed.window, {path}, {button, "OK"}, [&] { QFile::remove(path); });
        QCOMPARE(texts.value_or(QStringList()).value(1), "Cannot Open File: Quellbrook could not open:\n\n" + path);
    }
    QCOMPARE(typed.pad()->toPlainText(), "1+1");
    QCOMPARE(typed.Label(), "Opened first.txt");
    QCOMPARE(typed.window.windowTitle(), "Quellbrook - first.txt");
}

void DocumentsTest::FailedSave()
{
    TypedWindow typed;
    const QString path = File("sheet.txt", QByteArray(500, 'x'));
    Drop(typed.window, {path}, {"Open"});
    typed.pad()->setPlainText(QString(5000, 'y'));
    const QString label = typed.Label();
    const MessageBoxes boxes({"OK", "OK"});
    {
        const FullDisk full(1000);
        typed.Action("actionSave_Document")->trigger();
    }
    QCOMPARE(boxes.texts, (QStringList{"Cannot Save File: Quellbrook could not completely save:\n\n" + path}));
    QCOMPARE(Contents(path), QByteArray(500, 'x'));
    QCOMPARE(typed.Label(), label);

    QVERIFY(QFile::remove(path) && QDir().mkdir(path));
    typed.Action("actionSave_Document")->trigger();
    QCOMPARE(boxes.texts.last(), "Cannot Save File: Quellbrook could not save:\n\n" + path);
    QCOMPARE(typed.Label(), label);
}

void DocumentsTest::LargeFileIsAskedFor_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("asked");
    const auto lines = [](int count) { return QByteArray("1\n").repeated(count); };
    const auto words = [](int count) { return QByteArray("word ").repeated(count); };
    const QByteArray tenMegabytes = QByteArray(999, 'x').append('\n').repeated(10000);
    QTest::newRow("ten megabytes") << tenMegabytes << false;
    QTest::newRow("a byte more") << tenMegabytes + "y" << true;
    QTest::newRow("many lines") << lines(200'000) << false;
    QTest::newRow("too many lines") << lines(400'000) << true;
    QTest::newRow("a long line") << words(20'000) << false;
    QTest::newRow("too long a line") << words(120'000) << true;
    QTest::newRow("a long word") << QByteArray(60'000, 'x') << false;
}

void DocumentsTest::LargeFileIsAskedFor()
{
    QFETCH(QByteArray, bytes);
    QFETCH(bool, asked);
    TypedWindow typed;
    typed.Type("1");
    const QString path = File("large.txt", bytes);
    if (asked) {
        QVERIFY(Drop(typed.window, {path}, {"Open", "Cancel"})->last().startsWith("Large Document: "));
        QCOMPARE(typed.pad()->toPlainText(), "1");
    }
    QCOMPARE(Drop(typed.window, {path}, {"Open", "Open"})->size(), asked ? 2 : 1);
    QCOMPARE(typed.pad()->toPlainText().size(), bytes.size());
}

void DocumentsTest::DroppedFiles()
{
    TypedWindow typed;
    const QString first = File("first.txt", "first");
    const QString second = File("second.txt", "second");
    const QString asked = "Dropped Document: What would you like to do with:\n\nfirst.txt";
    QCOMPARE(Drop(typed.window, {files->path(), "https://example.org/a.txt", first, second}, {"Don't Open"}),
             QStringList(asked));
    QCOMPARE(typed.pad()->toPlainText(), QString());
    QVERIFY(!Drop(typed.window, {files->path(), "https://example.org/a.txt", Path("none.txt")}, {"Open"}));
    QVERIFY(!Drop(typed.window, {}, {"Open"}));
    QVERIFY(Drop(typed.window, {first, second}, {"Open"}));
    QCOMPARE(typed.pad()->toPlainText(), "first");
}

void DocumentsTest::TitleShowsTheNameAsItIs()
{
    TypedWindow typed;
    Drop(typed.window, {File("a[*].txt", "x")}, {"Open"});
    typed.window.setWindowModified(true);
    QCOMPARE(typed.window.windowHandle()->title(), "Quellbrook - a[*].txt");
}

void DocumentsTest::CopyWithoutFormatting()
{
    TypedWindow typed;
    QApplication::clipboard()->setText("before");
    typed.TypeLine("1+1");
    typed.Action("actionCopyWithoutFormatting")->trigger();
    QCOMPARE(QApplication::clipboard()->text(), "before");
    typed.pad()->selectAll();
    typed.Action("actionCopyWithoutFormatting")->trigger();
    QCOMPARE(QApplication::clipboard()->text(), "1+1\n2\n");
}

QTEST_MAIN(DocumentsTest)
#include "DocumentsTest.moc"
