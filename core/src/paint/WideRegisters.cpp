// SPDX-License-Identifier: MIT
#include "WideRegisters.h"

#if defined(__x86_64__) && defined(__GNUC__)
#include <immintrin.h>
#endif

namespace zembra {

#if defined(__x86_64__) && defined(__GNUC__)

namespace {

__attribute__((target("avx"))) void zeroUpperHalves() {
    _mm256_zeroupper();
}

} // namespace

void releaseWideRegisters() {
    if (__builtin_cpu_supports("avx"))
        zeroUpperHalves();
}

#else

void releaseWideRegisters() {}

#endif

} // namespace zembra
