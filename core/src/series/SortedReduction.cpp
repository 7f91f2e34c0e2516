// SPDX-License-Identifier: MIT
#include "SortedReduction.h"

#include "PixelMap.h"

#include "data/SampleStore.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

namespace zembra {

namespace {

using Domain = ExtentIndex::Domain;

constexpr double gap = std::numeric_limits<double>::quiet_NaN();
// Fine enough that the place of a spike within its pixel shows in the shades of its edges.
constexpr std::size_t stripsPerColumn = 8;
// From here on, the extremes of a strip are asked of the index.
constexpr std::size_t fewSamples = 2 * ExtentIndex::blockSize;
// From here on, moving the ends of a strip to those of an index block moves nothing visibly.
constexpr std::size_t manySamples = 32 * ExtentIndex::blockSize;

// Which samples the scale can place, if the index knows them.
std::optional<Domain> domainOf(const Samples::Store& store, const Scale& scale) {
    const auto placed = [&](Domain domain) {
        const Interval all = store.extent(domain, 0, store.count);
        return all.isEmpty() || (scale.contains(all.min) && scale.contains(all.max));
    };
    if (placed(Domain::All))
        return Domain::All;
    if (!scale.contains(-1.0) && !scale.contains(0.0) && placed(Domain::Positive))
        return Domain::Positive;
    return std::nullopt;
}

template <class X, class Y>
class Reduction {
public:
    Reduction(const Samples::Store& store, const X& x, const Y& y, Domain domain,
              const ScaleMap& xMap, const ScaleMap& yMap, std::vector<Point>& path)
        : store(store), x(x), y(y), domain(domain), xMap(xMap), toX(xMap), toY(yMap), path(path) {}

    void run(double left, double right) {
        const double firstColumn = std::floor(left);
        const double lastColumn = std::ceil(right);
        const auto strips = static_cast<std::size_t>(lastColumn - firstColumn) * stripsPerColumn;
        const bool forward = (xMap.p2() > xMap.p1()) == (xMap.s2() > xMap.s1());
        const auto edge = [&](std::size_t i) {
            const double offset = static_cast<double>(i) / stripsPerColumn;
            return forward ? firstColumn + offset : lastColumn - offset;
        };
        const auto value = [&](std::size_t i) { return xMap.invTransform(edge(i)); };
        const std::size_t begin = lowerBoundNear(store, x, 0, store.count, 0, value(0));
        const std::size_t end =
            lowerBoundNear(store, x, begin, store.count, store.count, value(strips));
        const std::size_t from = begin > 0 ? begin - 1 : 0;
        const std::size_t to = std::min(end + 1, store.count);
        if (end - begin <= 2 * strips) {
            addEach(from, to);
            return;
        }
        addEach(from, begin);
        const std::size_t average = (end - begin) / strips;
        std::size_t first = begin;
        for (std::size_t i = 0; i < strips; ++i) {
            // What lies ahead is likely as dense as what lies behind.
            std::size_t last = i + 1 == strips
                                   ? end
                                   : lowerBoundNear(store, x, first, end,
                                                    std::min(first + average, end), value(i + 1));
            if (i + 1 < strips && last - first > manySamples)
                last = roundedToBlock(last, end);
            addStrip(first, last, 0.5 * (edge(i) + edge(i + 1)));
            first = last;
        }
        addEach(end, to);
    }

private:
    bool placeable(double v) const {
        return std::isfinite(v) && (domain == Domain::All || v > 0.0);
    }

    std::size_t roundedToBlock(std::size_t last, std::size_t end) const {
        constexpr std::size_t block = ExtentIndex::blockSize;
        const std::size_t excess = store.slot(last == end ? last - 1 : last) % block;
        return excess <= block / 2 ? last - excess : std::min(last - excess + block, end);
    }

    void add(double px, double py) {
        if (!path.empty() && path.back().x == px && path.back().y == py)
            return;
        path.push_back({px, py});
    }

    void addGap() {
        if (!path.empty() && !std::isnan(path.back().x))
            path.push_back({gap, gap});
    }

    void addSample(std::size_t i) {
        const std::size_t s = store.slot(i);
        const double v = y[s];
        const double px = toX(x[s]);
        if (placeable(v) && std::isfinite(px))
            add(px, toY(v));
        else
            addGap();
    }

    void addEach(std::size_t first, std::size_t last) {
        for (std::size_t i = first; i < last; ++i)
            addSample(i);
    }

    void addStrip(std::size_t first, std::size_t last, double middle) {
        const std::size_t count = last - first;
        if (count <= 4) {
            addEach(first, last);
            return;
        }
        addSample(first);
        if (count < fewSamples)
            addExtremes(first, last);
        else
            addIndexed(first, last, middle);
        addSample(last - 1);
    }

    // Few enough samples to see where their extremes are.
    void addExtremes(std::size_t first, std::size_t last) {
        std::size_t least = last;
        std::size_t greatest = last;
        double low = std::numeric_limits<double>::infinity();
        double high = -low;
        for (std::size_t i = first; i < last; ++i) {
            const double v = y[store.slot(i)];
            if (!placeable(v))
                continue;
            if (v < low) {
                low = v;
                least = i;
            }
            if (v > high) {
                high = v;
                greatest = i;
            }
        }
        if (least == last)
            return;
        addSample(std::min(least, greatest));
        addSample(std::max(least, greatest));
    }

    // The index knows the extremes, not their places: the shorter way through both is taken.
    void addIndexed(std::size_t first, std::size_t last, double middle) {
        const Interval extent = store.extent(domain, first, last);
        if (extent.isEmpty())
            return;
        const double begin = y[store.slot(first)];
        const double end = y[store.slot(last - 1)];
        const double low = toY(extent.min);
        const double high = toY(extent.max);
        if (begin <= end) {
            add(middle, low);
            add(middle, high);
        } else {
            add(middle, high);
            add(middle, low);
        }
    }

    const Samples::Store& store;
    const X& x;
    const Y& y;
    Domain domain;
    const ScaleMap& xMap;
    PixelMap toX;
    PixelMap toY;
    std::vector<Point>& path;
};

} // namespace

void reduceSorted(const Samples& samples, const ScaleMap& x, const ScaleMap& y, double left,
                  double right, std::vector<Point>& path) {
    path.clear();
    const Samples::Store& store = samples.store();
    if (store.count == 0 || !(left < right) || !std::isfinite(x.invTransform(left)) ||
        !std::isfinite(x.invTransform(right)))
        return;
    const auto domain = domainOf(store, y.scale());
    if (!domain) {
        mapAll(samples, x, y, path);
        return;
    }
    store.read([&](const auto& xs, const auto& ys) {
        Reduction(store, xs, ys, *domain, x, y, path).run(left, right);
    });
}

void mapAll(const Samples& samples, const ScaleMap& x, const ScaleMap& y,
            std::vector<Point>& path) {
    path.clear();
    const Samples::Store& store = samples.store();
    path.reserve(store.count);
    const PixelMap toX(x);
    const PixelMap toY(y);
    store.read([&](const auto& xs, const auto& ys) {
        for (std::size_t i = 0; i < store.count; ++i) {
            const std::size_t s = store.slot(i);
            path.push_back({toX(xs[s]), toY(ys[s])});
        }
    });
}

} // namespace zembra
