// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <vector>

namespace gallery {

/// Noise that is the same on every machine and in every run.
class Noise {
public:
    explicit Noise(std::uint64_t seed) : state(seed) {}

    /// Evenly spread over 0..1.
    double even();
    /// Close to the normal distribution, mean 0 and deviation 1; never beyond ±6.
    double normal();

private:
    std::uint64_t state;
};

/// `count` values from `first` to `last`, evenly spaced.
std::vector<double> spaced(double first, double last, int count);

/// `function` of every value.
template <class Value, class Function>
std::vector<double> mapped(const std::vector<Value>& values, Function function) {
    std::vector<double> result;
    result.reserve(values.size());
    for (const Value& value : values)
        result.push_back(function(value));
    return result;
}

/// A random walk of `count` steps that begins at `start`.
std::vector<double> walk(double start, double step, int count, std::uint64_t seed);

} // namespace gallery
