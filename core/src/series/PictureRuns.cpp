// SPDX-License-Identifier: MIT
#include "PictureRuns.h"

#include <cmath>
#include <cstdlib>

namespace zembra {

namespace {

// Calls `use(column, first, last, alpha)` for the runs of a picture's columns, with their mean.
template <class Use>
void forEachRun(const Picture& picture, int tolerance, Use use) {
    const std::uint8_t* alphas = picture.buffer.pixels + 3;
    const auto stride = static_cast<std::size_t>(picture.width) * 4;
    for (int column = 0; column < picture.width; ++column, alphas += 4) {
        int first = 0;
        while (first < picture.height) {
            const int begin = alphas[static_cast<std::size_t>(first) * stride];
            int sum = begin;
            int last = first + 1;
            for (; last < picture.height; ++last) {
                const int alpha = alphas[static_cast<std::size_t>(last) * stride];
                // Nothing stays nothing.
                if (std::abs(alpha - begin) > tolerance || (alpha == 0) != (begin == 0))
                    break;
                sum += alpha;
            }
            if (begin > 0)
                use(column, first, last, (sum + (last - first) / 2) / (last - first));
            first = last;
        }
    }
}

} // namespace

bool drawRuns(Painter& painter, const Picture& picture, const Color& color, double ratio,
              std::size_t most) {
    if (!picture.buffer.memory)
        return true;
    for (const int share : {32, 8}) {
        const int tolerance = color.alpha() / share;
        std::size_t count = 0;
        forEachRun(picture, tolerance, [&count](int, int, int, int) { ++count; });
        if (count > most)
            continue;
        forEachRun(picture, tolerance, [&](int column, int first, int last, int alpha) {
            painter.fillRect({(picture.x + column) / ratio, (picture.y + first) / ratio,
                              1.0 / ratio, (last - first) / ratio},
                             Color(color.red(), color.green(), color.blue(), alpha));
        });
        return true;
    }
    return false;
}

} // namespace zembra
