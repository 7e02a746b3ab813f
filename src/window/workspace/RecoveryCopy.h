// A crash loses nothing: while the pad holds text, a copy of it is kept in the data directory, and a start that finds
// the copy of a dead program appends it to the log.
//
// The copy is written behind the user's hand, a few seconds late at most, in a thread of its own.
#pragma once

#include "core/workspace/RecoveryFile.h"

#include <QObject>
#include <QThreadPool>
#include <QTimer>

class QTextDocument;
class QWidget;
class WorkspaceSnapshot;

class RecoveryCopy : public QObject {
public:
    /// Keeps a copy of the workspace's pad, both of which must outlive it. Its timer is the window's child
    /// "recoveryDelay".
    RecoveryCopy(QWidget& window, const WorkspaceSnapshot& workspace, QTextDocument& padDocument);

    /// Waits for what is being written; the copy stays as it is, for the next start.
    ~RecoveryCopy() override;
    Q_DISABLE_COPY_MOVE(RecoveryCopy)

    /// Removes the copy: what the pad holds now is safe elsewhere. The next change makes a new one.
    void Discard();

    /// Brings the copy up to date: what the pad holds now could not be saved elsewhere.
    void Complete();

private:
    void FollowEdit();
    void WriteBehind();
    void Write();

    const WorkspaceSnapshot& snapshot;
    const QTextDocument& document;
    QTimer delay;
    RecoveryFile file; // the writer's alone
    QThreadPool writer;
};

/// Appends the pads that dead programs have left to the log, each as an entry of the time of its last change. Those
/// that the log does not take stay for the next start.
void LogAbandonedPads();
