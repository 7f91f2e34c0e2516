// SPDX-License-Identifier: MIT
#include <zembra/series/ContourSeries.h>

#include "ContourTracer.h"
#include "GridCells.h"

#include <zembra/paint/Pen.h>
#include <zembra/series/Canvas.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace zembra {

namespace {

constexpr int mostAutomaticLevels = 20;

struct Choice {
    std::vector<std::size_t> indices;
    std::vector<double> pixels;
};

// The rows or columns to look at: those in the canvas and the next one to either side, at least a
// pixel apart, but always the outermost.
template <class Center>
Choice chosen(std::size_t count, Center center, const ScaleMap& map, double low, double high) {
    Choice all;
    for (std::size_t i = 0; i < count; ++i) {
        const double pixel = map.transform(center(i));
        if (!std::isfinite(pixel))
            continue;
        const bool near = !all.pixels.empty() && std::abs(pixel - all.pixels.back()) < 1.0;
        if (near && i + 1 < count)
            continue;
        all.indices.push_back(i);
        all.pixels.push_back(pixel);
    }
    // Pixels are monotonic, so what is visible is a run.
    Choice visible;
    for (std::size_t i = 0; i < all.pixels.size(); ++i) {
        const double before = all.pixels[i > 0 ? i - 1 : i];
        const double after = all.pixels[i + 1 < all.pixels.size() ? i + 1 : i];
        if (std::max({before, all.pixels[i], after}) < low ||
            std::min({before, all.pixels[i], after}) > high)
            continue;
        visible.indices.push_back(all.indices[i]);
        visible.pixels.push_back(all.pixels[i]);
    }
    return visible;
}

Lattice latticeOf(const Grid& grid, const Canvas& canvas) {
    const Rect& area = canvas.rect();
    auto columns = chosen(
        grid.columns(), [&](std::size_t i) { return grid.xCenter(i); }, canvas.x(), area.left(),
        area.right());
    auto rows = chosen(
        grid.rows(), [&](std::size_t i) { return grid.yCenter(i); }, canvas.y(), area.top(),
        area.bottom());
    Lattice lattice;
    lattice.values.reserve(columns.indices.size() * rows.indices.size());
    for (const std::size_t row : rows.indices)
        for (const std::size_t column : columns.indices) {
            const double value = grid.value(column, row);
            lattice.values.push_back(
                std::isfinite(value) ? value : std::numeric_limits<double>::quiet_NaN());
        }
    lattice.x = std::move(columns.pixels);
    lattice.y = std::move(rows.pixels);
    return lattice;
}

} // namespace

struct ContourSeries::Private {
    Grid grid;
    ColorScale colors;
    std::vector<double> givenLevels;
    std::vector<double> levels;
    ContourStyle style = ContourStyle::Lines;
    double width = 1.25;

    void update();
    Color between(double low, double high) const;
    void fill(Canvas& canvas, ContourTracer& tracer) const;
    void drawLines(Canvas& canvas, ContourTracer& tracer) const;
};

void ContourSeries::Private::update() {
    colors.setDataRange(grid.valueRange(colors.scale()));
    levels = givenLevels;
    if (!levels.empty() || grid.isEmpty())
        return;
    const Interval& range = colors.range();
    TickRequest request;
    request.maxMajor = mostAutomaticLevels;
    request.minor = false;
    for (const Tick& tick : colors.scale().ticks(range.min, range.max, request).major)
        if (tick.value > range.min && tick.value < range.max)
            levels.push_back(tick.value);
}

Color ContourSeries::Private::between(double low, double high) const {
    return colors.map().at(0.5 * (colors.share(low) + colors.share(high)));
}

void ContourSeries::Private::fill(Canvas& canvas, ContourTracer& tracer) const {
    // From the lowest level up, each area lies on the one below it.
    const Interval& range = colors.range();
    canvas.fillPolygon(tracer.area(-std::numeric_limits<double>::infinity()),
                       between(range.min, levels.empty() ? range.max : levels.front()));
    for (std::size_t i = 0; i < levels.size(); ++i)
        canvas.fillPolygon(tracer.area(levels[i]),
                           between(levels[i], i + 1 < levels.size() ? levels[i + 1] : range.max));
}

