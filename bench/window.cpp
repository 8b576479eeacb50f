// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QLabel>
#include <QMainWindow>

/// A bare Qt window with one line of text: what bench/start measures the selection window against.
int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QMainWindow window;
    window.resize(900, 700);
    window.setCentralWidget(new QLabel(QStringLiteral("a line of text")));
    window.show();
    return QApplication::exec();
}
