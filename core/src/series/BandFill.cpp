// SPDX-License-Identifier: MIT
#include "BandFill.h"

#include "SideView.h"
#include "SortedReduction.h"

#include <zembra/series/Canvas.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace zembra {

namespace {

/// Collects the two edges of a fill from left to right, and fills between gaps.
class Filler {
public:
    Filler(Canvas& canvas, const Color& color) : canvas(canvas), color(color) {}

    void add(double x, double first, double second) {
        ahead.push_back({x, first});
        back.push_back({x, second});
    }

    /// As `add`, after a step from the sample before.
    void addStep(double x, double first, double second, LineSteps steps) {
        if (!ahead.empty() && steps != LineSteps::None) {
            const double lastX = ahead.back().x;
            const double before = ahead.back().y;
            const double otherBefore = back.back().y;
            const double at = steps == LineSteps::Before  ? lastX
                              : steps == LineSteps::After ? x
                                                          : 0.5 * (lastX + x);
            add(at, before, otherBefore);
            add(at, first, second);
        }
        add(x, first, second);
    }

    void finish() {
        if (ahead.size() > 1) {
            ahead.insert(ahead.end(), back.rbegin(), back.rend());
            canvas.fillPolygon(ahead, color);
        }
        ahead.clear();
        back.clear();
    }

private:
    Canvas& canvas;
    Color color;
    std::vector<Point> ahead;
    std::vector<Point> back;
};

class BandFill {
public:
    BandFill(Canvas& canvas, const Samples& row, const std::variant<Samples, double>& other,
             const Color& color, LineSteps steps)
        : canvas(canvas),
          row(row),
          second(std::get_if<Samples>(&other)),
          steps(steps),
          filler(canvas, color) {
        if (const double* level = std::get_if<double>(&other))
            levelPixel = pixelOrEnd(canvas.y(), *level);
    }

    void run() {
        const Rect& area = canvas.rect();
        if (!row.isSorted()) {
            addEach(0, row.size());
        } else {
            const auto [least, greatest] = std::minmax(
                {canvas.x().invTransform(area.left()), canvas.x().invTransform(area.right())});
            if (std::isnan(least) || std::isnan(greatest))
                return;
            const std::size_t begin = row.lowerBound(least);
            const std::size_t end = row.lowerBound(greatest);
            // The neighbours outside the canvas, so that the fill goes on to its edges.
            const std::size_t from = begin > 0 ? begin - 1 : 0;
            const std::size_t to = std::min(end + 1, row.size());
            if (static_cast<double>(end - begin) <= 4.0 * area.width) {
                addEach(from, to);
            } else {
                addEach(from, begin);
                addColumns(begin, end);
                addEach(end, to);
            }
        }
        filler.finish();
    }

private:
    double secondPixel(std::size_t i) const {
        return second ? heldPixel(canvas.y(), second->y(i)) : levelPixel;
    }

    void addEach(std::size_t first, std::size_t last) {
        for (std::size_t i = first; i < last; ++i) {
            const double x = heldPixel(canvas.x(), row.x(i));
            const double a = heldPixel(canvas.y(), row.y(i));
            const double b = secondPixel(i);
            if (std::isnan(x) || std::isnan(a) || std::isnan(b))
                filler.finish();
            else
                filler.addStep(x, a, b, steps);
        }
    }

    // Each column is filled between its extremes; columns without samples are bridged.
    void addColumns(std::size_t begin, std::size_t end) {
        const ScaleMap& map = canvas.x();
        const double left = std::floor(canvas.rect().left());
        const double right = std::ceil(canvas.rect().right());
        const bool forward = (map.p2() > map.p1()) == (map.s2() > map.s1());
        std::size_t first = begin;
        for (double column = 0.0; column < right - left && first < end; column += 1.0) {
            const double edge = forward ? left + column + 1.0 : right - column - 1.0;
            const std::size_t last = std::clamp(row.lowerBound(map.invTransform(edge)), first, end);
            if (last > first)
                addColumn(forward ? edge - 0.5 : edge + 0.5, first, last);
            first = last;
        }
    }

    void addColumn(double middle, std::size_t first, std::size_t last) {
        const Interval a = row.yExtent(first, last);
        const Interval b = second ? second->yExtent(first, last) : Interval{0.0, 0.0};
        if (a.isEmpty() || b.isEmpty()) {
            filler.finish();
            return;
        }
        const auto pixels = [&](const Interval& values) {
            return std::minmax(
                {pixelOrEnd(canvas.y(), values.min), pixelOrEnd(canvas.y(), values.max)});
        };
        const auto [top, bottom] = pixels(a);
        const auto other = second ? pixels(b) : std::pair{levelPixel, levelPixel};
        filler.add(middle, std::min(top, other.first), std::max(bottom, other.second));
    }

    Canvas& canvas;
    const Samples& row;
    const Samples* second;
    LineSteps steps;
    double levelPixel = 0.0;
    Filler filler;
};

} // namespace

void fillBetween(Canvas& canvas, const Samples& row, const std::variant<Samples, double>& other,
                 const Color& color, LineSteps steps) {
    if (color.alpha() > 0)
        BandFill(canvas, row, other, color, steps).run();
}

Color thinned(const Color& color, double opacity) {
    return color.withAlpha(static_cast<int>(std::lround(color.alpha() * opacity)));
}

void drawThrough(Canvas& canvas, const Samples& samples, double width) {
    if (!(width > 0.0))
        return;
    std::vector<Point> path;
    const Rect& area = canvas.rect();
    if (samples.isSorted())
        reduceSorted(samples, canvas.x(), canvas.y(), area.left() - width - 1.0,
                     area.right() + width + 1.0, path);
    else
        mapAll(samples, canvas.x(), canvas.y(), path);
    canvas.drawPolyline(path, Pen(canvas.look().color, width));
}

} // namespace zembra
