// SPDX-License-Identifier: MIT
#pragma once

#include <bit>
#include <cstddef>
#include <limits>
#include <utility>
#include <vector>

namespace zembra {

/// The lower envelope of straight segments over the places 0 to `size` - 1: a Li Chao tree, to
/// which a segment is added in O(log² size) steps, however long it is.
class LowerEnvelope {
public:
    struct Line {
        double start;
        double slope;

        double at(int place) const { return start + slope * place; }
    };

    /// Begins anew, without segments.
    void begin(int size) {
        leaves = static_cast<int>(std::bit_ceil(static_cast<unsigned>(size)));
        lines.assign(2 * static_cast<std::size_t>(leaves), {nothing, 0.0});
    }

    /// Adds the part of a line from place `first` to `last`, which lie within the size.
    void add(int first, int last, const Line& line) {
        // The fewest nodes that make up the segment, from its two ends up.
        int from = first + leaves;
        int to = last + 1 + leaves;
        for (; from < to; from /= 2, to /= 2) {
            if (from % 2 == 1)
                sink(from++, line);
            if (to % 2 == 1)
                sink(--to, line);
        }
    }

    /// Calls `use(first, last, line)` for segments that have the same lower envelope as all that
    /// were added. Of these, no more than O(log size) pass over a place.
    template <class Use>
    void forEach(Use use) const {
        for (int node = 1; node < static_cast<int>(lines.size()); ++node) {
            const Line& line = lines[static_cast<std::size_t>(node)];
            if (line.start < nothing)
                use(spanOf(node).first, spanOf(node).last, line);
        }
    }

private:
    struct Span {
        int first;
        int last;
    };

    static constexpr double nothing = std::numeric_limits<double>::infinity();

    Span spanOf(int node) const {
        const int depth = std::bit_width(static_cast<unsigned>(node)) - 1;
        const int width = leaves >> depth;
        const int first = (node - (1 << depth)) * width;
        return {first, first + width - 1};
    }

    void sink(int node, Line line) {
        auto [first, last] = spanOf(node);
        for (;;) {
            // What is lower in the middle stays. Lines cross once, so the other one can be lower on
            // one side only.
            const int middle = first + (last - first + 1) / 2;
            Line& held = lines[static_cast<std::size_t>(node)];
            if (line.at(middle) < held.at(middle))
                std::swap(line, held);
            if (first == last)
                return;
            if (line.at(first) < held.at(first)) {
                node = 2 * node;
                last = middle - 1;
            } else if (line.at(last) < held.at(last)) {
                node = 2 * node + 1;
                first = middle;
            } else {
                return;
            }
        }
    }

    // The nodes of a binary tree: the root is 1, and the children of n are 2 n and 2 n + 1.
    std::vector<Line> lines;
    int leaves = 0;
};

} // namespace zembra
