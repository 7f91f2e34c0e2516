// SPDX-License-Identifier: MIT
#include "ExtentIndex.h"

#include "Lanes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

namespace zembra {

namespace {

template <class T>
constexpr T infinity = std::numeric_limits<T>::infinity();

// Widens the extremes; a comparison with NaN is false and so leaves them as they are.
template <class T>
void extremes(const T* values, std::size_t count, T& least, T& greatest) {
    using Values = Lanes<T>;
    // Several at a time, because each has to wait for the one before it.
    constexpr std::size_t rows = 4;
    constexpr std::size_t stride = rows * Values::size;
    std::array<Values, rows> low;
    std::array<Values, rows> high;
    low.fill(Values::all(infinity<T>));
    high.fill(Values::all(-infinity<T>));
    std::size_t i = 0;
    for (; i + stride <= count; i += stride) {
        for (std::size_t row = 0; row < rows; ++row) {
            const Values v = Values::load(values + i + row * Values::size);
            low[row].lower(v);
            high[row].raise(v);
        }
    }
    for (std::size_t half = rows / 2; half > 0; half /= 2) {
        for (std::size_t row = 0; row < half; ++row) {
            low[row].lower(low[row + half]);
            high[row].raise(high[row + half]);
        }
    }
    std::array<T, Values::size> lows;
    std::array<T, Values::size> highs;
    low[0].store(lows.data());
    high[0].store(highs.data());
    for (const T value : lows)
        least = value < least ? value : least;
    for (const T value : highs)
        greatest = value > greatest ? value : greatest;
    for (; i < count; ++i) {
        least = values[i] < least ? values[i] : least;
        greatest = values[i] > greatest ? values[i] : greatest;
    }
}

} // namespace

template <class T>
ExtentIndex::Entry ExtentIndex::scan(const T* values, std::size_t first, std::size_t last) const {
    T least = infinity<T>;
    T greatest = -infinity<T>;
    extremes(values + first, last - first, least, greatest);
    const bool clean = domain == Domain::All || least > T(0);
    if (clean && least > -infinity<T> && greatest < infinity<T>)
        return {static_cast<double>(least), static_cast<double>(greatest)};
    Entry entry{infinity<double>, -infinity<double>};
    for (std::size_t i = first; i < last; ++i) {
        const auto v = static_cast<double>(values[i]);
        if (!std::isfinite(v) || (domain == Domain::Positive && !(v > 0.0)))
            continue;
        entry.min = std::min(entry.min, v);
        entry.max = std::max(entry.max, v);
    }
    return entry;
}

void ExtentIndex::buildLevelAbove(std::size_t level, std::size_t first, std::size_t last) {
    const std::vector<Entry>& below = levels[level];
    std::vector<Entry>& above = levels[level + 1];
    for (std::size_t i = first; i < last; ++i) {
        Entry entry{infinity<double>, -infinity<double>};
        const std::size_t end = std::min((i + 1) * fanOut, below.size());
        for (std::size_t child = i * fanOut; child < end; ++child) {
            entry.min = std::min(entry.min, below[child].min);
            entry.max = std::max(entry.max, below[child].max);
        }
        above[i] = entry;
    }
}

template <class T>
void ExtentIndex::build(const T* values, std::size_t count) {
    // Not before there is memory for all of it: half an index would be taken for a whole one.
    std::vector<std::vector<Entry>> empty;
    // Only whole blocks: what is left over at the end is always looked at itself.
    for (std::size_t size = count / blockSize; size > 0; size /= fanOut)
        empty.emplace_back().reserve(size);
    levels = std::move(empty);
    built = true;
    // Entries go straight into their place: so much memory is not to be touched twice.
    for (std::size_t block = 0; block < count / blockSize; ++block)
        levels[0].push_back(scan(values, block * blockSize, (block + 1) * blockSize));
    for (std::size_t level = 0; level + 1 < levels.size(); ++level) {
        levels[level + 1].resize(levels[level].size() / fanOut);
        buildLevelAbove(level, 0, levels[level + 1].size());
    }
}

template <class T>
void ExtentIndex::update(const T* values, std::size_t count, std::size_t first, std::size_t last) {
    if (!built || levels.empty() || first >= last)
        return;
    std::size_t begin = first / blockSize;
    std::size_t end = std::min((last + blockSize - 1) / blockSize, count / blockSize);
    for (std::size_t block = begin; block < end; ++block)
        levels[0][block] = scan(values, block * blockSize, (block + 1) * blockSize);
    for (std::size_t level = 0; level + 1 < levels.size(); ++level) {
        begin /= fanOut;
        end = std::min((end + fanOut - 1) / fanOut, levels[level + 1].size());
        buildLevelAbove(level, begin, end);
    }
}

template <class T>
Interval ExtentIndex::extent(const T* values, std::size_t first, std::size_t last) const {
    Interval result;
    const auto include = [&result](const Entry& entry) {
        result.min = std::min(result.min, entry.min);
        result.max = std::max(result.max, entry.max);
    };
    if (first >= last)
        return result;
    std::size_t low = (first + blockSize - 1) / blockSize;
    std::size_t high = last / blockSize;
    if (low >= high || levels.empty()) {
        include(scan(values, first, last));
        return result;
    }
    if (first < low * blockSize)
        include(scan(values, first, low * blockSize));
    if (high * blockSize < last)
        include(scan(values, high * blockSize, last));
    for (std::size_t level = 0; low < high; ++level) {
        const std::vector<Entry>& entries = levels[level];
        const bool top = level + 1 == levels.size();
        while (low < high && (top || low % fanOut != 0))
            include(entries[low++]);
        while (low < high && high % fanOut != 0)
            include(entries[--high]);
        low /= fanOut;
        high /= fanOut;
    }
    return result;
}

std::size_t ExtentIndex::bytes() const {
    std::size_t total = 0;
    for (const auto& level : levels)
        total += level.capacity() * sizeof(Entry);
    return total;
}

template void ExtentIndex::build(const double*, std::size_t);
template void ExtentIndex::build(const float*, std::size_t);
template void ExtentIndex::update(const double*, std::size_t, std::size_t, std::size_t);
template void ExtentIndex::update(const float*, std::size_t, std::size_t, std::size_t);
template Interval ExtentIndex::extent(const double*, std::size_t, std::size_t) const;
template Interval ExtentIndex::extent(const float*, std::size_t, std::size_t) const;

} // namespace zembra
