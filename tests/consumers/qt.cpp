// SPDX-License-Identifier: MIT
// A stranger's program on the Qt layer: a plot as pixels, as SVG and in a graphics item.
#include <QtRenderSurface.h>
#include <QtSvgRenderSurface.h>
#include <ZembraGraphicsItem.h>
#include <zembra/zembra.h>

#include <QGuiApplication>

#include <algorithm>
#include <cstdio>

int main(int argc, char** argv) {
    const QGuiApplication application(argc, argv);
    const auto plot = std::make_shared<zembra::Plot>();
    plot->setTitle("Consumer");
    plot->add<zembra::LineSeries>(std::vector{0.0, 1.0, 2.0}, std::vector{1.0, 3.0, 2.0}, "line");
    zembra::QtRenderSurface pixels;
    pixels.create(320, 200);
    plot->renderInto(*pixels.painter(), 320, 200);
    const auto bytes = pixels.getImageData(320, 200);
    const auto background = std::count(bytes.begin(), bytes.end(), bytes[0]);
    zembra::QtSvgRenderSurface vector;
    vector.create(320, 200);
    plot->renderInto(*vector.painter(), 320, 200);
    const std::string svg = vector.svgData();
    zembra::ZembraGraphicsItem item;
    item.setPlot(plot);
    const auto inked = static_cast<long>(bytes.size()) - static_cast<long>(background);
    std::printf("%ld bytes of ink, %zu bytes of SVG\n", inked, svg.size());
    const bool isDrawn = inked > 1000 && svg.find(">Consumer</text>") != std::string::npos;
    return isDrawn && item.plot() == plot ? 0 : 1;
}
