// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace zembra {

/// Sixteen bytes of values side by side, for loops over samples at the speed of memory.
///
/// Compilers do not find the processor's least and greatest by themselves where NaN may occur.
/// Copies are cheap.
template <class T>
class Lanes {
public:
    static constexpr std::size_t size = 16 / sizeof(T);

    Lanes() = default;

    static Lanes all(T value) {
        Lanes lanes;
        lanes.values.fill(value);
        return lanes;
    }

    static Lanes load(const T* from) {
        Lanes lanes;
        std::copy_n(from, size, lanes.values.begin());
        return lanes;
    }

    void store(T* to) const { std::copy(values.begin(), values.end(), to); }

    /// Takes over what is less. NaN is not.
    void lower(const Lanes& other) {
        for (std::size_t i = 0; i < size; ++i)
            values[i] = other.values[i] < values[i] ? other.values[i] : values[i];
    }

    /// Takes over what is greater. NaN is not.
    void raise(const Lanes& other) {
        for (std::size_t i = 0; i < size; ++i)
            values[i] = other.values[i] > values[i] ? other.values[i] : values[i];
    }

    /// Finds out whether values are in order, many before it is asked for.
    class Order {
    public:
        void expect(const Lanes& before, const Lanes& after) {
            for (std::size_t i = 0; i < size; ++i)
                broken |= static_cast<unsigned>(!(before.values[i] <= after.values[i]));
        }
        bool isKept() const { return broken == 0; }

    private:
        unsigned broken = 0;
    };

private:
    std::array<T, size> values{};
};

#if defined(__SSE2__)

template <>
class Lanes<double> {
public:
    static constexpr std::size_t size = 2;

    Lanes() = default;

    static Lanes all(double value) { return Lanes(_mm_set1_pd(value)); }
    static Lanes load(const double* from) { return Lanes(_mm_loadu_pd(from)); }
    void store(double* to) const { _mm_storeu_pd(to, values); }
    // The second operand is the result where one of them is NaN.
    void lower(const Lanes& other) { values = _mm_min_pd(other.values, values); }
    void raise(const Lanes& other) { values = _mm_max_pd(other.values, values); }

    class Order {
    public:
        void expect(const Lanes& before, const Lanes& after) {
            broken = _mm_or_pd(broken, _mm_cmpnle_pd(before.values, after.values));
        }
        bool isKept() const { return _mm_movemask_pd(broken) == 0; }

    private:
        __m128d broken = _mm_setzero_pd();
    };

private:
    explicit Lanes(__m128d values) : values(values) {}

    __m128d values{};
};

template <>
class Lanes<float> {
public:
    static constexpr std::size_t size = 4;

    Lanes() = default;

    static Lanes all(float value) { return Lanes(_mm_set1_ps(value)); }
    static Lanes load(const float* from) { return Lanes(_mm_loadu_ps(from)); }
    void store(float* to) const { _mm_storeu_ps(to, values); }
    void lower(const Lanes& other) { values = _mm_min_ps(other.values, values); }
    void raise(const Lanes& other) { values = _mm_max_ps(other.values, values); }

    class Order {
    public:
        void expect(const Lanes& before, const Lanes& after) {
            broken = _mm_or_ps(broken, _mm_cmpnle_ps(before.values, after.values));
        }
        bool isKept() const { return _mm_movemask_ps(broken) == 0; }

    private:
        __m128 broken = _mm_setzero_ps();
    };

private:
    explicit Lanes(__m128 values) : values(values) {}

    __m128 values{};
};

#endif

} // namespace zembra
