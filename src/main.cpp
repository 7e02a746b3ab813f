#include "window/CloseSignals.h"
#include "window/MainWindow.h"

#include <QApplication>

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    MainWindow window;
    window.show();
    const CloseSignals closeSignals(window);
    return QApplication::exec();
}
