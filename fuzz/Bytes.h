// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <limits>
#include <span>
#include <string>
#include <vector>

namespace fuzz {

/// Ends the program, which libFuzzer and the replay take for a find.
inline void require(bool holds, const char* what) {
    if (holds)
        return;
    std::fprintf(stderr, "fuzz: does not hold: %s\n", what);
    std::abort();
}

/// Hands out bytes as choices, numbers and texts; zeros once they are used up.
///
/// Use: one call in an expression, or calls between braces. Compilers order the arguments of calls
/// as they like, and an input should mean the same to all of them.
class Bytes {
public:
    Bytes(const std::uint8_t* data, std::size_t size) : left(data, size) {}

    bool isEmpty() const { return left.empty(); }

    std::uint8_t byte() {
        if (left.empty())
            return 0;
        const std::uint8_t first = left.front();
        left = left.subspan(1);
        return first;
    }
    bool flag() { return byte() % 2 == 1; }
    /// From 0 to `count` - 1.
    int choice(int count) { return byte() % count; }
    int integer() {
        const int few = signedByte();
        return few * (1 + choice(40));
    }

    /// Small whole numbers, ordinary ones, ones that break careless code, and any bits at all.
    double number() {
        static constexpr double inf = std::numeric_limits<double>::infinity();
        static constexpr std::array hostile{0.0,
                                            -0.0,
                                            1e-300,
                                            -1e-300,
                                            5e-324,
                                            1e300,
                                            -1e300,
                                            1.7e308,
                                            -1.7e308,
                                            std::numeric_limits<double>::max(),
                                            std::numeric_limits<double>::lowest(),
                                            inf,
                                            -inf,
                                            std::numeric_limits<double>::quiet_NaN(),
                                            1.7e9,
                                            253402300800.0,
                                            -6e10,
                                            1e15 + 0.5};
        switch (choice(4)) {
        case 0:
            return signedByte();
        case 1: {
            const int few = signedByte();
            return few * std::pow(10.0, choice(19) - 9);
        }
        case 2:
            return hostile.at(byte() % hostile.size());
        default:
            break;
        }
        std::uint64_t bits = 0;
        for (int shift = 0; shift < 64; shift += 8)
            bits |= static_cast<std::uint64_t>(byte()) << shift;
        return std::bit_cast<double>(bits);
    }

    /// At most a few hundred numbers; now and then more than a canvas has columns.
    std::vector<double> numbers() {
        std::vector<double> list(byte() % 24);
        for (double& each : list)
            each = number();
        if (!list.empty() && choice(8) == 7) {
            const std::size_t few = list.size();
            for (std::size_t i = few; i < 700; ++i)
                list.push_back(list[i % few] + static_cast<double>(i));
        }
        return list;
    }

    std::string text() { return rest(byte() % 16); }

    std::string rest(std::size_t most = std::numeric_limits<std::size_t>::max()) {
        std::string result;
        while (!left.empty() && result.size() < most)
            result.push_back(static_cast<char>(byte()));
        return result;
    }

private:
    std::int8_t signedByte() { return static_cast<std::int8_t>(byte()); }

    std::span<const std::uint8_t> left;
};

/// Sees that nothing takes longer than a frame may. Processor time, so that a busy machine finds no
/// fault; sanitizers are allowed as much more as they take, some 25 and 50 times.
class Stopwatch {
public:
    ~Stopwatch() {
        if (now() - start > allowed)
            ranOver() = true;
    }

    /// Says that a picture of so many pixels is drawn: one larger than a usual screen of
    /// today may take longer in proportion, since filling it does.
    void drawing(double pixels) {
        constexpr double screen = 3840.0 * 2160;
        allowed = limit * std::max(1.0, pixels / screen);
    }

    /// Runs it all once more where something took too long, since the first time has files to read
    /// and a machine may pause; a second or third time there is no excuse.
    template <class Run>
    static void attend(Run run) {
        for (int attempt = 0; attempt < 3; ++attempt) {
            ranOver() = false;
            run();
            if (!ranOver())
                return;
        }
        require(false, "an answer in time");
    }

private:
    // Seconds. The memory sanitizer asks for much at every step.
#ifndef FUZZ_UNDER_SANITIZER
    static constexpr double limit = 0.1;
#elif defined(__has_feature)
    static constexpr double limit = __has_feature(memory_sanitizer) ? 5.0 : 2.5;
#else
    static constexpr double limit = 2.5;
#endif
    static bool& ranOver() {
        static bool flag = false;
        return flag;
    }
    static double now() {
        std::timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
    }
    double start = now();
    double allowed = limit;
};

} // namespace fuzz
