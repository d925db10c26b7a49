#include "QZParserSQL/platform/Stack.h"

#include <pthread.h>

#include <algorithm>
#include <cstddef>

namespace qz {
namespace {

// What reporting an error and the runtime's own functions need below the deepest rule.
constexpr std::size_t kReserve = std::size_t{128} * 1024;
constexpr std::size_t kForeignBudget = std::size_t{48} * 1024;

struct StackBounds {
    const char* low = nullptr;
    std::size_t size = 0;
};

StackBounds QueryBounds() {
    StackBounds bounds;
    pthread_attr_t attributes;
    if (pthread_getattr_np(pthread_self(), &attributes) != 0) return bounds;
    void* low = nullptr;
    if (pthread_attr_getstack(&attributes, &low, &bounds.size) == 0) bounds.low = static_cast<const char*>(low);
    pthread_attr_destroy(&attributes);
    return bounds;
}

const StackBounds& Bounds() {
    thread_local const StackBounds bounds = QueryBounds();
    return bounds;
}

}  // namespace

const char* StackLimit() {
    const char* here = static_cast<const char*>(__builtin_frame_address(0));
    const StackBounds& bounds = Bounds();
    if (bounds.low == nullptr || here < bounds.low || here >= bounds.low + bounds.size) return here - kForeignBudget;
    return bounds.low + std::min(kReserve, bounds.size / 4);
}

bool StackIsLow() { return static_cast<const char*>(__builtin_frame_address(0)) < StackLimit(); }

}  // namespace qz
