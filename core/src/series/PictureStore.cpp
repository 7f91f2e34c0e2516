// SPDX-License-Identifier: MIT
#include "PictureStore.h"

namespace zembra {

namespace {

constexpr std::size_t kept = 4;
constexpr std::size_t alignment = 64;
constexpr std::size_t places = 1024;

struct Store {
    std::vector<std::shared_ptr<std::vector<std::uint8_t>>> buffers;
    std::size_t place = 0;
};

} // namespace

PictureBuffer takePictureBuffer(std::size_t bytes) {
    thread_local Store store;
    const std::size_t size = bytes + places * alignment;
    store.place = (store.place + 1) % places;
    const auto handOut = [&](const std::shared_ptr<std::vector<std::uint8_t>>& memory) {
        return PictureBuffer{memory, memory->data() + store.place * alignment};
    };
    for (const auto& memory : store.buffers) {
        // Much too large ones are given back to the system in time.
        if (memory.use_count() == 1 && memory->size() >= size && memory->size() <= 4 * size)
            return handOut(memory);
    }
    auto memory = std::make_shared<std::vector<std::uint8_t>>(size + size / 4);
    if (store.buffers.size() < kept) {
        store.buffers.push_back(memory);
    } else {
        for (auto& old : store.buffers) {
            if (old.use_count() == 1) {
                old = memory;
                break;
            }
        }
    }
    return handOut(memory);
}

} // namespace zembra
