// SPDX-License-Identifier: MIT
// photograph WINDOW FILE: writes a picture of a window, by its number, into a PNG file, as soon as
// the window shows something. Fails when it stays empty.
#include <QDeadlineTimer>
#include <QGuiApplication>
#include <QPixmap>
#include <QScreen>
#include <QSet>
#include <QThread>

#include <cstdio>

namespace {

/// Whether a picture has more in it than a frame and a few areas: a chart has smooth edges.
bool showsSomething(const QImage& picture) {
    QSet<QRgb> colors;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            colors.insert(picture.pixel(x, y));
    return colors.size() > 32;
}

} // namespace

int main(int argc, char** argv) {
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() != 3)
        return 2;
    const WId window = arguments.at(1).toULongLong();
    QDeadlineTimer patience(20'000);
    QImage picture;
    do {
        QThread::msleep(50);
        picture = QGuiApplication::primaryScreen()->grabWindow(window).toImage();
    } while (!showsSomething(picture) && !patience.hasExpired());
    if (picture.isNull() || !picture.save(arguments.at(2))) {
        std::fprintf(stderr, "photograph: no picture\n");
        return 1;
    }
    if (!showsSomething(picture)) {
        std::fprintf(stderr, "photograph: the window stays empty\n");
        return 1;
    }
    return 0;
}
