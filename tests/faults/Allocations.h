// The process's allocations, counted, and one of them made to fail: malloc, calloc, realloc, and operator new, which
// calls malloc.
#pragma once

#include <cstddef>

namespace allocations {

/// Lets the `number`th allocation from now on fail, and no other; 0 for none.
void FailAt(std::size_t number);
/// How many there have been since FailAt.
std::size_t Count();
/// Blocks that are allocated and not freed.
std::ptrdiff_t Live();
/// Who asked for what failed: the addresses on the stack, the asker first; none where nothing failed.
struct Askers {
    void* frames[24];
    int count = 0;
};
const Askers& Failed();

}  // namespace allocations
