// SPDX-License-Identifier: MIT
#include "NearestPoint.h"

#include "SideView.h"

#include "data/SampleStore.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace zembra {

namespace {

// Runs of samples up to this long are looked at one by one.
constexpr std::size_t few = ExtentIndex::blockSize;

// How far a number lies outside of two others, in any order; 0 where either of them is unknown.
double outside(double number, double a, double b) {
    const auto [low, high] = std::minmax(a, b);
    return std::isnan(a) || std::isnan(b) ? 0.0 : std::max({low - number, number - high, 0.0});
}

class Search {
public:
    Search(const Samples& samples, const Point& pixel, const ScaleMap& x, const ScaleMap& y,
           const std::function<bool(std::size_t)>& counts)
        : samples(samples), pixel(pixel), x(x), y(y), area(areaOf(x, y)), counts(counts) {}

    // Halves the run, the nearer half first, and leaves out what is too far away as a whole.
    void searchSorted(std::size_t first, std::size_t last) {
        if (last - first <= few) {
            searchAll(first, last);
            return;
        }
        const std::size_t middle = first + (last - first) / 2;
        const double lower = leastDistance(first, middle);
        const double upper = leastDistance(middle, last);
        const bool lowerFirst = lower <= upper;
        if ((lowerFirst ? lower : upper) < distance)
            lowerFirst ? searchSorted(first, middle) : searchSorted(middle, last);
        if ((lowerFirst ? upper : lower) < distance)
            lowerFirst ? searchSorted(middle, last) : searchSorted(first, middle);
    }

    void searchAll(std::size_t first, std::size_t last) {
        samples.store().read([&](const auto& xs, const auto& ys) {
            for (std::size_t i = first; i < last; ++i) {
                const std::size_t slot = samples.store().slot(i);
                consider(i, {heldPixel(x, xs[slot]), heldPixel(y, ys[slot])});
            }
        });
    }

    // The samples whose x may lie within the axis.
    void searchSorted() {
        constexpr double slack = 0.5;
        const double a = x.invTransform(area.left() - slack);
        const double b = x.invTransform(area.right() + slack);
        const bool known = std::isfinite(a) && std::isfinite(b);
        const std::size_t first = known ? samples.lowerBound(std::min(a, b)) : 0;
        const double beyond = std::nextafter(std::max(a, b), std::numeric_limits<double>::max());
        const std::size_t last = known ? samples.lowerBound(beyond) : samples.size();
        if (first < last)
            searchSorted(first, last);
    }

    std::optional<NearestSample> result() const {
        if (!(distance < std::numeric_limits<double>::infinity()))
            return std::nullopt;
        return NearestSample{nearest, samples.x(nearest), samples.y(nearest), distance};
    }

private:
    void consider(std::size_t i, const Point& p) {
        if (!area.contains(p))
            return;
        const double found = std::hypot(p.x - pixel.x, p.y - pixel.y);
        if (found < distance && (!counts || counts(i))) {
            distance = found;
            nearest = i;
        }
    }

    // What no sample of the run can fall below.
    double leastDistance(std::size_t first, std::size_t last) const {
        const Interval values = samples.yExtent(first, last);
        if (values.isEmpty())
            return std::numeric_limits<double>::infinity();
        const double dx =
            outside(pixel.x, heldPixel(x, samples.x(first)), heldPixel(x, samples.x(last - 1)));
        const double dy = outside(pixel.y, pixelOrEnd(y, values.min), heldPixel(y, values.max));
        return std::hypot(dx, dy);
    }

    const Samples& samples;
    const Point& pixel;
    const ScaleMap& x;
    const ScaleMap& y;
    Rect area;
    const std::function<bool(std::size_t)>& counts;
    double distance = std::numeric_limits<double>::infinity();
    std::size_t nearest = 0;
};

} // namespace

std::optional<NearestSample> nearestPoint(const Samples& samples, const Point& pixel,
                                          const ScaleMap& x, const ScaleMap& y,
                                          const std::function<bool(std::size_t)>& counts) {
    Search search(samples, pixel, x, y, counts);
    if (samples.isSorted())
        search.searchSorted();
    else
        search.searchAll(0, samples.size());
    return search.result();
}

} // namespace zembra
