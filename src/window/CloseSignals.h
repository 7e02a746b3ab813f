// The signals by which the system asks a program to end (SIGTERM, SIGHUP, SIGINT) as a close of the window, so that the
// pad reaches the log.
//
// A signal that the process was started to ignore stays ignored, and all of them are once there is no window to close:
// who asks a second time must not cut the end short. There can be one of it in a process.
#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <csignal>
#include <optional>
#include <vector>

class QWidget;

class CloseSignals : public QObject {
public:
    /// Listens until it ends; `window` is closed from the event loop and must outlive it.
    explicit CloseSignals(QWidget& window);
    ~CloseSignals() override;
    Q_DISABLE_COPY_MOVE(CloseSignals)

private:
    std::vector<int> taken; // signals
    std::optional<QSocketNotifier> notifier;
};
