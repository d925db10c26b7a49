// Memory in pages that are cheap to touch for the first time.
#pragma once

#include <cstddef>

namespace qz {

/// From this size on it is worth while.
constexpr std::size_t LargePageSize() { return std::size_t{2} * 1024 * 1024; }

/// `size` bytes, a multiple of LargePageSize(), to be given to std::free; null where memory fails. They come in large
/// pages where the system has such, else in common ones.
void* NewLargePages(std::size_t size);

}  // namespace qz
