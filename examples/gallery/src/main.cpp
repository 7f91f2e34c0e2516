// SPDX-License-Identifier: MIT
#include "GalleryWindow.h"
#include "Writer.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QTextStream>

#include <cstdio>
#include <string_view>

namespace {

// Known before there is an application, because it decides on which platform that runs.
bool writesFiles(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument = argv[i];
        if (argument.starts_with("--write") || argument.starts_with("--golden"))
            return true;
    }
    return false;
}

bool hasDisplay() {
#if defined(Q_OS_WIN) || defined(Q_OS_MACOS)
    return true;
#else
    return !qEnvironmentVariableIsEmpty("DISPLAY") ||
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
#endif
}

} // namespace

int main(int argc, char** argv) {
    // Pictures come out the same whether or not there is a screen.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") &&
        (writesFiles(argc, argv) || !hasDisplay()))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("gallery"));
    QApplication::setApplicationVersion(QStringLiteral("0.1.0"));

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Shows one chart for each kind, scale and theme."));
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption write(
        QStringLiteral("write"),
        QStringLiteral("Write every chart as PNG and SVG into <folder>, with an index."),
        QStringLiteral("folder"));
    const QCommandLineOption golden(
        QStringLiteral("golden"),
        QStringLiteral("Write the pictures that the tests compare with into <folder>."),
        QStringLiteral("folder"));
    parser.addOptions({write, golden});
    parser.process(application);

    QTextStream out(stdout);
    QTextStream err(stderr);
    if (parser.isSet(golden)) {
        if (gallery::writeGoldens(parser.value(golden)))
            return 0;
        err << "gallery: cannot write to " << parser.value(golden) << '\n';
        return 1;
    }
    const QString platform = QApplication::platformName();
    const bool shows = platform != QStringLiteral("offscreen") &&
                       platform != QStringLiteral("minimal") && !parser.isSet(write);
    if (!shows) {
        const QString folder = parser.isSet(write) ? parser.value(write) : QStringLiteral("out");
        if (!gallery::writeGallery(folder)) {
            err << "gallery: cannot write to " << folder << '\n';
            return 1;
        }
        out << QDir(folder).absoluteFilePath(QStringLiteral("index.html")) << '\n';
        return 0;
    }
    gallery::GalleryWindow window;
    window.show();
    return QApplication::exec();
}
