// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>

namespace viewer {

/// Tells on standard error how far reading is, once it takes longer than a second. On a terminal
/// one line is written over and over, elsewhere there is a line every few seconds.
class Progress {
public:
    explicit Progress(std::string file);
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    /// Clears the line on the terminal.
    ~Progress();

    /// Units: bytes and records so far; `size` bytes in all, 0 where nobody knows.
    void update(std::int64_t bytes, std::int64_t size, std::size_t rows);

private:
    using Clock = std::chrono::steady_clock;

    std::string file;
    bool onTerminal;
    bool shown = false;
    Clock::time_point next;
};

/// What `Progress` writes: "data.csv: 45 %, 1200000 rows", in megabytes where the size is unknown.
std::string progressText(const std::string& file, std::int64_t bytes, std::int64_t size,
                         std::size_t rows);

} // namespace viewer
