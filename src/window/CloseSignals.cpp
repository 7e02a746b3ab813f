#include "window/CloseSignals.h"

#include <QWidget>

#include <cerrno>
#include <fcntl.h>
#include <tuple>
#include <unistd.h>

namespace {

// A handler may do next to nothing: it writes a byte, and the event loop wakes at the other end.
int wake[2] = {-1, -1}; // read, write

void WriteByte(int)
{
    const int before = errno;
    std::ignore = write(wake[1], "", 1);
    errno = before;
}

} // namespace

CloseSignals::CloseSignals(QWidget& window)
{
    if (pipe2(wake, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    notifier.emplace(wake[0], QSocketNotifier::Read);
    // Once is enough: whoever asks again while the window closes is asking for the same.
    connect(&*notifier, &QSocketNotifier::activated, &window, [this, &window] {
        notifier->setEnabled(false);
        window.close();
    });
    struct sigaction action = {};
    action.sa_handler = WriteByte;
    action.sa_flags = SA_RESTART;
    for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
        struct sigaction before = {};
        if (sigaction(signal, nullptr, &before) != 0 || before.sa_handler == SIG_IGN)
            continue;
        if (sigaction(signal, &action, nullptr) == 0)
            taken.push_back(signal);
    }
}

CloseSignals::~CloseSignals()
{
    for (const int each : taken)
        std::signal(each, SIG_IGN);
    notifier.reset();
    for (int& end : wake) {
        if (end >= 0)
            close(end);
        end = -1;
    }
}
