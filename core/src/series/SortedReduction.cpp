// SPDX-License-Identifier: MIT
#include "SortedReduction.h"

#include "Clip.h"
#include "PixelMap.h"

#include "data/SampleStore.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <optional>

namespace zembra {

namespace {

using Domain = ExtentIndex::Domain;

constexpr double gap = std::numeric_limits<double>::quiet_NaN();
constexpr std::size_t block = ExtentIndex::blockSize;
// Up to here, all samples of a strip are taken.
constexpr std::size_t fewSamples = 4;
// Up to here, the extremes of a strip are placed where they are.
constexpr std::size_t someSamples = 32;
// How many groups of samples are on their way from memory while one is looked at.
constexpr std::size_t groupsAhead = 8;
// How many strips a pixel column is split into: enough that the place of a spike within its pixel
// shows in the shades of its edges.
constexpr std::size_t stripsPerColumn = 8;
// A part of a row of samples that is no wider shows as its extremes alone.
constexpr double widestPart = 0.3;

// How many samples, as whole blocks of the index, are looked at together: a power of two that makes
// eight to sixteen groups in a column, because their extremes are not placed more exactly.
std::size_t groupFor(std::size_t samplesPerColumn) {
    return std::max(block, std::bit_floor(samplesPerColumn / 8));
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
        const std::size_t from = begin > 0 ? begin - 1 : 0;
        const std::size_t to = std::min(end + 1, store.count);
        if ((end - begin) / columns >= block) {
            addEach(from, begin);
            addGroups(begin, end, groupFor((end - begin) / columns));
            addEach(end, to);
            return;
        }
        const std::size_t strips = columns * stripsPerColumn;
        const auto edge = [&](std::size_t i) {
            const double offset = static_cast<double>(i) / stripsPerColumn;
            return forward ? firstColumn + offset : lastColumn - offset;
        };
        // Without the indirections of scales where there is nothing to them.
        const double slope = (xMap.s2() - xMap.s1()) / (xMap.p2() - xMap.p1());
        const bool linear = xMap.scale().isLinear() && std::isfinite(slope);
        const auto value = [&](std::size_t i) {
            return linear ? xMap.s1() + (edge(i) - xMap.p1()) * slope : xMap.invTransform(edge(i));
        };
        if (end - begin <= 2 * strips) {
            addEach(from, to);
            return;
        }
        addEach(from, begin);
        const std::size_t average = (end - begin) / strips;
        std::size_t first = begin;
        for (std::size_t i = 0; i < strips; ++i) {
            // What lies ahead is likely as dense as what lies behind.
            const std::size_t last =
                i + 1 == strips ? end
                                : lowerBoundNear(store, x, first, end,
                                                 std::min(first + average, end), value(i + 1));
            // What comes next may lie far away, so that the way there begins and ends at samples.
            store.rows(first, last, [&](std::size_t begins, std::size_t ends) {
                addSlot(begins);
                addStrip(begins, ends, edge(i), edge(i + 1));
                addSlot(ends - 1);
            });
            first = last;
        }
        addEach(end, to);
    }

private:
    bool placeable(double v) const {
        return std::isfinite(v) && (domain == Domain::All || v > 0.0);
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
            addSlot(store.slot(i));
    }

    // From here on, samples are counted by slots.

    void addSlots(std::size_t first, std::size_t last) {
        for (std::size_t s = first; s < last; ++s)
            addSlot(s);
    }

    // Samples that lie together in the index: they show the same wherever a pan moves them, and
    // their x need not be searched.
    void addGroups(std::size_t first, std::size_t last, std::size_t group) {
        store.rows(first, last, [&](std::size_t begin, std::size_t end) {
            double px = toX(x[begin]);
            while (begin < end) {
                const std::size_t next = std::min(begin / group * group + group, end);
                // Otherwise every group would wait for its samples.
                if (const std::size_t later = next + groupsAhead * group; later < end) {
                    x.fetch(later);
                    y.fetch(later - 1);
                    y.fetch(later);
                }
                const double nextX = toX(x[next < end ? next : end - 1]);
                addPart(begin, next, px, nextX);
                begin = next;
                px = nextX;
            }
        });
    }

    // Whatever it takes to show samples between two places: all of a sudden they may lie far apart.
    void addPart(std::size_t first, std::size_t last, double begin, double end) {
        const double width = std::abs(end - begin);
        const std::size_t count = last - first;
        if (width <= widestPart) {
            addStrip(first, last, begin, end);
        } else if (count > block) {
            const std::size_t half = (first + count / 2) / block * block;
            const std::size_t middle = half > first ? half : half + block;
            const double middleX = toX(x[middle]);
            addPart(first, middle, begin, middleX);
            addPart(middle, last, middleX, end);
        } else if (count <= fewSamples) {
            addSlots(first, last);
        } else {
            const double parts = std::ceil(width * stripsPerColumn);
            const std::size_t size =
                parts < static_cast<double>(count) ? count / static_cast<std::size_t>(parts) : 0;
            if (size <= fewSamples) {
                addSlots(first, last);
                return;
            }
            while (first < last) {
                // The last part takes what does not make another one.
                const std::size_t next = last - first < 2 * size ? last : first + size;
                const double nextX = next < last ? toX(x[next]) : end;
                if (std::abs(nextX - begin) <= widestPart)
                    addStrip(first, next, begin, nextX);
                else
                    addSlots(first, next);
                first = next;
                begin = nextX;
            }
        }
    }

    void addStrip(std::size_t first, std::size_t last, double begin, double end) {
        if (last - first <= fewSamples)
            addSlots(first, last);
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
        for (std::size_t s = first; s < last; ++s) {
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
        const bool beginsGap = !placeable(y[first]);
        const bool endsGap = !placeable(y[last - 1]);
        if (beginsGap)
            addGap();
        if (low <= high) {
            addSlot(std::min(least, greatest));
            addSlot(std::max(least, greatest));
        }
        if (endsGap)
            addGap();
    }

    void addIndexed(std::size_t first, std::size_t last, double begin, double end) {
        const Interval extent = store.extentOfSlots(domain, first, last);
        const double in = y[first];
        const double out = y[last - 1];
        // Where the strip rises or falls as a whole, its ends are all there is to know.
        const bool smooth = std::min(in, out) == extent.min && std::max(in, out) == extent.max;
        if (smooth || extent.isEmpty()) {
            addSlot(first);
            addSlot(last - 1);
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
    left = std::max(left, -farthest);
    right = std::min(right, farthest);
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
    const Samples::Store& store = samples.store();
    path.resize(store.count);
    const PixelMap toX(x);
    const PixelMap toY(y);
    store.read([&](const auto& xs, const auto& ys) {
        for (std::size_t i = 0; i < store.count; ++i) {
            const std::size_t s = store.slot(i);
            path[i] = {toX(xs[s]), toY(ys[s])};
        }
    });
}

} // namespace zembra
