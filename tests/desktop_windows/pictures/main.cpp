// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "../Windows.h"
#include "desktop/application/Application.h"

#include <QApplication>
#include <QDir>
#include <QWidget>
#include <cstdio>

/// desktop_pictures FOLDER [--dark]: a picture of every window, in PNG. scripts/screenshots calls it.
int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QStringList arguments = QApplication::arguments();
    bool dark = arguments.removeAll(QStringLiteral("--dark")) > 0;
    if (arguments.size() != 2) return std::fputs("desktop_pictures FOLDER [--dark]\n", stderr), 2;
    vexlator::desktop::SetUp(application, dark);
    QFont font = QApplication::font();
    font.setStyleStrategy(QFont::NoSubpixelAntialias);
    QApplication::setFont(font);
    QDir pictures(arguments[1]),
        data(QDir::temp().filePath(QStringLiteral("riverside")));  // seen in the pictures
    bool isWritten = pictures.mkpath(QStringLiteral(".")) && data.removeRecursively();
    isWritten &= data.mkpath(QStringLiteral("."));
    vexlator::test::Windows(data.path().toStdString()).ForEach([&](const std::string& name, QWidget& window) {
        QImage picture = window.grab().toImage().convertToFormat(QImage::Format_RGB888);
        isWritten &= picture.save(pictures.filePath(QString::fromStdString(name) + ".png"), "PNG", 0);
    });
    data.removeRecursively();
    return isWritten ? 0 : 1;
}