void ContourSeries::Private::drawLines(Canvas& canvas, ContourTracer& tracer) const {
    for (const double level : levels) {
        Pen pen(colors.color(level), width);
        if (style == ContourStyle::FilledWithLines) {
            pen.setColor(canvas.look().foreground.withAlpha(110));
            pen.setWidthF(std::min(width, 1.0));
        }
        for (const auto& line : tracer.lines(level))
            canvas.drawPolyline(line, pen);
    }
}

ContourSeries::ContourSeries() : d(std::make_unique<Private>()) {}

ContourSeries::ContourSeries(Grid grid, std::string name) : ContourSeries() {
    setGrid(std::move(grid));
    setName(std::move(name));
}

ContourSeries::~ContourSeries() = default;

void ContourSeries::setGrid(Grid grid) {
    d->grid = std::move(grid);
    d->update();
    changed();
}

const Grid& ContourSeries::grid() const {
    return d->grid;
}

void ContourSeries::setLevels(std::vector<double> levels) {
    std::erase_if(levels, [](double level) { return !std::isfinite(level); });
    std::sort(levels.begin(), levels.end());
    levels.erase(std::unique(levels.begin(), levels.end()), levels.end());
    d->givenLevels = std::move(levels);
    d->update();
    changed();
}

const std::vector<double>& ContourSeries::levels() const {
    return d->levels;
}

void ContourSeries::setStyle(ContourStyle style) {
    d->style = style;
    changed();
}

ContourStyle ContourSeries::style() const {
    return d->style;
}

void ContourSeries::setWidth(double width) {
    if (!std::isfinite(width) || width < 0.0)
        return;
    d->width = width;
    changed();
}

double ContourSeries::width() const {
    return d->width;
}

void ContourSeries::setColorScale(ColorScale scale) {
    d->colors = std::move(scale);
    d->update();
    changed();
}

const ColorScale* ContourSeries::colorScale() const {
    return &d->colors;
}

bool ContourSeries::takesCycleColor() const {
    return false;
}

Bounds ContourSeries::bounds(const Scale& x, const Scale& y) const {
    Bounds bounds;
    if (d->grid.isEmpty())
        return bounds;
    for (std::size_t i = 0; i < d->grid.columns(); ++i)
        if (x.contains(d->grid.xCenter(i)))
            bounds.x.include(d->grid.xCenter(i));
    for (std::size_t i = 0; i < d->grid.rows(); ++i)
        if (y.contains(d->grid.yCenter(i)))
            bounds.y.include(d->grid.yCenter(i));
    bounds.xFlush = true;
    bounds.yFlush = true;
    return bounds;
}

void ContourSeries::draw(Canvas& canvas) const {
    if (d->grid.isEmpty())
        return;
    const Lattice lattice = latticeOf(d->grid, canvas);
    ContourTracer tracer(lattice);
    if (d->style != ContourStyle::Lines)
        d->fill(canvas, tracer);
    if (d->style != ContourStyle::Filled)
        d->drawLines(canvas, tracer);
}

void ContourSeries::drawLegendKey(Canvas& canvas, const Rect& area) const {
    constexpr int steps = 3;
    for (int i = 0; i < steps; ++i) {
        const Color color = d->colors.map().at((i + 0.5) / steps);
        const double y = area.y + area.height * (i + 0.5) / steps;
        if (d->style == ContourStyle::Lines)
            canvas.drawLine({area.left(), y}, {area.right(), y}, Pen(color, d->width));
        else
            canvas.fillRect(
                {area.x + area.width * i / steps, area.y, area.width / steps, area.height}, color);
    }
}

std::optional<NearestSample> ContourSeries::findNearest(const Point& pixel, const ScaleMap& x,
                                                        const ScaleMap& y) const {
    return cellBelow(d->grid, pixel, x, y);
}

} // namespace zembra
