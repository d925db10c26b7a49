// Virtual operations that must follow each other.
#pragma once

#include <cstddef>
#include <vector>

#include "tests/front/Slot.h"

template <class... Operations>
std::vector<std::size_t> SlotsOf(Operations... operations) {
    return {SlotOf(operations)...};
}

/// As many slots as there are operations, from a first one.
inline std::vector<std::size_t> SlotsFrom(std::size_t first, std::size_t count) {
    std::vector<std::size_t> slots;
    for (std::size_t i = 0; i < count; ++i) slots.push_back(first + i);
    return slots;
}
