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
/// The place that asked for what failed.
const void* Failed();

}  // namespace allocations
