// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace viewer {

/// Whether each value is larger than the one before. NaN counts as not larger.
bool isStrictlyIncreasing(const std::vector<double>& values);

/// Whether a line through these x values would be a zigzag rather than a curve: they run neither
/// up nor down, and most of them repeat or every few steps turn round. Values that are not finite
/// are left out.
bool isZigzag(const std::vector<double>& values);

/// Whether no value occurs twice with the same code. Shape: both have the same length.
bool isUniqueWithin(const std::vector<std::uint32_t>& codes, const std::vector<double>& values);

/// Whether no pair occurs twice, and both members on their own do, as the positions of a grid.
bool isGrid(const std::vector<double>& a, const std::vector<double>& b);

/// The different values in rising order, or none at all where there are more than `most`. Values
/// that are not finite are left out.
std::vector<double> fewDistinct(const std::vector<double>& values, std::size_t most);

/// The largest absolute value; 0 where none is finite.
double magnitude(const std::vector<double>& values);

/// Round borders of about `classes` classes of equal width that hold all values, first and last
/// included; none where the values do not differ. Values that are not finite are left out.
std::vector<double> roundBorders(const std::vector<double>& values, int classes);

} // namespace viewer
