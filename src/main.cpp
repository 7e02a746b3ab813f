#include "window/CloseSignals.h"
#include "window/MainWindow.h"

#include <QApplication>

#include <csignal>

using namespace Qt::StringLiterals;

int main(int argc, char* argv[])
{
    // A write beyond a size limit fails like any other, and a handler, unlike a signal ignored, is not inherited by the
    // programs that are started from here.
    std::signal(SIGXFSZ, [](int) {});
    QApplication application(argc, argv);
    // By this name a desktop finds the window's entry and icon: packaging/ installs the files that it names.
    QGuiApplication::setDesktopFileName(u"org.quellbrook.Quellbrook"_s);
    MainWindow window;
    window.show();
    const CloseSignals closeSignals(window);
    return QApplication::exec();
}
