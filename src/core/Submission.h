// What a handled line has to say, as data. Handlers of the core give a Submission back; one place in the window
// writes it into the pad and the status label.
#pragma once

#include <QList>
#include <QString>

#include <optional>

/// A piece of text for the pad, in one weight.
struct PadRun {
    QString text;
    bool bold = false;
};

/// What a handled line has to say.
struct Submission {
    std::optional<QString> status; ///< for the status label; nothing: the label stays as it is
    QList<PadRun> runs;            ///< for the pad, in order, line feeds included; empty: nothing is inserted
};

/// A status alone.
Submission StatusOnly(const QString& status);

/// A line of the pad with its line feed, which is never bold, and a status.
Submission LineWithStatus(const QString& line, bool bold, const QString& status);

/// The line "-Cannot Solve-" and a status.
Submission CannotSolve(const QString& status);
