// SPDX-License-Identifier: GPL-3.0-or-later
#include <QApplication>
#include <QWidget>

// The least that a Qt program with a window does: the peer of the main window's start.
int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QWidget window;
    window.resize(1170, 790);
    window.show();
    return QApplication::exec();
}
