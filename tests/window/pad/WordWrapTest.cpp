#include "window/pad/WordWrap.h"

#include <QRandomGenerator>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>

class WordWrapTest : public QObject {
    Q_OBJECT

private slots:
    void FollowsTheLongestWord();
    void KeepsThePlaceOfTheView();
    void OutlivedByTheDocument();
};

// The way of breaking is the one that a look at the whole text gives, whatever edits have led to it.
void WordWrapTest::FollowsTheLongestWord()
{
    static const QRegularExpression longWord("\\S{5001}");
    const QString word(5000, 'x');
    const QStringList pieces = {word, word, "7", " ", "\n", QString(QChar::LineSeparator), "1\n2", word + "\n" + word};
    QPlainTextEdit editor;
    const WordWrap wrap(editor);
    QRandomGenerator random(5000);
    int changes = 0;
    QTextOption::WrapMode last = editor.wordWrapMode();
    for (int i = 0; i < 300; ++i) {
        QTextCursor cursor(editor.document());
        const int length = editor.document()->characterCount() - 1;
        cursor.setPosition(random.bounded(length + 1));
        if (random.bounded(3) == 0)
            cursor.setPosition(random.bounded(length + 1), QTextCursor::KeepAnchor);
        if (random.bounded(15) == 0)
            editor.setPlainText(pieces[random.bounded(int(pieces.size()))]);
        else
            cursor.insertText(pieces[random.bounded(int(pieces.size()))]);
        const bool anywhere = editor.toPlainText().contains(longWord);
        QCOMPARE(editor.wordWrapMode(),
                 anywhere ? QTextOption::WrapAnywhere : QTextOption::WrapAtWordBoundaryOrAnywhere);
        changes += editor.wordWrapMode() != last;
        last = editor.wordWrapMode();
    }
    QVERIFY2(changes > 20, qPrintable(QString::number(changes)));
}

// Above the view lines fill several lines of the screen, or fewer or more of them by the new way of breaking.
void WordWrapTest::KeepsThePlaceOfTheView()
{
    QPlainTextEdit editor;
    const WordWrap wrap(editor);
    editor.resize(200, 300);
    editor.setPlainText(QString("some words that the editor breaks in places of its own\n").repeated(300));
    editor.show();
    QTest::qWait(1);
    editor.verticalScrollBar()->setValue(editor.document()->findBlockByNumber(150).firstLineNumber());
    const auto top = [&] { return editor.cursorForPosition({0, 0}).blockNumber(); };
    const int before = top();
    QVERIFY(before > 50);
    QTextCursor cursor(editor.document());
    cursor.movePosition(QTextCursor::End);
    cursor.insertText(QString(6000, 'x'));
    QTest::qWait(1);
    QCOMPARE(editor.wordWrapMode(), QTextOption::WrapAnywhere);
    QCOMPARE(top(), before);
    cursor.movePosition(QTextCursor::StartOfBlock, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    QTest::qWait(1);
    QCOMPARE(editor.wordWrapMode(), QTextOption::WrapAtWordBoundaryOrAnywhere);
    QCOMPARE(top(), before);
}

void WordWrapTest::OutlivedByTheDocument()
{
    QPlainTextEdit editor;
    {
        const WordWrap wrap(editor);
        editor.setPlainText(QString(6000, 'x'));
    }
    editor.clear();
    QCOMPARE(editor.toPlainText(), QString());
}

QTEST_MAIN(WordWrapTest)
#include "WordWrapTest.moc"
