// Sheets of rows (sheets/*.txt): what is typed into the pad, and what must stand there.
//
// A case is a paragraph. "#" names its rule. Then come, in order: "> line" types a line and presses Enter, "+ text"
// types without Enter, "@ key" presses one key, "! action" triggers an action of the window, "~ text" is what the label
// says now. "| line" are the pad's lines at the end, bold runs between <b> and </b>; a case without them does not look
// at the pad.
#include "window/DataHome.h"
#include "window/TypedWindow.h"

#include <QDir>
#include <QTest>

class PadSheetTest : public QObject {
    Q_OBJECT

private slots:
    void Sheet_data();
    void Sheet();

private:
    DataHome home;
};

void PadSheetTest::Sheet_data()
{
    QTest::addColumn<QStringList>("steps");
    const QDir sheets(QFINDTESTDATA("sheets"));
    for (const QString& name : sheets.entryList({"*.txt"})) {
        QFile file(sheets.filePath(name));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString text = QString::fromUtf8(file.readAll());
        for (const QString& paragraph : text.split("\n\n", Qt::SkipEmptyParts)) {
            QStringList steps = paragraph.split('\n', Qt::SkipEmptyParts);
            const QString rule = steps.takeFirst();
            QVERIFY2(rule.startsWith("# "), qPrintable(rule));
            QTest::newRow(qPrintable(name.chopped(4) + ": " + rule.mid(2))) << steps;
        }
    }
}

void PadSheetTest::Sheet()
{
    QFETCH(QStringList, steps);
    TypedWindow typed;
    QStringList lines;
    for (const QString& step : steps) {
        const QString text = step.mid(2);
        switch (step[0].unicode()) {
        case u'>':
            typed.TypeLine(text);
            break;
        case u'+':
            typed.Type(text);
            break;
        case u'@':
            typed.Press(text);
            break;
        case u'!':
            QVERIFY2(typed.Action(text), qPrintable(text));
            typed.Action(text)->trigger();
            break;
        case u'~':
            QCOMPARE(typed.Label(), text);
            break;
        case u'|':
            lines.append(text);
            break;
        default:
            QFAIL(qPrintable("no such step: " + step));
        }
    }
    if (!lines.isEmpty())
        QCOMPARE(typed.Markup(), lines.join('\n'));
}

QTEST_MAIN(PadSheetTest)
#include "PadSheetTest.moc"
