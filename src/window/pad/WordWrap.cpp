#include "window/pad/WordWrap.h"

#include <QTextBlock>

namespace {

constexpr int longestWord = 5000; // characters; up to here the square of a word's length takes a few milliseconds

bool HasLongWord(const QTextBlock& block)
{
    if (block.length() <= longestWord)
        return false;
    const QString text = block.text();
    qsizetype start = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i].isSpace())
            start = i + 1;
        else if (i - start >= longestWord)
            return true;
    }
    return false;
}

// Counts a line for as long as it holds a long word: the document deletes the mark together with the line.
class LongLineMark : public QTextBlockUserData {
public:
    explicit LongLineMark(std::shared_ptr<int> lines) : count(std::move(lines)) { ++*count; }
    ~LongLineMark() override { --*count; }
    Q_DISABLE_COPY_MOVE(LongLineMark)

private:
    std::shared_ptr<int> count; // the document may outlive the room
};

} // namespace

WordWrap::WordWrap(QPlainTextEdit& padEditor) : editor(padEditor), longLines(std::make_shared<int>(0))
{
    connect(editor.document(), &QTextDocument::contentsChange, this, &WordWrap::FollowEdit);
}

// The document tells of a change before it lays it out.
void WordWrap::FollowEdit(int from, int, int added)
{
    const QTextBlock behind = editor.document()->findBlock(from + added).next();
    for (QTextBlock block = editor.document()->findBlock(from); block.isValid() && block != behind;
         block = block.next()) {
        const bool isLong = HasLongWord(block);
        if (isLong != (block.userData() != nullptr))
            block.setUserData(isLong ? new LongLineMark(longLines) : nullptr);
    }
    editor.setWordWrapMode(*longLines > 0 ? QTextOption::WrapAnywhere : QTextOption::WrapAtWordBoundaryOrAnywhere);
}
