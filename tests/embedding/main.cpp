#include "window/MainWindow.h"

#include <QApplication>

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    const MainWindow window;
    return 0;
}
