// SPDX-License-Identifier: MIT
// Numbers told as texts and read again, in any format; and any text read as a number.
#include "Scales.h"

using zembra::NumberFormat;

namespace {

void run(fuzz::Bytes bytes) {
    const fuzz::Stopwatch stopwatch;
    const NumberFormat format = fuzz::anyFormat(bytes);
    const double value = bytes.number();
    const double resolution = bytes.number();
    const std::string told = format.text(value, resolution);
    fuzz::require(std::isfinite(value) || told.empty(), "no text for what is no number");
    fuzz::require(told.size() < 2000, "texts of a reasonable length");
    static_cast<void>(format.parse(told));

    // Six digits of a plain number come back as they went.
    if (std::isfinite(value) && std::abs(value) < 1e15 && std::abs(value) > 1e-15) {
        const NumberFormat automatic;
        const auto read = automatic.parse(automatic.text(value));
        fuzz::require(read && std::abs(*read - value) <= 1e-5 * std::abs(value),
                      "plain numbers that read back as they were");
    }

    const std::string offset = bytes.text();
    const auto number = format.parse(bytes.rest(), offset);
    fuzz::require(!number || !std::isnan(*number), "numbers or nothing from any text");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Stopwatch::attend([&] { run({data, size}); });
    return 0;
}
