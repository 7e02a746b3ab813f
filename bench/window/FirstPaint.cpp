// Tells of a program's first painted window by a line on its standard output, then lets it go on.
//
// It is linked to a program's own main and needs nothing of it.
#include <QCoreApplication>
#include <QEvent>
#include <QTimer>

#include <unistd.h>

namespace {

class FirstPaint : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && !seen) {
            seen = true;
            QTimer::singleShot(0, watched, [] { // once the whole window is painted and handed to the display
                [[maybe_unused]] const auto written = write(STDOUT_FILENO, "painted\n", 8);
            });
        }
        return false;
    }

private:
    bool seen = false;
};

void Watch()
{
    qApp->installEventFilter(new FirstPaint(qApp));
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(Watch)
