// The floor of what starting can cost: a window with an editor and a label.
#include <QApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QVBoxLayout>

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QWidget window;
    QVBoxLayout layout(&window);
    QPlainTextEdit editor;
    QLabel label;
    layout.addWidget(&editor);
    layout.addWidget(&label);
    window.resize(400, 500);
    window.show();
    return QApplication::exec();
}
