// SPDX-License-Identifier: MIT
// Runs every snippet of the documents, each with a window of its own. A warning on the log is a
// failure.
#include "Page.h"

#include <QApplication>
#include <QDir>
#include <QSettings>
#include <QTemporaryDir>

#include <cstdio>

namespace {

int failures = 0;
const char* place = "";

void take(QtMsgType type, const QMessageLogContext&, const QString& text) {
    // The platform without a screen says something of each window with a least size.
    const bool isOfPlatform = text.startsWith(QLatin1String("This plugin does not "));
    if (type == QtDebugMsg || type == QtInfoMsg || isOfPlatform)
        return;
    std::fprintf(stderr, "%s: %s\n", place, qPrintable(text));
    ++failures;
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    application.setOrganizationName(QStringLiteral("zembra-snippets"));
    // Snippets write files and settings.
    const QTemporaryDir folder;
    QDir::setCurrent(folder.path());
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path());
    qInstallMessageHandler(take);
    const std::vector<Snippet> snippets = allSnippets();
    for (const Snippet& snippet : snippets) {
        place = snippet.place;
        QMainWindow window;
        Page page;
        page.window = &window;
        page.view = new zembra::ZembraGraphicsView;
        window.setCentralWidget(page.view);
        page.plot = std::make_shared<zembra::Plot>();
        page.line = page.plot->add<zembra::LineSeries>(page.x, page.y);
        page.view->setPlot(page.plot);
        window.resize(600, 400);
        window.grab();
        snippet.run(page);
        window.grab();
    }
    std::printf("%zu snippets run, %d warnings\n", snippets.size(), failures);
    return failures == 0 && !snippets.empty() ? 0 : 1;
}
