// SPDX-License-Identifier: MIT
#include "Progress.h"

#include <algorithm>
#include <cstdio>
#include <utility>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace viewer {

namespace {

using namespace std::chrono_literals;

bool isTerminal() {
#ifdef _WIN32
    return _isatty(2) != 0;
#else
    return isatty(2) != 0;
#endif
}

} // namespace

Progress::Progress(std::string file)
    : file(std::move(file)), onTerminal(isTerminal()), next(Clock::now() + 1s) {}

Progress::~Progress() {
    if (shown && onTerminal)
        std::fputs("\r\033[K", stderr);
}

void Progress::update(std::int64_t bytes, std::int64_t size, std::size_t rows) {
    const Clock::time_point now = Clock::now();
    if (now < next)
        return;
    const std::string text = progressText(file, bytes, size, rows);
    if (onTerminal)
        std::fprintf(stderr, "\r\033[K%s", text.c_str());
    else
        std::fprintf(stderr, "%s\n", text.c_str());
    std::fflush(stderr);
    shown = true;
    next = now + (onTerminal ? 100ms : 3s);
}

std::string progressText(const std::string& file, std::int64_t bytes, std::int64_t size,
                         std::size_t rows) {
    const std::string read =
        size > 0 ? std::to_string(std::min<std::int64_t>(100, bytes * 100 / size)) + " %"
                 : std::to_string(bytes / 1000000) + " MB";
    return "reading " + file + ": " + read + ", " + std::to_string(rows) + " rows";
}

} // namespace viewer
