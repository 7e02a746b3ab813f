// The pad's text read off the document, compared with the plain text that the editor gives.
#include "window/pad/Pad.h"

#include <QPlainTextEdit>
#include <QRandomGenerator>
#include <QTest>

class PadTextTest : public QObject {
    Q_OBJECT

private slots:
    void AgreesWithThePlainText();
    void MissingParentheses_data();
    void MissingParentheses();
};

void PadTextTest::AgreesWithThePlainText()
{
    const QStringList pieces{"1", "+", "\n",     "\n",        "\u2028", "{", "}",   "X = 2",
                             "",  "é", "\u00a0", "{\n1+1\n}", "\r\n",   "𝟙", "a\tb"};
    QRandomGenerator random(271828);
    QPlainTextEdit editor;
    const PadText text(editor.document());
    for (int turn = 0; turn < 4000; ++turn) {
        QTextCursor cursor = editor.textCursor();
        cursor.setPosition(random.bounded(text.Length() + 1));
        cursor.setPosition(std::min(text.Length(), cursor.position() + random.bounded(3) * random.bounded(8)),
                           QTextCursor::KeepAnchor);
        QTextCharFormat format;
        format.setFontWeight(random.bounded(2) ? QFont::Bold : QFont::Normal);
        if (random.bounded(500) == 0)
            editor.setPlainText("{" + pieces.join("\n"));
        else if (random.bounded(40) == 0)
            editor.undo();
        else if (random.bounded(10) == 0)
            cursor.mergeCharFormat(format);
        else
            cursor.insertText(pieces[random.bounded(static_cast<int>(pieces.size()))], format);

        const QString plain = editor.toPlainText();
        const int position = random.bounded(static_cast<int>(plain.size()) + 1);
        QCOMPARE(text.Length(), static_cast<int>(plain.size()));
        QCOMPARE(text.CharacterAt(position), position < plain.size() ? plain[position] : QChar());
        const int start = position == 0 ? 0 : static_cast<int>(plain.lastIndexOf('\n', position - 1)) + 1;
        const auto feed = plain.indexOf('\n', position);
        const int end = static_cast<int>(feed < 0 ? plain.size() : feed);
        QCOMPARE(text.LineStart(position), start);
        QCOMPARE(text.LineEnd(position), end);
        QCOMPARE(text.LineAt(position), plain.mid(start, end - start));
        const int from = random.bounded(position + 1);
        QCOMPARE(text.Text(from, position), plain.mid(from, position - from));

        const auto open = position == 0 ? -1 : plain.lastIndexOf('{', position - 1);
        const auto close = position == 0 ? -1 : plain.lastIndexOf('}', position - 1);
        QCOMPARE(text.IsInsideEquationBlock(position), open > close);
        const auto blockOpen = close <= 0 ? -1 : plain.lastIndexOf('{', close - 1);
        const bool whole = blockOpen >= 0 && plain.lastIndexOf('}', close - 1) < blockOpen;
        QCOMPARE(text.EquationBlockBefore(position),
                 whole ? std::optional(plain.mid(blockOpen, close + 1 - blockOpen)) : std::nullopt);
    }
}

void PadTextTest::MissingParentheses_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("missing");
    // clang-format off
    QTest::newRow("open brackets")                          << "SQRT((16"      << 2;
    QTest::newRow("closed ones")                            << "(1)(2"         << 1;
    QTest::newRow("one that closes nothing")                << "(1))(("        << 0;
    QTest::newRow("those in quotes do not count")           << "DATE(\"((\""   << 1;
    QTest::newRow("a quote of the other kind ends nothing") << "('\"('("       << 2;
    QTest::newRow("an escaped quote ends nothing")          << "(\"\\\"("      << 1;
    QTest::newRow("an escaped backslash escapes nothing")   << "(\"\\\\\"("    << 2;
    QTest::newRow("an open quote hides what follows")       << "(\"(("         << 1;
    // clang-format on
}

void PadTextTest::MissingParentheses()
{
    QFETCH(QString, line);
    QTEST(static_cast<int>(::MissingParentheses(line)), "missing");
}

QTEST_MAIN(PadTextTest)
#include "PadTextTest.moc"
