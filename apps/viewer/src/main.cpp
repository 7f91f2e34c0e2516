// SPDX-License-Identifier: MIT
#include "ChartLoader.h"
#include "Exporter.h"
#include "Failure.h"
#include "Options.h"
#include "Progress.h"
#include "Samples.h"
#include "window/MainWindow.h"
#include "window/Translations.h"

#include <QApplication>
#include <QByteArray>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QIcon>
#include <QLocale>
#include <QTabWidget>
#include <QTimer>

#include <cstdio>
#include <exception>
#include <new>
#include <string>
#include <vector>

namespace {

using namespace viewer;

void say(const std::string& text) {
    std::fprintf(stderr, "zembra-view: %s\n", text.c_str());
}

bool hasDisplay() {
    const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
    if (!platform.isEmpty())
        return !platform.startsWith("offscreen") && !platform.startsWith("minimal");
#ifdef Q_OS_UNIX
#ifndef Q_OS_MACOS
    return !qEnvironmentVariableIsEmpty("DISPLAY") ||
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
#endif
#endif
    return true;
}

std::vector<Chart> readCharts(const Options& options) {
    std::vector<Chart> charts;
    if (options.files.empty()) {
        for (Sample& sample : sampleCharts())
            charts.push_back({sample.name, std::move(sample.plot), {}});
        return charts;
    }
    for (const std::string& file : options.files) {
        Progress progress(file);
        charts.push_back(loadChart(
            {file}, options, [&progress](std::int64_t bytes, std::int64_t size, std::size_t rows) {
                progress.update(bytes, size, rows);
                return true;
            }));
    }
    for (const Chart& chart : charts) {
        for (const std::string& note : chart.notes)
            say(note);
    }
    return charts;
}

// Without a display the charts go where they can be looked at later.
void writeToFolder(const std::vector<Chart>& charts, const Options& options) {
    const QString folder = QStringLiteral("out");
    if (!QDir().mkpath(folder))
        throw Failure("out: the folder cannot be made", Failure::Kind::CannotWrite);
    for (const Chart& chart : charts) {
        const std::string path = "out/" + chart.name + ".png";
        exportPlot(*chart.plot, path, options.size);
        say("no display; wrote " +
            QFileInfo(QString::fromStdString(path)).absoluteFilePath().toStdString());
    }
}

// Where nobody is logged in, Qt misses folders of the desktop that pictures do not need.
void leaveOutDesktopWarnings(QtMsgType type, const QMessageLogContext& context,
                             const QString& text) {
    if (!text.startsWith(QStringLiteral("QStandardPaths:")))
        std::fprintf(stderr, "%s\n", qPrintable(qFormatLogMessage(type, context, text)));
}

int writePictures(int& argc, char** argv, const Options& options) {
    // Pictures need fonts, but neither a display nor widgets.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(leaveOutDesktopWarnings);
    const std::vector<Chart> charts = readCharts(options);
    const QGuiApplication application(argc, argv);
    if (options.exports.empty())
        writeToFolder(charts, options);
    for (const std::string& path : options.exports)
        exportPlot(*charts.front().plot, path, options.size);
    return 0;
}

void openFiles(MainWindow& window, const Options& options) {
    for (const std::string& file : options.files) {
        const QString path = QString::fromStdString(file);
        if (options.follow || (file == "-" && canStream(options)))
            window.openLive(path, options);
        else
            window.openFile(path, options);
    }
    if (!options.files.empty())
        return;
    for (const Sample& sample : sampleCharts())
        window.addChart(QString::fromStdString(sample.name), sample.plot);
}

int showWindow(int& argc, char** argv, const Options& options) {
    const QApplication application(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("zembra"));
    QCoreApplication::setApplicationName(QStringLiteral("zembra-view"));
    QGuiApplication::setDesktopFileName(QStringLiteral("zembra-view"));
    QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/zembra-view.svg")));
    installTranslations(QLocale());
    MainWindow window;
    std::size_t waiting = options.files.size();
    bool anyOpened = false;
    QObject::connect(&window, &MainWindow::noted,
                     [](const QString& text) { say(text.toStdString()); });
    QObject::connect(&window, &MainWindow::fileOpened, [&] {
        waiting -= waiting > 0 ? 1 : 0;
        anyOpened = true;
    });
    // A window without any chart tells nothing; the terminal does.
    QObject::connect(&window, &MainWindow::openFailed, [&](const QString& message) {
        say(message.toStdString());
        waiting -= waiting > 0 ? 1 : 0;
        if (!anyOpened && waiting == 0 && window.tabWidget()->count() == 0)
            QCoreApplication::exit(2);
    });
    window.resize(options.size.width, options.size.height);
    window.show();
    window.offerHint();
    // Once the event loop runs, so that a failure can end it.
    QTimer::singleShot(0, &window, [&] { openFiles(window, options); });
    return QApplication::exec();
}

int run(int& argc, char** argv) {
    const Options options = parseOptions(std::vector<std::string>(argv + 1, argv + argc));
    if (options.help) {
        std::fputs(usage().c_str(), stdout);
        return 0;
    }
    if (options.version) {
        std::puts("zembra-view " ZEMBRA_VIEW_VERSION);
        return 0;
    }
    // All arguments are ours; Qt is not to take any of them for its own.
    argc = 1;
    if (options.follow && !hasDisplay())
        throw Failure("--follow: there is no display");
    if (!options.exports.empty() || !hasDisplay())
        return writePictures(argc, argv, options);
    return showWindow(argc, argv, options);
}

} // namespace

int main(int argc, char** argv) {
    try {
        return run(argc, argv);
    } catch (const Failure& failure) {
        say(failure.what());
        return failure.exitCode();
    } catch (const std::bad_alloc&) {
        say("there is not enough memory");
        return 1;
    } catch (const std::exception& error) {
        say(error.what());
        return 1;
    }
}
