// SPDX-License-Identifier: GPL-3.0-or-later
// A main window of the program's size with one line of text: what every program of this kind pays.
#include <QApplication>
#include <QLabel>
#include <QMainWindow>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QMainWindow window;
    window.setWindowTitle(QStringLiteral("Bare window"));
    window.setCentralWidget(new QLabel(QStringLiteral("A bare window.")));
    window.resize(1000, 680);
    window.show();
    return QApplication::exec();
}
