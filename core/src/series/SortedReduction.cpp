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
// Up to here, all samples of a strip are taken.
constexpr std::size_t fewSamples = 4;
// Up to here, the extremes of a strip are placed where they are.
constexpr std::size_t someSamples = 32;
// From here on, moving the ends of a strip to those of an index block moves nothing visibly.
constexpr std::size_t manySamples = 8 * ExtentIndex::blockSize;

// How many strips a pixel column is split into: enough that the place of a spike within its pixel
// shows in the shades of its edges.
std::size_t stripsFor(std::size_t samplesPerColumn) {
    // Every strip has its own spikes here anyhow, and its ends move to those of index blocks.
    if (samplesPerColumn >= 4 * manySamples)
        return 4;
    // Extremes whose place is not looked up need narrower strips.
    return samplesPerColumn > 8 * someSamples ? 16 : 8;
}

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
        const auto columns = static_cast<std::size_t>(lastColumn - firstColumn);
        const bool forward = (xMap.p2() > xMap.p1()) == (xMap.s2() > xMap.s1());
        const std::size_t begin = lowerBoundNear(
            store, x, 0, store.count, 0, xMap.invTransform(forward ? firstColumn : lastColumn));
        const std::size_t end =
            lowerBoundNear(store, x, begin, store.count, store.count,
                           xMap.invTransform(forward ? lastColumn : firstColumn));
        const std::size_t perColumn = stripsFor((end - begin) / columns);
        const std::size_t strips = columns * perColumn;
        const auto edge = [&](std::size_t i) {
            const double offset = static_cast<double>(i) / static_cast<double>(perColumn);
            return forward ? firstColumn + offset : lastColumn - offset;
        };
        // Without the indirections of scales where there is nothing to them.
        const double slope = (xMap.s2() - xMap.s1()) / (xMap.p2() - xMap.p1());
        const bool linear = xMap.scale().isLinear() && std::isfinite(slope);
        const auto value = [&](std::size_t i) {
            return linear ? xMap.s1() + (edge(i) - xMap.p1()) * slope : xMap.invTransform(edge(i));
        };
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
            addStrip(first, last, edge(i), edge(i + 1));
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

    void addSample(std::size_t i) { addSlot(store.slot(i)); }

    void addSlot(std::size_t s) {
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

    void addStrip(std::size_t first, std::size_t last, double begin, double end) {
        if (last - first <= fewSamples)
            addEach(first, last);
        else if (last - first <= someSamples)
            addLocated(first, last);
        else
            addIndexed(first, last, begin, end);
    }

    void addLocated(std::size_t first, std::size_t last) {
        std::size_t least = first;
        std::size_t greatest = first;
        double low = std::numeric_limits<double>::infinity();
        double high = -low;
        store.rows(first, last, [&](std::size_t begin, std::size_t end) {
            for (std::size_t s = begin; s < end; ++s) {
                const double v = y[s];
                if (v < low && placeable(v)) {
                    low = v;
                    least = s;
                }
                if (v > high && placeable(v)) {
                    high = v;
                    greatest = s;
                }
            }
        });
        addSample(first);
        if (low <= high) {
            const bool lowFirst =
                x[least] < x[greatest] || (x[least] == x[greatest] && least < greatest);
            addSlot(lowFirst ? least : greatest);
            addSlot(lowFirst ? greatest : least);
        }
        addSample(last - 1);
    }

    void addIndexed(std::size_t first, std::size_t last, double begin, double end) {
        const Interval extent = store.extent(domain, first, last);
        const double in = y[store.slot(first)];
        const double out = y[store.slot(last - 1)];
        // Where the strip rises or falls as a whole, its ends are all there is to know.
        const bool smooth = std::min(in, out) == extent.min && std::max(in, out) == extent.max;
        if (smooth || extent.isEmpty()) {
            addSample(first);
            addSample(last - 1);
            return;
        }
        if (!placeable(in))
            addGap();
        // The index knows the extremes, not their places; they are likely to lie on the way.
        const bool up = in <= out;
        add(0.75 * begin + 0.25 * end, toY(up ? extent.min : extent.max));
        add(0.25 * begin + 0.75 * end, toY(up ? extent.max : extent.min));
        if (!placeable(out))
            addGap();
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
