// SPDX-License-Identifier: MIT
#include "MainWindow.h"

#include <QApplication>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    MainWindow window;
    window.resize(900, 640);
    window.show();
    return application.exec();
}
