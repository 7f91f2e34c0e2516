// SPDX-License-Identifier: MIT
#include <zembra/series/CandlestickSeries.h>

#include "SideView.h"
#include "SortedRows.h"

#include <zembra/data/Samples.h>
#include <zembra/series/Canvas.h>

#include <cmath>
#include <limits>
#include <utility>

namespace zembra {

namespace {

struct Candle {
    double open;
    double high;
    double low;
    double close;
};

struct CandleColors {
    Color up;
    Color down;
};

bool isDark(const Color& color) {
    return 0.2126 * color.red() + 0.7152 * color.green() + 0.0722 * color.blue() < 110.0;
}

CandleColors colorsFor(const CandleStyle& style, const Color& background) {
    // Source: M. Okabe, K. Ito, "Color Universal Design", 2008; lightened on dark grounds.
    const CandleColors usual = isDark(background) ? CandleColors{{92, 172, 238}, {255, 146, 74}}
                                                  : CandleColors{{0, 114, 178}, {213, 94, 0}};
    return {style.up.value_or(usual.up), style.down.value_or(usual.down)};
}

/// Draws candles of one width on whole pixels.
class CandlePainter {
public:
    CandlePainter(Canvas& canvas, const CandleStyle& style, double length)
        : canvas(canvas),
          shape(style.shape),
          colors(colorsFor(style, canvas.look().background)),
          line(length >= 18.0 ? 2.0 : 1.0) {
        // The same number of pixels on either side of the wick.
        half = std::floor(0.5 * (length - line));
    }

    void draw(double position, const Candle& candle) {
        const double left = std::floor(position - 0.5 * line + 0.5);
        const double open = std::round(pixel(candle.open));
        const double close = std::round(pixel(candle.close));
        const auto [top, bottom] =
            std::minmax({std::round(pixel(candle.high)), std::round(pixel(candle.low))});
        const Color color = candle.close < candle.open ? colors.down : colors.up;
        canvas.fillRect({left, top, line, std::max(bottom - top, 1.0)}, color);
        if (half < 1.0)
            return;
        if (shape == CandleShape::Candle) {
            const double upper = std::min(open, close);
            const double height = std::max(std::abs(close - open), 1.0);
            canvas.fillRect({left - half, upper, line + 2.0 * half, height}, color);
        } else {
            canvas.fillRect({left - half, open - 0.5 * line, half, line}, color);
            canvas.fillRect({left + line, close - 0.5 * line, half, line}, color);
        }
    }

private:
    double pixel(double value) const { return pixelOrEnd(canvas.y(), value); }

    Canvas& canvas;
    CandleShape shape;
    CandleColors colors;
    // Units: logical pixels.
    double line;
    double half;
};

} // namespace

struct CandlestickSeries::Private {
    // In order of x; finite.
    std::vector<double> x;
    std::vector<double> open;
    std::vector<double> high;
    std::vector<double> low;
    std::vector<double> close;
    std::vector<std::size_t> order;
    // Over the vectors above.
    Samples highRow;
    Samples lowRow;
    CandleStyle style;
    struct Step {
        Scale scale;
        double even;
    };
    mutable std::optional<Step> step;
    mutable BoundsCache boundsCache;

