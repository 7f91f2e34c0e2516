// SPDX-License-Identifier: MIT
#include "series/LowerEnvelope.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <utility>
#include <vector>

using namespace zembra;

namespace {

constexpr double unreached = 1e9;

std::vector<double> leastOf(const LowerEnvelope& envelope, std::vector<int>& passes) {
    std::vector<double> least(passes.size(), unreached);
    envelope.forEach([&](int first, int last, const LowerEnvelope::Line& line) {
        for (int place = first; place <= last; ++place) {
            const auto i = static_cast<std::size_t>(place);
            least.at(i) = std::min(least.at(i), line.at(place));
            ++passes.at(i);
        }
    });
    return least;
}

} // namespace

TEST(LowerEnvelope, IsTheLeastOfItsSegmentsAtEachPlace) {
    std::mt19937 generator(7);
    LowerEnvelope envelope;
    for (const int size : {1, 2, 3, 7, 64, 100, 1000}) {
        for (const int segments : {0, 1, 2, 10, 500}) {
            envelope.begin(size);
            std::vector<double> expected(static_cast<std::size_t>(size), unreached);
            for (int i = 0; i < segments; ++i) {
                int first = static_cast<int>(generator() % static_cast<unsigned>(size));
                int last = static_cast<int>(generator() % static_cast<unsigned>(size));
                if (first > last)
                    std::swap(first, last);
                // Whole and half numbers, so that no rounding is in the way.
                const double slope = 0.5 * (static_cast<int>(generator() % 41) - 20);
                const double start = static_cast<int>(generator() % 20001) - 10000;
                envelope.add(first, last, {start, slope});
                for (int place = first; place <= last; ++place) {
                    double& least = expected[static_cast<std::size_t>(place)];
                    least = std::min(least, start + slope * place);
                }
            }
            std::vector<int> passes(expected.size());
            EXPECT_EQ(leastOf(envelope, passes), expected) << size << ' ' << segments;
            EXPECT_LE(*std::max_element(passes.begin(), passes.end()), 11) << size;
        }
    }
}
