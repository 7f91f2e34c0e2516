// SPDX-License-Identifier: MIT
#include <zembra/data/Samples.h>

#include "Lanes.h"
#include "SampleStore.h"

#include <limits>

namespace zembra {

namespace {

template <class T>
bool rising(const T* x, std::size_t count) {
    using Values = Lanes<T>;
    constexpr std::size_t stride = 2 * Values::size;
    constexpr std::size_t chunk = 512 * stride;
    std::size_t i = 0;
    while (i + stride < count) {
        // Without a branch inside, so that the loop runs at the speed of memory.
        typename Values::Order first;
        typename Values::Order second;
        const std::size_t end = i + std::min(chunk, (count - 1 - i) / stride * stride);
        for (; i < end; i += stride) {
            first.expect(Values::load(x + i), Values::load(x + i + 1));
            second.expect(Values::load(x + i + Values::size),
                          Values::load(x + i + Values::size + 1));
        }
        if (!first.isKept() || !second.isKept())
            return false;
    }
    for (; i + 1 < count; ++i)
        if (!(x[i] <= x[i + 1]))
            return false;
    // One NaN alone has no neighbour that would tell.
    return count == 0 || !std::isnan(x[0]);
}

bool placeable(double value, bool positive) {
    return std::isfinite(value) && (!positive || value > 0.0);
}

} // namespace

bool Samples::Store::isSorted() const {
    if (isRing())
        return breaks == 0 && (count == 0 || !std::isnan(x[slot(0)]));
    if (!sorted) {
        if (x)
            sorted = rising(x, count);
        else if (xf)
            sorted = rising(xf, count);
        else
            sorted = even.step > 0.0 && std::isfinite(even[0]) && std::isfinite(even[count]);
    }
    return *sorted;
}

Interval Samples::Store::extentOfSlots(ExtentIndex::Domain domain, std::size_t first,
                                       std::size_t last) const {
    ExtentIndex& index = domain == ExtentIndex::Domain::All ? all : positive;
    if (!index.isBuilt()) {
        if (yf)
            index.build(yf, slots());
        else
            index.build(y, slots());
    }
    return yf ? index.extent(yf, first, last) : index.extent(y, first, last);
}

Interval Samples::Store::extent(ExtentIndex::Domain domain, std::size_t first,
                                std::size_t last) const {
    Interval result;
    rows(first, last, [&](std::size_t begin, std::size_t end) {
        const Interval part = extentOfSlots(domain, begin, end);
        result.min = std::min(result.min, part.min);
        result.max = std::max(result.max, part.max);
    });
    return result;
}

SampleBounds Samples::Store::computeBounds(bool positiveX, bool positiveY) const {
    SampleBounds bounds;
    if (!isSorted()) {
        read([&](const auto& xs, const auto& ys) {
            for (std::size_t i = 0; i < count; ++i) {
                const std::size_t s = slot(i);
                if (!placeable(xs[s], positiveX) || !placeable(ys[s], positiveY))
                    continue;
                bounds.x.include(xs[s]);
                bounds.y.include(ys[s]);
            }
        });
        return bounds;
    }
    return read([&](const auto& xs, const auto& ys) {
        std::size_t first = lowerBoundNear(*this, xs, 0, count, 0,
                                           positiveX ? std::numeric_limits<double>::denorm_min()
                                                     : std::numeric_limits<double>::lowest());
        std::size_t last =
            lowerBoundNear(*this, xs, first, count, count, std::numeric_limits<double>::infinity());
        bounds.y = extent(positiveY ? ExtentIndex::Domain::Positive : ExtentIndex::Domain::All,
                          first, last);
        if (bounds.y.isEmpty())
            return bounds;
        while (!placeable(ys[slot(first)], positiveY))
            ++first;
        while (!placeable(ys[slot(last - 1)], positiveY))
            --last;
        bounds.x = {xs[slot(first)], xs[slot(last - 1)]};
        return bounds;
    });
}

SampleBounds Samples::Store::computeBounds(const Scale& sx, const Scale& sy) const {
    SampleBounds bounds;
    read([&](const auto& xs, const auto& ys) {
        for (std::size_t i = 0; i < count; ++i) {
            const std::size_t s = slot(i);
            if (!sx.contains(xs[s]) || !sy.contains(ys[s]))
                continue;
            bounds.x.include(xs[s]);
            bounds.y.include(ys[s]);
        }
    });
    return bounds;
}

SampleBounds Samples::Store::boundsOf(bool positiveX, bool positiveY) const {
    auto& entry = known[positiveX ? 1 : 0][positiveY ? 1 : 0];
    if (!entry || entry->revision != revision)
        entry = KnownBounds{revision, computeBounds(positiveX, positiveY)};
    return entry->bounds;
}

void Samples::Store::put(double newX, double newY) {
    const auto disordered = [this](std::size_t i) { return !(x[slot(i)] <= x[slot(i + 1)]); };
    if (count == capacity) {
        if (count > 1 && disordered(0))
            --breaks;
        head = slot(1);
        --count;
    }
    const std::size_t s = slot(count);
    ownX[s] = newX;
    ownY[s] = newY;
    ++count;
    if (count > 1 && disordered(count - 2))
        ++breaks;
}

Samples::Samples() : data(std::make_shared<Store>()) {}

Samples::Samples(std::shared_ptr<Store> store) : data(std::move(store)) {}

Samples::Samples(std::vector<double> x, std::vector<double> y) : Samples() {
    data->count = std::min(x.size(), y.size());
    data->ownX = std::move(x);
    data->ownY = std::move(y);
    data->x = data->ownX.data();
    data->y = data->ownY.data();
}

Samples Samples::owned(std::vector<float> x, std::vector<float> y) {
    Samples samples = borrowed(x, y);
    samples.data->ownXf = std::move(x);
    samples.data->ownYf = std::move(y);
    return samples;
}

Samples Samples::borrowed(std::span<const double> x, std::span<const double> y) {
    Samples samples;
    samples.data->count = std::min(x.size(), y.size());
    samples.data->x = x.data();
    samples.data->y = y.data();
    return samples;
}

Samples Samples::borrowed(std::span<const float> x, std::span<const float> y) {
    Samples samples;
    samples.data->count = std::min(x.size(), y.size());
    samples.data->xf = x.data();
    samples.data->yf = y.data();
    return samples;
}

Samples Samples::evenlySpaced(double start, double step, std::vector<double> y) {
    Samples samples = borrowedEvenlySpaced(start, step, y);
    samples.data->ownY = std::move(y);
    return samples;
}

Samples Samples::evenlySpaced(double start, double step, std::vector<float> y) {
    Samples samples = borrowedEvenlySpaced(start, step, y);
    samples.data->ownYf = std::move(y);
    return samples;
}

Samples Samples::borrowedEvenlySpaced(double start, double step, std::span<const double> y) {
    Samples samples;
    samples.data->count = y.size();
    samples.data->even = {start, step};
    samples.data->y = y.data();
    return samples;
}

Samples Samples::borrowedEvenlySpaced(double start, double step, std::span<const float> y) {
    Samples samples;
    samples.data->count = y.size();
    samples.data->even = {start, step};
    samples.data->yf = y.data();
    return samples;
}

Samples Samples::streamed(std::size_t capacity) {
    Samples samples;
    Store& store = *samples.data;
    store.capacity = std::max<std::size_t>(capacity, 1);
    // Slots that are still empty are gaps to the index.
    store.ownX.assign(store.capacity, std::numeric_limits<double>::quiet_NaN());
    store.ownY = store.ownX;
    store.x = store.ownX.data();
    store.y = store.ownY.data();
    return samples;
}

bool Samples::append(double x, double y) {
    return append({&x, 1}, {&y, 1});
}

bool Samples::append(std::span<const double> x, std::span<const double> y) {
    if (!data->isRing())
        return false;
    std::size_t added = std::min(x.size(), y.size());
    if (added == 0)
        return true;
    // What would be overwritten again at once need not be written.
    const std::size_t skipped = added - std::min(added, data->capacity);
    if (skipped > 0)
        clear();
    for (std::size_t i = skipped; i < added; ++i)
        data->put(x[i], y[i]);
    added -= skipped;
    data->rows(data->count - added, data->count, [this](std::size_t first, std::size_t last) {
        data->all.update(data->y, data->capacity, first, last);
        data->positive.update(data->y, data->capacity, first, last);
    });
    ++data->revision;
    return true;
}

bool Samples::clear() {
    if (!data->isRing())
        return false;
    std::fill(data->ownY.begin(), data->ownY.end(), std::numeric_limits<double>::quiet_NaN());
    data->count = 0;
    data->head = 0;
    data->breaks = 0;
    data->all.update(data->y, data->capacity, 0, data->capacity);
    data->positive.update(data->y, data->capacity, 0, data->capacity);
    ++data->revision;
    return true;
}

std::size_t Samples::size() const {
    return data->count;
}

double Samples::x(std::size_t index) const {
    return data->read([&](const auto& xs, const auto&) { return xs[data->slot(index)]; });
}

double Samples::y(std::size_t index) const {
    return data->read([&](const auto&, const auto& ys) { return ys[data->slot(index)]; });
}

bool Samples::isSorted() const {
    return data->isSorted();
}

std::size_t Samples::lowerBound(double value) const {
    return data->read([&](const auto& xs, const auto&) {
        return lowerBoundNear(*data, xs, 0, data->count, data->count / 2, value);
    });
}

Interval Samples::yExtent(std::size_t first, std::size_t last) const {
    return data->extent(ExtentIndex::Domain::All, first, std::min(last, data->count));
}

SampleBounds Samples::bounds(const Scale& x, const Scale& y) const {
    const auto placed = [](const Scale& scale, const Interval& values) {
        return values.isEmpty() || (scale.contains(values.min) && scale.contains(values.max));
    };
    // A scale's domain is an interval: where it holds both ends, it holds everything between.
    const SampleBounds everything = data->boundsOf(false, false);
    const bool narrowX = !placed(x, everything.x);
    const bool narrowY = !placed(y, everything.y);
    if (!narrowX && !narrowY)
        return everything;
    const SampleBounds positive = data->boundsOf(narrowX, narrowY);
    const bool whole = !narrowX || !(x.contains(-1.0) || x.contains(0.0));
    const bool wholeY = !narrowY || !(y.contains(-1.0) || y.contains(0.0));
    if (whole && wholeY && placed(x, positive.x) && placed(y, positive.y))
        return positive;
    auto& custom = data->custom;
    if (!custom || custom->revision != data->revision || !(custom->x == x) || !(custom->y == y))
        custom = Store::CustomBounds{data->revision, x, y, data->computeBounds(x, y)};
    return custom->bounds;
}

std::uint64_t Samples::revision() const {
    return data->revision;
}

std::size_t Samples::indexBytes() const {
    return data->all.bytes() + data->positive.bytes();
}

} // namespace zembra
