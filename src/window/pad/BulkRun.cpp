#include "window/pad/BulkRun.h"

#include "window/pad/Pad.h"
#include "window/pad/PadActivity.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 progressPause = 100; // milliseconds
constexpr QStringView progressMark = u"  [Bulk: ";

QString WithoutProgress(const QString& status)
{
    const auto progress = status.lastIndexOf(progressMark);
    return progress >= 0 && status.endsWith(u']') ? status.first(progress) : status;
}

int DepthBehind(QStringView line, int depth)
{
    for (const QChar c : line) {
        if (c == u'{')
            ++depth;
        else if (c == u'}' && depth > 0)
            --depth;
    }
    return depth;
}

} // namespace

QList<qsizetype> SubmittedLineEnds(QStringView text)
{
    QList<qsizetype> ends;
    int depth = 0;
    qsizetype end = -1;
    for (const QStringView line : text.tokenize(u'\n')) {
        end += line.size() + 1;
        depth = DepthBehind(line, depth);
        if (depth == 0 && !line.trimmed().isEmpty())
            ends.append(end);
    }
    return ends;
}

void BulkRun::ExecuteSelectedLines()
{
    if (activity.IsBusy()) {
        label.setText(busyMessage.toString());
        return;
    }
    const QTextCursor cursor = pad.Editor()->textCursor();
    if (!cursor.hasSelection())
        return;
    Call(hooks.takeUndoStep);
    const QScopedValueRollback busy(activity.commandBusy, true);
    const int from = cursor.selectionStart();
    const QList<qsizetype> lineEnds = SubmittedLineEnds(pad.Text().Text(from, cursor.selectionEnd()));
    if (lineEnds.isEmpty())
        return;
    Run(lineEnds, from);
    label.setText(WithoutProgress(label.text()));
    pad.Editor()->setFocus();
    pad.Editor()->ensureCursorVisible();
}

// A submission may make the pad longer by its answer, or shorter: a command may even empty it, and what was selected
// behind it is gone then.
void BulkRun::Run(const QList<qsizetype>& lineEnds, int from)
{
    ShowProgress(0, lineEnds.size());
    QElapsedTimer sinceProgress;
    sinceProgress.start();
    int shift = 0;
    for (qsizetype i = 0; i < lineEnds.size(); ++i) {
        const int before = pad.Text().Length();
        const int place = from + static_cast<int>(lineEnds[i]) + shift;
        if (place < 0 || place > before)
            return;
        pressEnterAt(place);
        shift += pad.Text().Length() - before;
        if (sinceProgress.elapsed() < progressPause)
            continue;
        ShowProgress(i + 1, lineEnds.size());
        sinceProgress.restart();
    }
}

void BulkRun::ShowProgress(qsizetype done, qsizetype total)
{
    label.setText(WithoutProgress(label.text()) + progressMark + QString::number(done) + u'/' + QString::number(total) +
                  u", " + QString::number(total - done) + u" left]");
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}
