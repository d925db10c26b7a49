#include "QZParserSQL/platform/LargePages.h"

#include <sys/mman.h>

#include <cstdlib>

namespace qz {

void* NewLargePages(std::size_t size) {
    void* memory = std::aligned_alloc(LargePageSize(), size);
    if (memory != nullptr) madvise(memory, size, MADV_HUGEPAGE);
    return memory;
}

}  // namespace qz
