// SPDX-License-Identifier: MIT
#include <zembra/series/BoxPlotSeries.h>

#include "BandFill.h"
#include "SideView.h"
#include "SortedRows.h"

#include <zembra/series/Canvas.h>

#include <cmath>
#include <limits>
#include <numeric>
#include <utility>

namespace zembra {

namespace {

// Of the fill; enough to tell the box from its ground, little enough for the grid to show.
constexpr double boxOpacity = 0.35;
// Units: logical pixels.
constexpr double capShare = 0.5;
constexpr double meanSize = 3.5;

double middleOfPixel(double position) {
    return std::floor(position) + 0.5;
}

} // namespace

struct BoxPlotSeries::Private {
    std::vector<double> positions;
    std::vector<std::vector<double>> groups;
    std::vector<BoxStatistics> statistics;
    // Boxes that there are, by position.
    std::vector<std::size_t> order;
    std::vector<double> ascending;
    BoxPlotStyle style;
    mutable BoundsCache boundsCache;

    void measure();
    double length(const SideView& view) const;
    bool isPlaced(const SideView& view, std::size_t i) const;
    void drawBox(Canvas& canvas, const SideView& view, std::size_t i, double length) const;
    void drawOutliers(Canvas& canvas, const SideView& view, std::size_t i) const;
};

void BoxPlotSeries::Private::measure() {
    statistics.clear();
    for (const auto& group : groups)
        statistics.push_back(boxStatistics(group, style.whiskerReach));
    order = ascendingOrder(positions, [this](std::size_t i) { return statistics[i].count > 0; });
    ascending = gathered(positions, order);
}

double BoxPlotSeries::Private::length(const SideView& view) const {
    return view.positionLength(style.share * closestStep(ascending, view.positions().scale()));
}

bool BoxPlotSeries::Private::isPlaced(const SideView& view, std::size_t i) const {
    return !std::isnan(view.position(positions[i])) &&
           !std::isnan(view.value(statistics[i].lowerWhisker)) &&
           !std::isnan(view.value(statistics[i].upperWhisker));
}

BoxPlotSeries::BoxPlotSeries() : d(std::make_unique<Private>()) {}

BoxPlotSeries::BoxPlotSeries(std::vector<std::vector<double>> groups, std::string name)
    : BoxPlotSeries() {
    std::vector<double> positions(groups.size());
    std::iota(positions.begin(), positions.end(), 0.0);
    setSamples(std::move(positions), std::move(groups));
    setName(std::move(name));
}

BoxPlotSeries::BoxPlotSeries(std::vector<double> positions, std::vector<std::vector<double>> groups,
                             std::string name)
    : BoxPlotSeries() {
    setSamples(std::move(positions), std::move(groups));
    setName(std::move(name));
}

BoxPlotSeries::~BoxPlotSeries() = default;

void BoxPlotSeries::setSamples(std::vector<double> positions,
                               std::vector<std::vector<double>> groups) {
    const std::size_t count = std::min(positions.size(), groups.size());
    positions.resize(count);
    groups.resize(count);
    d->positions = std::move(positions);
    d->groups = std::move(groups);
    d->measure();
    changed();
}

bool BoxPlotSeries::setStyle(const BoxPlotStyle& style) {
    const auto usable = [](double size) { return std::isfinite(size) && size >= 0.0; };
    if (!(style.share > 0.0 && style.share <= 1.0) || !(style.whiskerReach >= 0.0) ||
        !usable(style.lineWidth) || !usable(style.outlierSize))
        return false;
    d->style = style;
    d->measure();
    changed();
    return true;
}

const BoxPlotStyle& BoxPlotSeries::style() const {
    return d->style;
}

const std::vector<BoxStatistics>& BoxPlotSeries::statistics() const {
    return d->statistics;
}

Bounds BoxPlotSeries::bounds(const Scale& x, const Scale& y) const {
    const bool lies = d->style.orientation == Orientation::Horizontal;
    return d->boundsCache.get(revision(), x, y, [&] {
        const Scale& positionScale = lies ? y : x;
        const Scale& valueScale = lies ? x : y;
        const double width = d->style.share * closestStep(d->ascending, positionScale);
        Interval positions;
        Interval values;
        for (const std::size_t i : d->order) {
            const BoxStatistics& box = d->statistics[i];
            if (!positionScale.contains(d->positions[i]) ||
                !valueScale.contains(box.lowerWhisker) || !valueScale.contains(box.upperWhisker))
                continue;
            positions.include(widened(d->positions[i], width, positionScale));
            values.include(box.lowerWhisker);
            values.include(box.upperWhisker);
            for (const double outlier : box.outliers)
                if (valueScale.contains(outlier))
                    values.include(outlier);
        }
        return turnedBounds(positions, values, false, d->style.orientation);
    });
}

void BoxPlotSeries::Private::drawBox(Canvas& canvas, const SideView& view, std::size_t i,
                                     double length) const {
    const BoxStatistics& box = statistics[i];
    const Color color = canvas.look().color;
    const Pen pen(color, style.lineWidth);
    const double centre = middleOfPixel(view.position(positions[i]));
    // Whole pixels on either side, so that the box is even.
    const double half = std::max(std::round(0.5 * length), 1.0);
    const double lower = view.value(box.lowerQuartile);
    const double upper = view.value(box.upperQuartile);
    const auto stroke = [&](double p1, double v1, double p2, double v2, const Pen& with) {
        canvas.drawLine(view.point(p1, v1), view.point(p2, v2), with);
    };
    const auto whisker = [&](double from, double to) {
        stroke(centre, from, centre, to, pen);
        stroke(centre - capShare * half, to, centre + capShare * half, to, pen);
    };
    whisker(lower, view.value(box.lowerWhisker));
    whisker(upper, view.value(box.upperWhisker));
    const Rect body = view.rect(centre - half, centre + half, lower, upper);
    canvas.fillRect(body, mix(canvas.look().background, color, boxOpacity));
    canvas.drawRect(body, pen);
    const double median = view.value(box.median);
    stroke(centre - half, median, centre + half, median, Pen(color, style.lineWidth + 1.25));
    if (style.showsMean) {
        const Point p = view.point(centre, view.value(box.mean));
        canvas.fillPolygon({{p.x - meanSize, p.y},
                            {p.x, p.y - meanSize},
                            {p.x + meanSize, p.y},
                            {p.x, p.y + meanSize}},
                           canvas.look().foreground);
    }
}

// Where more outliers than pixels lie, each pixel shows one.
void BoxPlotSeries::Private::drawOutliers(Canvas& canvas, const SideView& view,
                                          std::size_t i) const {
    const double radius = 0.5 * style.outlierSize;
    const double centre = middleOfPixel(view.position(positions[i]));
    double before = std::numeric_limits<double>::quiet_NaN();
    for (const double outlier : statistics[i].outliers) {
        const double value = view.value(outlier);
        if (std::isnan(value) || std::abs(value - before) < 1.0)
            continue;
        before = value;
        canvas.drawEllipse(view.point(centre, value), radius, radius,
                           Pen(canvas.look().color, style.lineWidth));
    }
}

void BoxPlotSeries::draw(Canvas& canvas) const {
    const SideView view(canvas, d->style.orientation);
    const double length = d->length(view);
    const PixelSpan span = view.positionSpan();
    const double reach = 0.5 * length + d->style.outlierSize + 1.0;
    const SampleRange seen =
        rangeBetween(d->ascending, view.positions(), span.low - reach, span.high + reach);
    for (std::size_t k = seen.first; k < seen.last; ++k) {
        const std::size_t i = d->order[k];
        if (!d->isPlaced(view, i))
            continue;
        d->drawBox(canvas, view, i, length);
        if (d->style.outlierSize > 0.0)
            d->drawOutliers(canvas, view, i);
    }
}

void BoxPlotSeries::drawLegendKey(Canvas& canvas, const Rect& area) const {
    const double line = std::min(d->style.lineWidth, 0.5 * area.height);
    const Pen pen(canvas.look().color, line);
    const Rect body =
        Rect{area.x + 0.15 * area.width, area.y, 0.7 * area.width, area.height}.grown(-0.5 * line);
    const double middle = area.y + 0.5 * area.height;
    canvas.drawLine({area.left(), middle}, {area.right(), middle}, pen);
    canvas.fillRect(body, mix(canvas.look().background, canvas.look().color, boxOpacity));
    canvas.drawRect(body, pen);
    const double centre = area.x + 0.5 * area.width;
    canvas.drawLine({centre, body.top()}, {centre, body.bottom()},
                    Pen(canvas.look().color, line + 1.25));
}

std::optional<NearestSample> BoxPlotSeries::findNearest(const Point& pixel, const ScaleMap& x,
                                                        const ScaleMap& y) const {
    const SideView view(x, y, d->style.orientation);
    const double half = 0.5 * d->length(view);
    const auto found = nearestOfAll(d->order.size(), [&](std::size_t k) {
        const std::size_t i = d->order[k];
        const BoxStatistics& box = d->statistics[i];
        if (!d->isPlaced(view, i))
            return std::numeric_limits<double>::quiet_NaN();
        const double centre = view.position(d->positions[i]);
        const Rect rect = view.rect(centre - half, centre + half, view.value(box.lowerWhisker),
                                    view.value(box.upperWhisker));
        return meets(rect, view.area()) ? distanceTo(rect, pixel)
                                        : std::numeric_limits<double>::quiet_NaN();
    });
    if (!found)
        return std::nullopt;
    const std::size_t i = d->order[found->index];
    return nearestSample(i, d->positions[i], d->statistics[i].median, found->distance,
                         d->style.orientation);
}

} // namespace zembra
