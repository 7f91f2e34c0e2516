// SPDX-License-Identifier: MIT
#pragma once

#include "RecordingPainter.h"

#include <cmath>
#include <cstddef>
#include <vector>

namespace zembra::test {

/// Keeps the last picture that it was told to draw, whose pixels are asked for by their place on
/// the surface.
class PicturePainter : public RecordingPainter {
public:
    void drawImage(const unsigned char* rgba, int width, int height, double cx,
                   double cy) override {
        RecordingPainter::drawImage(rgba, width, height, cx, cy);
        address = rgba;
        left = static_cast<int>(std::lround(cx - 0.5 * width));
        top = static_cast<int>(std::lround(cy - 0.5 * height));
        columns = width;
        rows = height;
        bytes.assign(rgba, rgba + static_cast<std::ptrdiff_t>(width) * height * 4);
    }

    /// Without any colour outside the picture.
    Color at(int x, int y) const {
        if (x < left || y < top || x >= left + columns || y >= top + rows)
            return {0, 0, 0, 0};
        const auto* p =
            bytes.data() + (static_cast<std::ptrdiff_t>(y - top) * columns + x - left) * 4;
        return {p[0], p[1], p[2], p[3]};
    }

    const unsigned char* address = nullptr;
    int left = 0;
    int top = 0;
    int columns = 0;
    int rows = 0;
    std::vector<unsigned char> bytes;
};

} // namespace zembra::test
