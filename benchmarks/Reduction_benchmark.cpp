// SPDX-License-Identifier: MIT
//
// The parts of a line's frame, each on its own: what becomes of samples, of the path, of the texts.
#include "Stage.h"

#include <zembra/series/Canvas.h>

#include <QtGui/QGuiApplication>

using namespace zembra;
using namespace zembra::benchmarks;

namespace {

// Takes everything and draws nothing.
class NullPainter : public Painter {
public:
    void save() override {}
    void restore() override {}
    void setPen(const Pen&) override {}
    void setBrush(const Brush&) override {}
    void setFont(const Font&) override {}
    void drawLine(double, double, double, double) override {}
    void drawRect(const Rect&) override {}
    void fillRect(const Rect&, const Color&) override {}
    void drawPolyline(const std::vector<Point>&) override {}
    void fillPolygon(const std::vector<Point>&, const Color&) override {}
    void fillEllipse(double, double, double, double, const Color&) override {}
    void drawEllipse(double, double, double, double) override {}
    void drawImage(const unsigned char*, int, int, double, double) override {}
    void drawText(double, double, const std::string&, const Font&, const Color&) override {}
    void drawRotatedText(double, double, double, const std::string&, const Font&,
                         const Color&) override {}
    TextExtent measureText(const std::string& text, const Font& font) override {
        ++measured;
        return {6.0 * static_cast<double>(text.size()), font.pixelSize()};
    }
    void translate(double, double) override {}
    void rotate(double) override {}
    void setClipRect(const Rect&) override {}
    void clearClip() override {}

    int measured = 0;
};

// The line up to its finished picture, without the painter that shows it.
void reduction(benchmark::State& state) {
    const auto count = static_cast<std::size_t>(state.range(0));
    const LineSeries line(rising(count), noise(count));
    NullPainter painter;
    int step = 0;
    for (auto _ : state) {
        step = (step + 1) % 64;
        const double shift = 0.00088 * step;
        FrameBuffers buffers;
        Canvas canvas(painter, {60.0, 20.0, 1200.0, 660.0},
                      ScaleMap(Scale::linear(), 60.0, 1260.0, 0.1 + shift, 0.9 + shift),
                      ScaleMap(Scale::linear(), 680.0, 20.0, -1.05, 1.05), {}, buffers);
        line.draw(canvas);
    }
}
BENCHMARK(reduction)->RangeMultiplier(10)->Range(1000, 100000000)->Unit(benchmark::kMillisecond);

// Ranges, ticks, texts and places of a frame, without the painter. Texts are measured once.
void layout(benchmark::State& state) {
    Plot plot;
    NullPainter painter;
    plot.setAxisScale(2, 0.1, 0.9);
    plot.renderInto(painter, Stage::width, Stage::height);
    const int before = painter.measured;
    for (auto _ : state)
        plot.renderInto(painter, Stage::width, Stage::height);
    state.counters["texts_measured"] = painter.measured - before;
}
BENCHMARK(layout)->Unit(benchmark::kMicrosecond);

// A picture as large as a canvas, by the painter alone: the least that a dense frame costs.
void pictureAlone(benchmark::State& state) {
    QImage image(Stage::width, Stage::height, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    const std::vector<std::vector<unsigned char>> pictures(
        2, std::vector<unsigned char>(std::size_t{1200} * 660 * 4, 200));
    int i = 0;
    for (auto _ : state) {
        QPainter painter(&image);
        QtPainter target(painter);
        target.drawImage(pictures[static_cast<std::size_t>(++i % 2)].data(), 1200, 660, 660.0,
                         350.0);
    }
}
BENCHMARK(pictureAlone)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