    double length(const ScaleMap& map) const;
    Candle merged(const SampleRange& range) const;
};

double CandlestickSeries::Private::length(const ScaleMap& map) const {
    if (!step || !(step->scale == map.scale()))
        step = Step{map.scale(), closestStep(x, map.scale())};
    return SideView(map, map, Orientation::Vertical).positionLength(style.share * step->even);
}

Candle CandlestickSeries::Private::merged(const SampleRange& range) const {
    return {open[range.first], highRow.yExtent(range.first, range.last).max,
            lowRow.yExtent(range.first, range.last).min, close[range.last - 1]};
}

CandlestickSeries::CandlestickSeries() : d(std::make_unique<Private>()) {}

CandlestickSeries::CandlestickSeries(CandleRows rows, std::string name) : CandlestickSeries() {
    setSamples(std::move(rows));
    setName(std::move(name));
}

CandlestickSeries::~CandlestickSeries() = default;

void CandlestickSeries::setSamples(CandleRows rows) {
    const std::size_t count = std::min(
        {rows.x.size(), rows.open.size(), rows.high.size(), rows.low.size(), rows.close.size()});
    d->order = ascendingOrder(std::span(rows.x).first(count), [&](std::size_t i) {
        return std::isfinite(rows.open[i]) && std::isfinite(rows.high[i]) &&
               std::isfinite(rows.low[i]) && std::isfinite(rows.close[i]);
    });
    d->x = gathered(rows.x, d->order);
    d->open = gathered(rows.open, d->order);
    d->high = gathered(rows.high, d->order);
    d->low = gathered(rows.low, d->order);
    d->close = gathered(rows.close, d->order);
    for (std::size_t i = 0; i < d->x.size(); ++i) {
        const auto [least, greatest] =
            std::minmax({d->open[i], d->high[i], d->low[i], d->close[i]});
        d->high[i] = greatest;
        d->low[i] = least;
    }
    d->highRow = Samples::borrowed(d->x, d->high);
    d->lowRow = Samples::borrowed(d->x, d->low);
    d->step.reset();
    changed();
}

bool CandlestickSeries::setStyle(const CandleStyle& style) {
    if (!(style.share > 0.0 && style.share <= 1.0))
        return false;
    d->style = style;
    changed();
    return true;
}

const CandleStyle& CandlestickSeries::style() const {
    return d->style;
}

bool CandlestickSeries::takesCycleColor() const {
    return false;
}

Bounds CandlestickSeries::bounds(const Scale& x, const Scale& y) const {
    return d->boundsCache.get(revision(), x, y, [&] {
        Interval positions;
        Bounds bounds;
        for (std::size_t i = 0; i < d->x.size(); ++i) {
            if (!x.contains(d->x[i]) || !y.contains(d->low[i]) || !y.contains(d->high[i]))
                continue;
            positions.include(d->x[i]);
            bounds.y.include(d->low[i]);
            bounds.y.include(d->high[i]);
        }
        if (positions.isEmpty())
            return bounds;
        const double width = d->style.share * closestStep(d->x, x);
        bounds.x.include(widened(positions.min, width, x));
        bounds.x.include(widened(positions.max, width, x));
        return bounds;
    });
}

void CandlestickSeries::draw(Canvas& canvas) const {
    const Rect& area = canvas.rect();
    const double length = d->length(canvas.x());
    CandlePainter painter(canvas, d->style, length);
    const double reach = 0.5 * length + 1.0;
    const SampleRange seen =
        rangeBetween(d->x, canvas.x(), area.left() - reach, area.right() + reach);
    const auto isPlaced = [&](const Candle& candle) {
        const Scale& scale = canvas.y().scale();
        return scale.contains(candle.low) && scale.contains(candle.high);
    };
    if (static_cast<double>(seen.count()) > area.width) {
        forEachColumn(d->x, canvas.x(), area.left(), area.right(),
                      [&](double column, const SampleRange& range) {
                          painter.draw(column + 0.5, d->merged(range));
                      });
        return;
    }
    for (std::size_t i = seen.first; i < seen.last; ++i) {
        const double position = heldPixel(canvas.x(), d->x[i]);
        const Candle candle{d->open[i], d->high[i], d->low[i], d->close[i]};
        if (!std::isnan(position) && isPlaced(candle))
            painter.draw(position, candle);
    }
}

void CandlestickSeries::drawLegendKey(Canvas& canvas, const Rect& area) const {
    const CandleColors colors = colorsFor(d->style, canvas.look().background);
    // One candle up, one down, side by side.
    const double width = std::floor(0.35 * area.width / 2.0) * 2.0 + 1.0;
    const auto candle = [&](double centre, bool rises) {
        const Color& color = rises ? colors.up : colors.down;
        const double left = std::floor(centre - 0.5 * width);
        const double wick = left + std::floor(0.5 * width);
        canvas.fillRect({wick, area.y, 1.0, area.height}, color);
        if (d->style.shape == CandleShape::Candle) {
            const double inset = std::round(0.2 * area.height);
            canvas.fillRect({left, area.y + inset, width, area.height - 2.0 * inset}, color);
            return;
        }
        const double half = std::floor(0.5 * width);
        const double high = area.y + std::round(0.25 * area.height);
        const double low = area.y + std::round(0.75 * area.height);
        canvas.fillRect({left, rises ? low : high, half, 1.0}, color);
        canvas.fillRect({wick + 1.0, rises ? high : low, half, 1.0}, color);
    };
    candle(area.x + 0.25 * area.width, true);
    candle(area.x + 0.75 * area.width, false);
}

std::optional<NearestSample> CandlestickSeries::findNearest(const Point& pixel, const ScaleMap& x,
                                                            const ScaleMap& y) const {
    const Rect area = areaOf(x, y);
    const double half = std::max(0.5 * d->length(x), 0.5);
    const auto place = [&](std::size_t i) { return heldPixel(x, d->x[i]); };
    const auto gap = [&](std::size_t i) { return std::abs(place(i) - pixel.x) - half; };
    const auto distance = [&](std::size_t i) {
        const double high = heldPixel(y, d->high[i]);
        const double low = heldPixel(y, d->low[i]);
        const Rect rect{place(i) - half, std::min(high, low), 2.0 * half, std::abs(low - high)};
        return !std::isnan(high + low) && meets(rect, area)
                   ? distanceTo(rect, pixel)
                   : std::numeric_limits<double>::quiet_NaN();
    };
    const SampleRange seen = rangeBetween(d->x, x, area.left() - half, area.right() + half);
    const auto start = std::lower_bound(d->x.begin(), d->x.end(), x.invTransform(pixel.x));
    const auto found =
        nearestAround(static_cast<std::size_t>(start - d->x.begin()), seen, gap, distance);
    if (!found)
        return std::nullopt;
    return NearestSample{d->order[found->index], d->x[found->index], d->close[found->index],
                         found->distance};
}

} // namespace zembra
