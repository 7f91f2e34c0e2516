// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/paint/Painter.h>

#include <cstdint>
#include <vector>

namespace zembra {

class RenderSurface {
public:
    virtual ~RenderSurface() = default;
    virtual void create(int width, int height) = 0;
    virtual void scale(double sx, double sy) = 0;
    virtual Painter* painter() = 0;
    virtual std::vector<std::uint8_t> getImageData(int width, int height) = 0;
};

} // namespace zembra
