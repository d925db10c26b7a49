#include "QZParserSQL/platform/Headroom.h"

#include <cstdlib>

namespace qz {

bool HasHeadroom(std::size_t bytes) {
    void* volatile block = std::malloc(bytes);  // volatile, or the compiler leaves out the pair
    std::free(block);
    return block != nullptr;
}

}  // namespace qz
