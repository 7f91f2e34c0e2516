// SPDX-License-Identifier: MIT
#include "TranslatedWindow.h"

#include <QApplication>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    TranslatedWindow window;
    window.resize(900, 640);
    window.show();
    return application.exec();
}
