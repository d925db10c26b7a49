// Where a virtual operation stands in its class's table.
#pragma once

#include <cstddef>
#include <cstring>

/// The entry of a virtual operation. A virtual destructor takes two, so that an operation behind it has entry 2. By the
/// generic form of the Itanium C++ ABI, in which a pointer to a virtual operation holds 1 plus its entry's offset.
template <class Operation>
std::size_t SlotOf(Operation operation) {
    struct {
        std::ptrdiff_t pointer;
        std::ptrdiff_t adjustment;
    } representation{};
    static_assert(sizeof representation == sizeof operation);
    std::memcpy(&representation, &operation, sizeof operation);
    return static_cast<std::size_t>(representation.pointer - 1) / sizeof(void*);
}
