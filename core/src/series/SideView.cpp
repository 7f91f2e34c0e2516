// SPDX-License-Identifier: MIT
#include "SideView.h"

#include <zembra/series/Canvas.h>

#include <algorithm>
#include <cmath>

namespace zembra {

namespace {

constexpr double farAway = 1e9;

double held(double pixel) {
    // NaN stays what it is.
    return pixel > farAway ? farAway : pixel < -farAway ? -farAway : pixel;
}

} // namespace

void drawBaseline(Canvas& canvas, const SideView& view, double number) {
    const double line = std::floor(view.value(number));
    const PixelSpan values = view.valueSpan();
    if (!(line > values.low + 1.0 && line < values.high - 2.0))
        return;
    const PixelSpan positions = view.positionSpan();
    const SeriesLook& look = canvas.look();
    canvas.fillRect(view.rect(positions.low, positions.high, line, line + 1.0),
                    mix(look.background, look.foreground, 0.6));
}

double heldPixel(const ScaleMap& map, double number) {
    return held(map.transform(number));
}

double pixelOrEnd(const ScaleMap& map, double number) {
    const double pixel = heldPixel(map, number);
    if (!std::isnan(pixel))
        return pixel;
    return map.s1() <= map.s2() ? map.p1() : map.p2();
}

Rect areaOf(const ScaleMap& x, const ScaleMap& y) {
    return {std::min(x.p1(), x.p2()), std::min(y.p1(), y.p2()), std::abs(x.p2() - x.p1()),
            std::abs(y.p2() - y.p1())};
}

double distanceTo(const Rect& rect, const Point& pixel) {
    const double dx = std::max({rect.left() - pixel.x, pixel.x - rect.right(), 0.0});
    const double dy = std::max({rect.top() - pixel.y, pixel.y - rect.bottom(), 0.0});
    return std::hypot(dx, dy);
}

bool meets(const Rect& rect, const Rect& area) {
    return rect.left() <= area.right() && rect.right() >= area.left() &&
           rect.top() <= area.bottom() && rect.bottom() >= area.top();
}

NearestSample nearestSample(std::size_t index, double position, double value, double distance,
                            Orientation orientation) {
    return orientation == Orientation::Horizontal ? NearestSample{index, value, position, distance}
                                                  : NearestSample{index, position, value, distance};
}

Bounds turnedBounds(const Interval& positions, const Interval& values, bool valuesFromZero,
                    Orientation orientation) {
    return orientation == Orientation::Horizontal
               ? Bounds{values, positions, valuesFromZero, false}
               : Bounds{positions, values, false, valuesFromZero};
}

SideView::SideView(const Canvas& canvas, Orientation orientation)
    : x(canvas.x()),
      y(canvas.y()),
      horizontal(orientation == Orientation::Horizontal),
      canvasArea(canvas.rect()) {}

SideView::SideView(const ScaleMap& x, const ScaleMap& y, Orientation orientation)
    : x(x), y(y), horizontal(orientation == Orientation::Horizontal), canvasArea(areaOf(x, y)) {}

PixelSpan SideView::positionSpan() const {
    return horizontal ? PixelSpan{canvasArea.top(), canvasArea.bottom()}
                      : PixelSpan{canvasArea.left(), canvasArea.right()};
}

PixelSpan SideView::valueSpan() const {
    return horizontal ? PixelSpan{canvasArea.left(), canvasArea.right()}
                      : PixelSpan{canvasArea.top(), canvasArea.bottom()};
}

double SideView::position(double number) const {
    return heldPixel(positions(), number);
}

double SideView::value(double number) const {
    return heldPixel(values(), number);
}

double SideView::positionOrEnd(double number) const {
    return pixelOrEnd(positions(), number);
}

double SideView::valueOrEnd(double number) const {
    return pixelOrEnd(values(), number);
}

double SideView::positionLength(double even) const {
    const ScaleMap& map = positions();
    const Scale& scale = map.scale();
    // Halves keep the difference finite for ranges that fill all of double.
    const double halfSpan =
        std::abs(0.5 * scale.transform(map.s2()) - 0.5 * scale.transform(map.s1()));
    const double share = 0.5 * even / halfSpan;
    const double length = share * std::abs(map.p2() - map.p1());
    return std::isfinite(length) ? held(length) : std::isnan(length) ? 0.0 : farAway;
}

Rect SideView::rect(double p1, double p2, double v1, double v2) const {
    const auto [pLow, pHigh] = std::minmax({p1, p2});
    const auto [vLow, vHigh] = std::minmax({v1, v2});
    return horizontal ? Rect{vLow, pLow, vHigh - vLow, pHigh - pLow}
                      : Rect{pLow, vLow, pHigh - pLow, vHigh - vLow};
}

Point SideView::point(double p, double v) const {
    return horizontal ? Point{v, p} : Point{p, v};
}

} // namespace zembra
