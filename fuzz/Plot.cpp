// SPDX-License-Identifier: MIT
// Every call on plots and their parts, in any order and with any arguments. Whatever they are, what
// reaches the painter is finite, near the picture and paired, and the answers make sense.
#include "Scales.h"
#include "support/StrictPainter.h"

#include <zembra/zembra.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>

using namespace zembra;
using fuzz::Bytes;
using fuzz::require;

namespace {

Color anyColor(Bytes& bytes) {
    return {bytes.byte(), bytes.byte(), bytes.byte(), bytes.byte()};
}

template <class Choice>
Choice any(Bytes& bytes, int count) {
    return static_cast<Choice>(bytes.choice(count));
}

Coordinate anyCoordinate(Bytes& bytes) {
    return bytes.flag() ? Coordinate::canvas(bytes.number()) : Coordinate(bytes.number());
}

Position anyPosition(Bytes& bytes) {
    const Coordinate x = anyCoordinate(bytes);
    return {x, anyCoordinate(bytes)};
}

// Rings are shared with the series that show them, and fed later on.
Samples anySamples(Bytes& bytes) {
    switch (bytes.choice(5)) {
    case 0: {
        const Samples ring = Samples::streamed(bytes.byte() % 40);
        Samples fed = ring;
        const std::vector<double> x = bytes.numbers();
        fed.append(x, bytes.numbers());
        return ring;
    }
    case 1: {
        const double first = bytes.number();
        const double step = bytes.number();
        return Samples::evenlySpaced(first, step, bytes.numbers());
    }
    case 2: {
        const std::vector<double> x = bytes.numbers();
        const std::vector<double> y = bytes.numbers();
        const auto narrow = [](double value) {
            // Beyond the floats the conversion itself would be undefined.
            return static_cast<float>(std::isfinite(value) ? std::clamp(value, -3e38, 3e38)
                                                           : value);
        };
        std::vector<float> floatX(x.size());
        std::vector<float> floatY(y.size());
        std::transform(x.begin(), x.end(), floatX.begin(), narrow);
        std::transform(y.begin(), y.end(), floatY.begin(), narrow);
        return Samples::owned(floatX, floatY);
    }
    case 3: {
        std::vector<double> x = bytes.numbers();
        std::sort(x.begin(), x.end());
        return {std::move(x), bytes.numbers()};
    }
    default:
        return {bytes.numbers(), bytes.numbers()};
    }
}

Grid anyGrid(Bytes& bytes) {
    const std::size_t columns = bytes.byte() % 9;
    const GridSpan x{bytes.number(), bytes.number()};
    return {bytes.numbers(), columns, x, {bytes.number(), bytes.number()}};
}

ColorScale anyColorScale(Bytes& bytes) {
    static const ColorMap maps[] = {ColorMap::viridis(), ColorMap::coolWarm(), ColorMap::tides()};
    ColorScale scale{bytes.flag() ? maps[bytes.choice(3)].reversed()
                                  : ColorMap({anyColor(bytes), anyColor(bytes)}),
                     fuzz::anyScale(bytes)};
    if (bytes.flag())
        scale.setCenter(bytes.number());
    if (bytes.flag()) {
        const double first = bytes.number();
        scale.setRange(first, bytes.number());
    }
    if (bytes.flag())
        scale.setNanColor(anyColor(bytes));
    scale.setTitle(bytes.text());
    return scale;
}

Bins anyBins(Bytes& bytes) {
    switch (bytes.choice(4)) {
    case 0:
        return Bins::byRule(any<BinRule>(bytes, 3));
    case 1:
        return Bins::ofCount(bytes.byte());
    case 2: {
        const double width = bytes.number();
        return Bins::ofWidth(width, bytes.number());
    }
    default:
        return Bins::withEdges(bytes.numbers());
    }
}

// Braces read their arguments from left to right; calls leave that to the compiler, and then an
// input would not mean the same to all.
template <class Kind>
struct Made : std::shared_ptr<Series> {
    template <class... Arguments>
    explicit Made(Arguments&&... arguments)
        : std::shared_ptr<Series>(std::make_shared<Kind>(std::forward<Arguments>(arguments)...)) {}
};

std::shared_ptr<Series> makeSeries(Bytes& bytes) {
    switch (bytes.choice(19)) {
    case 0:
        return Made<LineSeries>{anySamples(bytes), bytes.text()};
    case 1:
        return Made<ScatterSeries>{anySamples(bytes), bytes.text()};
    case 2:
        return Made<AreaSeries>{anySamples(bytes), bytes.text()};
    case 3:
        return Made<BandSeries>{bytes.numbers(), bytes.numbers(), bytes.numbers()};
    case 4:
        return Made<BarSeries>{bytes.numbers(), bytes.numbers(), bytes.text()};
    case 5:
        return Made<HistogramSeries>{bytes.numbers(), bytes.text()};
    case 6:
        return Made<BoxPlotSeries>{
            std::vector<std::vector<double>>{bytes.numbers(), bytes.numbers()}, bytes.text()};
    case 7:
        return Made<CandlestickSeries>{CandleRows{bytes.numbers(), bytes.numbers(), bytes.numbers(),
                                                  bytes.numbers(), bytes.numbers()}};
    case 8:
        return Made<ErrorBarSeries>{bytes.numbers(), bytes.numbers(), bytes.text()};
    case 9:
        return Made<StemSeries>{bytes.numbers(), bytes.numbers(), bytes.text()};
    case 10: {
        const double a = bytes.number();
        const double b = bytes.number();
        return Made<FunctionSeries>{[a, b](double x) { return a * std::sin(x * b) / (x - a); },
                                    bytes.text()};
    }
    case 11:
        return Made<HeatMapSeries>{anyGrid(bytes), bytes.text()};
    case 12:
        return Made<ContourSeries>{anyGrid(bytes), bytes.text()};
    case 13:
        return Made<LineAnnotation>{any<AcrossCanvas>(bytes, 2), anyCoordinate(bytes),
                                    bytes.text()};
    case 14:
        return Made<SpanAnnotation>{any<AcrossCanvas>(bytes, 2), anyCoordinate(bytes),
                                    anyCoordinate(bytes), bytes.text()};
    case 15:
        return Made<TextAnnotation>{anyPosition(bytes), bytes.text()};
    case 16:
        return Made<ArrowAnnotation>{anyPosition(bytes), anyPosition(bytes)};
    case 17: {
        std::vector<Position> corners;
        for (int i = bytes.choice(7); i > 0; --i)
            corners.push_back(anyPosition(bytes));
        return Made<ShapeAnnotation>{any<AnnotationShape>(bytes, 3), corners};
    }
    default:
        return nullptr;
    }
}

// The setters of one kind each; every second choice is a setter that all series have.

void change(LineSeries& series, Bytes& bytes) {
    switch (bytes.choice(6)) {
    case 0:
        series.setSamples(anySamples(bytes));
        break;
    case 1:
        series.setWidth(bytes.number());
        break;
    case 2:
        series.setStyle(static_cast<PenStyle>(bytes.choice(8) - 1));
        break;
    case 3:
        series.setDashPattern(bytes.numbers());
        break;
    case 4:
        series.setSteps(static_cast<LineSteps>(bytes.choice(5)));
        break;
    default: {
        Samples samples = series.samples();
        if (bytes.choice(4) == 0) {
            samples.clear();
        } else {
            const std::vector<double> x = bytes.numbers();
            samples.append(x, bytes.numbers());
        }
    }
    }
}

void change(ScatterSeries& series, Bytes& bytes) {
    if (bytes.flag())
        series.setSamples(anySamples(bytes));
    else
        series.setMarkerSize(bytes.number());
}

void change(AreaSeries& series, Bytes& bytes) {
    if (bytes.flag())
        series.setSamples(anySamples(bytes));
    else
        series.setStyle({bytes.number(), bytes.number(), bytes.number()});
}

void change(BandSeries& series, Bytes& bytes) {
    if (bytes.flag()) {
        const std::vector<double> x = bytes.numbers();
        const std::vector<double> low = bytes.numbers();
        series.setSamples(x, low, bytes.numbers());
    } else {
        series.setStyle({bytes.number(), bytes.number()});
    }
}

void change(HistogramSeries& series, Bytes& bytes) {
    switch (bytes.choice(3)) {
    case 0:
        series.setSamples(bytes.numbers());
        break;
    case 1:
        series.setBins(anyBins(bytes));
        break;
    default:
        series.setStyle({any<Orientation>(bytes, 2), any<HistogramHeight>(bytes, 2)});
    }
    require(series.edges().empty() ? series.counts().empty()
                                   : series.counts().size() + 1 == series.edges().size(),
            "one edge more than bins");
}

void change(BoxPlotSeries& series, Bytes& bytes) {
    if (bytes.flag()) {
        const std::vector<double> x = bytes.numbers();
        series.setSamples(x, {bytes.numbers(), {}, bytes.numbers()});
    } else {
        series.setStyle({any<Orientation>(bytes, 2), bytes.number(), bytes.number(), bytes.number(),
                         bytes.number(), bytes.flag()});
    }
}

void change(CandlestickSeries& series, Bytes& bytes) {
    if (bytes.flag())
        series.setSamples(
            {bytes.numbers(), bytes.numbers(), bytes.numbers(), bytes.numbers(), bytes.numbers()});
    else
        series.setStyle({any<CandleShape>(bytes, 2), bytes.number(), anyColor(bytes), {}});
}

void change(ErrorBarSeries& series, Bytes& bytes) {
    switch (bytes.choice(6)) {
    case 0: {
        const std::vector<double> x = bytes.numbers();
        series.setSamples(x, bytes.numbers());
        break;
    }
    case 1:
        series.setXErrors(bytes.numbers());
        break;
    case 2:
        series.setYErrors(bytes.numbers());
        break;
    case 3: {
        const std::vector<double> below = bytes.numbers();
        series.setXErrors(below, bytes.numbers());
        break;
    }
    case 4: {
        const std::vector<double> below = bytes.numbers();
        series.setYErrors(below, bytes.numbers());
        break;
    }
    default:
        series.setStyle({bytes.number(), bytes.number(), bytes.number()});
    }
}

void change(StemSeries& series, Bytes& bytes) {
    if (bytes.flag()) {
        const std::vector<double> x = bytes.numbers();
        series.setSamples(x, bytes.numbers());
    } else {
        series.setStyle({bytes.number(), bytes.number(), bytes.number()});
    }
}

void change(FunctionSeries& series, Bytes& bytes) {
    switch (bytes.choice(5)) {
    case 0: {
        const double first = bytes.number();
        series.setDomain(first, bytes.number());
        break;
    }
    case 1:
        series.clearDomain();
        break;
    case 2:
        series.setWidth(bytes.number());
        break;
    case 3:
        series.setStyle(static_cast<PenStyle>(bytes.choice(8) - 1));
        break;
    default: {
        const double a = bytes.number();
        series.setFunction([a](double x) { return x < a ? std::exp(x) : 1.0 / (x - a); });
    }
    }
}

void change(HeatMapSeries& series, Bytes& bytes) {
    switch (bytes.choice(3)) {
    case 0:
        series.setGrid(anyGrid(bytes));
        break;
    case 1:
        series.setColorScale(anyColorScale(bytes));
        break;
    default:
        series.setSampling(any<HeatMapSampling>(bytes, 2));
    }
}

void change(ContourSeries& series, Bytes& bytes) {
    switch (bytes.choice(5)) {
    case 0:
        series.setGrid(anyGrid(bytes));
        break;
    case 1:
        series.setLevels(bytes.numbers());
        break;
    case 2:
        series.setStyle(any<ContourStyle>(bytes, 3));
        break;
    case 3:
        series.setWidth(bytes.number());
        break;
    default:
        series.setColorScale(anyColorScale(bytes));
    }
}

void change(LineAnnotation& line, Bytes& bytes) {
    switch (bytes.choice(4)) {
    case 0:
        line.setPosition(anyCoordinate(bytes));
        break;
    case 1:
        line.setLabel(bytes.text());
        break;
    case 2:
        line.setWidth(bytes.number());
        break;
    default:
        line.setStyle(static_cast<PenStyle>(bytes.choice(8) - 1));
    }
}

void change(SpanAnnotation& span, Bytes& bytes) {
    if (bytes.flag()) {
        const Coordinate first = anyCoordinate(bytes);
        span.setSpan(first, anyCoordinate(bytes));
    } else {
        span.setLabel(bytes.text());
    }
}

void change(TextAnnotation& text, Bytes& bytes) {
    switch (bytes.choice(3)) {
    case 0:
        text.setPlace(anyPosition(bytes));
        break;
    case 1:
        text.setText(bytes.text());
        break;
    default:
        text.setOffset({bytes.number(), bytes.number()});
    }
}

void change(ArrowAnnotation& arrow, Bytes& bytes) {
    if (bytes.flag()) {
        const Position from = anyPosition(bytes);
        arrow.setEnds(from, anyPosition(bytes));
    } else {
        arrow.setWidth(bytes.number());
    }
}

void change(ShapeAnnotation& shape, Bytes& bytes) {
    switch (bytes.choice(3)) {
    case 0:
        shape.setCorners({anyPosition(bytes), anyPosition(bytes), anyPosition(bytes)});
        break;
    case 1:
        shape.setWidth(bytes.number());
        break;
    default:
        shape.setOpacity(bytes.number());
    }
}

template <class... Kinds>
void changeOwn(Series& series, Bytes& bytes) {
    const auto tried = [&](auto* kind) {
        if (kind)
            change(*kind, bytes);
        return kind != nullptr;
    };
    static_cast<void>((tried(dynamic_cast<Kinds*>(&series)) || ...));
}

void changeBars(BarSeries& bars, const Plot& plot, Bytes& bytes) {
    const auto other = [&]() -> BarSeries* {
        const auto& all = plot.series();
        return dynamic_cast<BarSeries*>(all.at(bytes.byte() % all.size()).get());
    };
    switch (bytes.choice(5)) {
    case 0: {
        const std::vector<double> x = bytes.numbers();
        bars.setSamples(x, bytes.numbers());
        break;
    }
    case 1:
        bars.setStyle({any<Orientation>(bytes, 2), bytes.number(), bytes.number()});
        break;
    case 2:
        if (BarSeries* below = other())
            bars.stackOn(*below);
        break;
    case 3:
        if (BarSeries* neighbour = other())
            bars.standBeside(*neighbour);
        break;
    default:
        bars.standAlone();
    }
}

void changeSeries(Plot& plot, Bytes& bytes) {
    const auto& all = plot.series();
    if (all.empty())
        return;
    Series& series = *all.at(bytes.byte() % all.size());
    switch (bytes.choice(8)) {
    case 0:
        series.setName(bytes.text());
        break;
    case 1:
        series.setVisible(bytes.flag());
        break;
    case 2: {
        const int x = bytes.choice(6) - 1;
        series.setAxes(x, bytes.choice(6) - 1);
        break;
    }
    case 3:
        series.setColor(bytes.flag() ? std::optional(anyColor(bytes)) : std::nullopt);
        break;
    default:
        if (auto* bars = dynamic_cast<BarSeries*>(&series))
            changeBars(*bars, plot, bytes);
        else
            changeOwn<LineSeries, ScatterSeries, AreaSeries, BandSeries, HistogramSeries,
                      BoxPlotSeries, CandlestickSeries, ErrorBarSeries, StemSeries, FunctionSeries,
                      HeatMapSeries, ContourSeries, LineAnnotation, SpanAnnotation, TextAnnotation,
                      ArrowAnnotation, ShapeAnnotation>(series, bytes);
    }
}

void changeAxis(Plot& plot, Plot& other, Bytes& bytes) {
    const int id = bytes.choice(6) - 1;
    Axis& axis = plot.axis(id);
    switch (bytes.choice(13)) {
    case 0:
        plot.setAxisEnabled(id, bytes.flag());
        break;
    case 1: {
        const double first = bytes.number();
        const double last = bytes.number();
        plot.setAxisScale(id, first, last, bytes.number());
        break;
    }
    case 2:
        plot.setAxisAutoScale(id, bytes.flag());
        break;
    case 3:
        axis.setEnabled(bytes.flag());
        break;
    case 4:
        axis.setTitle(bytes.text());
        break;
    case 5:
        axis.setScale(fuzz::anyScale(bytes));
        break;
    case 6: {
        const auto before = axis.range();
        const double first = bytes.number();
        const double last = bytes.number();
        if (!axis.setRange(first, last, bytes.number()))
            require(axis.range() == before || axis.isDerived(),
                    "a refused range that changes nothing");
        break;
    }
    case 7:
        axis.setAutoScale(bytes.flag());
        break;
    case 8:
        axis.setInverted(bytes.flag());
        break;
    case 9: {
        const double factor = bytes.number();
        const double shift = bytes.number();
        axis.setDerived([=](double v) { return v * factor + shift; },
                        [=](double v) { return (v - shift) / factor; });
        break;
    }
    case 10:
        axis.setDerived({}, {});
        break;
    case 11:
        if (bytes.flag())
            axis.linkTo((bytes.flag() ? other : plot).axis(bytes.choice(4)));
        else
            axis.unlink();
        break;
    default:
        if (bytes.flag())
            axis.setNumberFormat(fuzz::anyFormat(bytes));
        else
            axis.setGridVisible(bytes.flag());
    }
}

void changePlot(Plot& plot, Bytes& bytes) {
    switch (bytes.choice(6)) {
    case 0:
        plot.setTitle(bytes.text());
        break;
    case 1:
        plot.setSubtitle(bytes.text());
        break;
    case 2:
        plot.setAspectRatio(bytes.number());
        break;
    case 3: {
        Theme theme = bytes.flag() ? Theme::dark() : Theme::print();
        if (bytes.flag()) {
            theme.cycle.clear();
            theme.axisLineWidth = bytes.integer();
            theme.tickFont.setPixelSize(bytes.byte());
        }
        plot.setTheme(theme);
        break;
    }
    case 4:
        plot.legend().setPosition(any<LegendPosition>(bytes, 7));
        break;
    default:
        plot.legend().setVisible(bytes.flag());
    }
}

void checkState(const Plot& plot) {
    const Rect canvas = plot.canvasRect();
    require(std::isfinite(canvas.x + canvas.y + canvas.width + canvas.height), "a finite canvas");
    for (int axis = 0; axis < 4; ++axis) {
        const ScaleMap map = plot.scaleMap(axis);
        require(std::isfinite(map.p1()) && std::isfinite(map.p2()), "finite pixel ends");
        // Functions that are not what they should be make such ranges.
        if (plot.axis(axis).isDerived())
            continue;
        require(std::isfinite(map.s1()) && std::isfinite(map.s2()) && map.s1() != map.s2(),
                "a finite range with a length");
        // Not `contains`, which asks functions that may not be what they should be.
        const Interval domain = map.scale().domain();
        require(domain.contains(map.s1()) && domain.contains(map.s2()),
                "a range inside the scale's domain");
        require(map.invTransform(map.p1()) == map.s1() || map.p1() == map.p2(),
                "ends that map to each other");
    }
}

void render(Plot& plot, Bytes& bytes) {
    test::StrictPainter painter;
    const int width = bytes.integer() * 2;
    const int height = bytes.integer() * 2;
    fuzz::Stopwatch stopwatch;
    stopwatch.drawing(1.0 * width * height);
    plot.renderInto(painter, width, height);
    require(painter.fault().empty(), painter.fault().c_str());
    require(painter.isBalanced(), "states that are all restored");
    checkState(plot);
    const Point pixel{bytes.number(), bytes.number()};
    for (const auto& series : plot.series()) {
        const auto nearest =
            series->nearest(pixel, plot.scaleMap(series->xAxis()), plot.scaleMap(series->yAxis()));
        require(!nearest || (std::isfinite(nearest->x) && std::isfinite(nearest->y) &&
                             std::isfinite(nearest->distance)),
                "a nearest sample made of finite numbers");
    }
}

void run(Bytes bytes) {
    std::vector<std::shared_ptr<Plot>> plots{std::make_shared<Plot>(), std::make_shared<Plot>()};
    while (!bytes.isEmpty()) {
        const int which = bytes.choice(2);
        Plot& plot = *plots.at(static_cast<std::size_t>(which));
        Plot& other = *plots.at(static_cast<std::size_t>(1 - which));
        const int action = bytes.choice(12);
        if (action == 11) {
            render(plot, bytes);
            continue;
        }
        const fuzz::Stopwatch stopwatch;
        switch (action) {
        case 0:
        case 1:
            if (plot.series().size() < 12)
                plot.addSeries(makeSeries(bytes));
            break;
        case 2:
            if (!other.series().empty() && plot.series().size() < 12)
                plot.addSeries(other.series().at(bytes.byte() % other.series().size()));
            break;
        case 3:
            if (!plot.series().empty())
                plot.removeSeries(plot.series().at(bytes.byte() % plot.series().size()));
            break;
        case 4:
        case 5:
            changeSeries(plot, bytes);
            break;
        case 6:
        case 7:
            changeAxis(plot, other, bytes);
            break;
        case 8:
            changePlot(plot, bytes);
            break;
        case 9: {
            PlotGrid grid{bytes.choice(4), bytes.choice(4)};
            for (const auto& each : plots) {
                const int row = bytes.choice(5) - 1;
                grid.setPlot(row, bytes.choice(5) - 1, each);
            }
            test::StrictPainter painter;
            const int width = bytes.integer();
            grid.renderInto(painter, width, bytes.integer());
            require(painter.fault().empty(), painter.fault().c_str());
            break;
        }
        case 10:
            // Links and stacks may be left without one end.
            if (bytes.choice(8) == 0)
                plots.at(static_cast<std::size_t>(which)) = std::make_shared<Plot>();
            break;
        default:
            break;
        }
    }
    render(*plots.front(), bytes);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Stopwatch::attend([&] { run({data, size}); });
    return 0;
}
