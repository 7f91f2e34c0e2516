// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace zembra {

/// A picture's memory, and where in it the pixels begin.
struct PictureBuffer {
    std::shared_ptr<std::vector<std::uint8_t>> memory;
    std::uint8_t* pixels = nullptr;
};

/// Memory for `bytes` bytes of pixels, of any content.
///
/// Buffers are used again once nobody else holds them, and their pixels begin elsewhere each time:
/// a painter may remember a picture by its address from frame to frame.
PictureBuffer takePictureBuffer(std::size_t bytes);

} // namespace zembra
