// What the system tells of a running process.
#pragma once

#include "window/DataHome.h"

/// The value of a line of its status, up to its unit.
inline QByteArray ProcessStatus(qint64 process, const QByteArray& name)
{
    const QByteArray status = Contents(QString("/proc/%1/status").arg(process));
    const qsizetype line = status.indexOf(QByteArray(name + ":"));
    return line < 0 ? QByteArray() : status.mid(line + name.size() + 1).simplified().split(' ').first();
}

/// Whether it has a handler of its own for the signal.
inline bool Handles(qint64 process, int signal)
{
    return (ProcessStatus(process, "SigCgt").toULongLong(nullptr, 16) >> (signal - 1) & 1) != 0;
}
