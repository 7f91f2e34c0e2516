// SPDX-License-Identifier: MIT
#include <zembra/series/BandSeries.h>

#include "BandFill.h"
#include "NearestPoint.h"
#include "SortedRows.h"

#include <zembra/data/Samples.h>
#include <zembra/series/Canvas.h>

#include <cmath>
#include <limits>
#include <utility>

namespace zembra {

struct BandSeries::Private {
    std::vector<double> x;
    std::vector<double> lower;
    std::vector<double> upper;
    // Over the vectors above.
    Samples lowerRow;
    Samples upperRow;
    BandStyle style;
    mutable BoundsCache boundsCache;
};

BandSeries::BandSeries() : d(std::make_unique<Private>()) {}

BandSeries::BandSeries(std::vector<double> x, std::vector<double> lower, std::vector<double> upper,
                       std::string name)
    : BandSeries() {
    setSamples(std::move(x), std::move(lower), std::move(upper));
    setName(std::move(name));
}

BandSeries::~BandSeries() = default;

void BandSeries::setSamples(std::vector<double> x, std::vector<double> lower,
                            std::vector<double> upper) {
    const std::size_t count = std::min({x.size(), lower.size(), upper.size()});
    x.resize(count);
    lower.resize(count);
    upper.resize(count);
    // A gap in one is a gap in both, also for what the extents of the rows tell.
    for (std::size_t i = 0; i < count; ++i)
        if (!std::isfinite(lower[i]) || !std::isfinite(upper[i]))
            lower[i] = upper[i] = std::numeric_limits<double>::quiet_NaN();
    d->x = std::move(x);
    d->lower = std::move(lower);
    d->upper = std::move(upper);
    d->lowerRow = Samples::borrowed(d->x, d->lower);
    d->upperRow = Samples::borrowed(d->x, d->upper);
    changed();
}

bool BandSeries::setStyle(const BandStyle& style) {
    if (!std::isfinite(style.lineWidth) || style.lineWidth < 0.0 ||
        !(style.opacity >= 0.0 && style.opacity <= 1.0))
        return false;
    d->style = style;
    changed();
    return true;
}

const BandStyle& BandSeries::style() const {
    return d->style;
}

Bounds BandSeries::bounds(const Scale& x, const Scale& y) const {
    return d->boundsCache.get(revision(), x, y, [&] {
        Bounds bounds;
        for (std::size_t i = 0; i < d->x.size(); ++i) {
            if (!x.contains(d->x[i]) || !y.contains(d->lower[i]) || !y.contains(d->upper[i]))
                continue;
            bounds.x.include(d->x[i]);
            bounds.y.include(d->lower[i]);
            bounds.y.include(d->upper[i]);
        }
        return bounds;
    });
}

void BandSeries::draw(Canvas& canvas) const {
    fillBetween(canvas, d->upperRow, d->lowerRow, thinned(canvas.look().color, d->style.opacity));
    drawThrough(canvas, d->lowerRow, d->style.lineWidth);
    drawThrough(canvas, d->upperRow, d->style.lineWidth);
}

void BandSeries::drawLegendKey(Canvas& canvas, const Rect& area) const {
    canvas.fillRect(area, thinned(canvas.look().color, d->style.opacity));
    if (d->style.lineWidth > 0.0) {
        const double width = std::min(d->style.lineWidth, 0.5 * area.height);
        canvas.fillRect({area.x, area.y, area.width, width}, canvas.look().color);
        canvas.fillRect({area.x, area.bottom() - width, area.width, width}, canvas.look().color);
    }
}

std::optional<NearestSample> BandSeries::findNearest(const Point& pixel, const ScaleMap& x,
                                                     const ScaleMap& y) const {
    const auto low = nearestPoint(d->lowerRow, pixel, x, y);
    const auto high = nearestPoint(d->upperRow, pixel, x, y);
    return low && (!high || low->distance < high->distance) ? low : high;
}

} // namespace zembra
