// SPDX-License-Identifier: MIT
#pragma once

#include <cstring>

/// The virtual table of a live object: what a program that was compiled apart from this one calls.
///
/// Laid out as the Itanium C++ ABI has it: the first two entries are the destructor, without and
/// with giving back the memory; the others follow in their order. Entries may be called without
/// their arguments as long as the function behind them does not look at any.
class Slots {
public:
    template <class Object>
    explicit Slots(const Object& object) {
        std::memcpy(&table, static_cast<const void*>(&object), sizeof table);
    }

    template <class Result = void, class Object, class... Arguments>
    Result call(int slot, Object& object, Arguments... arguments) const {
        const auto function = reinterpret_cast<Result (*)(Object*, Arguments...)>(table[slot]);
        return function(&object, arguments...);
    }

private:
    void* const* table = nullptr;
};
