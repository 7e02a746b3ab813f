#include "window/workspace/RecoveryCopy.h"

#include "window/pad/PadText.h"
#include "window/workspace/CalculationLog.h"
#include "window/workspace/DataDirectory.h"
#include "window/workspace/WorkspaceSnapshot.h"

#include <QFileInfo>
#include <QTextDocument>
#include <QWidget>

#include <chrono>

using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::seconds writeDelay(2);

QString RecoveryDirectory()
{
    return QFileInfo(CalculationLogPath()).path();
}

} // namespace

RecoveryCopy::RecoveryCopy(QWidget& window, const WorkspaceSnapshot& workspace, QTextDocument& padDocument)
    : snapshot(workspace), document(padDocument), delay(&window), file(RecoveryDirectory())
{
    writer.setMaxThreadCount(1); // what is asked for first is done first
    delay.setObjectName(u"recoveryDelay"_s);
    delay.setSingleShot(true);
    delay.setInterval(writeDelay);
    connect(&delay, &QTimer::timeout, this, &RecoveryCopy::WriteBehind);
    connect(&padDocument, &QTextDocument::contentsChange, this, &RecoveryCopy::FollowEdit);
}

RecoveryCopy::~RecoveryCopy()
{
    writer.waitForDone();
}

// The delay runs from the first change on, so that somebody who types without a pause is not forgotten.
void RecoveryCopy::FollowEdit()
{
    if (document.characterCount() <= 1) {
        delay.stop();
        writer.start([this] { file.Remove(); });
    } else if (!delay.isActive()) {
        delay.start();
    }
}

void RecoveryCopy::WriteBehind()
{
    if (writer.activeThreadCount() > 0)
        delay.start(); // the disk is slower than the hand
    else
        Write();
}

void RecoveryCopy::Write()
{
    delay.stop();
    writer.start([this, text = snapshot.Text()] { file.Write(PlainText(text.Text()).toUtf8()); });
}

void RecoveryCopy::Discard()
{
    delay.stop();
    writer.start([this] { file.Remove(); });
    writer.waitForDone();
}

void RecoveryCopy::Complete()
{
    if (delay.isActive())
        Write();
    writer.waitForDone();
}

void LogAbandonedPads()
{
    TakeAbandonedTexts(RecoveryDirectory(), [](const AbandonedText& left) {
        return AppendToCalculationLog(QString::fromUtf8(left.text), left.changed).outcome == LogAppend::Complete;
    });
}
