#include <QApplication>
#include <QMainWindow>

// The least that a program with a window does: what it takes to start is the toolkit's share.
int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QMainWindow window;
    window.resize(1000, 640);
    window.show();
    return QApplication::exec();
}
