// SPDX-License-Identifier: MIT
#include "Synthetic.h"

namespace gallery {

double Noise::even() {
    // Source: G. Steele, D. Lea, C. Flood, "Fast splittable pseudorandom number generators", 2014.
    state += 0x9e3779b97f4a7c15U;
    std::uint64_t z = state;
    z = (z ^ (z >> 30U)) * 0xbf58476d1ce4e5b9U;
    z = (z ^ (z >> 27U)) * 0x94d049bb133111ebU;
    z ^= z >> 31U;
    return static_cast<double>(z >> 11U) * 0x1p-53;
}

double Noise::normal() {
    // A sum of twelve needs no function that rounds differently from one machine to the next.
    double sum = -6.0;
    for (int i = 0; i < 12; ++i)
        sum += even();
    return sum;
}

std::vector<double> spaced(double first, double last, int count) {
    std::vector<double> values;
    values.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        values.push_back(first + (last - first) * i / (count - 1));
    return values;
}

std::vector<double> walk(double start, double step, int count, std::uint64_t seed) {
    Noise noise(seed);
    std::vector<double> values;
    values.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i, start += step * noise.normal())
        values.push_back(start);
    return values;
}

} // namespace gallery
