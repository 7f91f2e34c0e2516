// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace zembra::test {

/// Replaces the program's allocator by one that counts, and that can be told to fail. One thread
/// only.
namespace allocator {

/// Lets the allocation of that number fail from now on, 0 being the next one.
void failAt(std::size_t number);
/// Ends that. Returns whether an allocation has failed.
bool stopFailing();
/// How many allocations there were.
std::size_t taken();
/// How many allocations are not freed yet.
std::size_t live();

} // namespace allocator

} // namespace zembra::test
