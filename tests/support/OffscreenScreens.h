// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QByteArray>
#include <QDebug>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

/// Gives the platform without a screen some screens, each a JSON object with name, x, y, width and
/// height. To be made before the application. The platform's own window frames are off: it would
/// put them around popups too, which no window system does.
class OffscreenScreens {
public:
    explicit OffscreenScreens(const QByteArray& screens) {
        QFile file(folder.filePath(QStringLiteral("screens.json")));
        if (!file.open(QIODevice::WriteOnly) ||
            file.write("{\"windowFrameMargins\": false, \"screens\": [" + screens + "]}") < 0)
            qFatal("The screen layout cannot be written.");
        qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + QFile::encodeName(file.fileName()));
    }

private:
    QTemporaryDir folder;
};

/// Runs a test of windows on those screens.
template <class Test>
int runOnScreens(const QByteArray& screens, int argc, char** argv) {
    const OffscreenScreens layout(screens);
    QApplication application(argc, argv);
    Test test;
    // The platform tells on each show and raise what it cannot do; past a limit, test logs end.
    return QTest::qExec(&test, application.arguments()
                                   << QStringLiteral("-maxwarnings") << QStringLiteral("0"));
}

/// One ordinary screen.
template <class Test>
int runOnOneScreen(int argc, char** argv) {
    return runOnScreens<Test>(R"({"name": "only", "x": 0, "y": 0, "width": 1280, "height": 1024})",
                              argc, argv);
}
