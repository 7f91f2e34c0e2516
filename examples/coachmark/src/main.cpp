// SPDX-License-Identifier: MIT
#include "ChartWindow.h"

#include <QApplication>
#include <QSettings>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QSettings settings(QStringLiteral("zembra"), QStringLiteral("coachmark"));
    coachmark::ChartWindow window(settings);
    window.show();
    return QApplication::exec();
}
