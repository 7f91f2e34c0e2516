// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/scale/Interval.h>

#include <cstddef>
#include <vector>

namespace zembra {

/// The least and greatest values of an array by blocks, by blocks of blocks, and so on, so that
/// any range is answered by looking at few entries. Values that are not finite are skipped.
///
/// It does not hold the array; callers pass the same one to every call. Instantiated for float and
/// double.
/// Source: U. Jugel, Z. Jerzak, G. Hackenbroich, V. Markl, "M4: A Visualization-Oriented Time
/// Series Data Aggregation", VLDB 2014, for what a pixel column needs to know of its samples.
class ExtentIndex {
public:
    /// Samples per entry of the lowest level: 16 bytes of index for 64 samples.
    static constexpr std::size_t blockSize = 64;

    /// Which values count.
    enum class Domain { All, Positive };

    explicit ExtentIndex(Domain domain = Domain::All) : domain(domain) {}

    bool isBuilt() const { return built; }
    template <class T>
    void build(const T* values, std::size_t count);
    /// Follows a change of the values from `first` to before `last`.
    template <class T>
    void update(const T* values, std::size_t count, std::size_t first, std::size_t last);
    /// The extent of the values from `first` to before `last`. Requires: the index is built.
    template <class T>
    Interval extent(const T* values, std::size_t first, std::size_t last) const;

    std::size_t bytes() const;

private:
    static constexpr std::size_t fanOut = 8;

    struct Entry {
        double min;
        double max;
    };

    template <class T>
    Entry scan(const T* values, std::size_t first, std::size_t last) const;
    void buildLevelAbove(std::size_t level, std::size_t first, std::size_t last);

    Domain domain;
    bool built = false;
    std::vector<std::vector<Entry>> levels;
};

} // namespace zembra
