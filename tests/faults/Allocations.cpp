#include "tests/faults/Allocations.h"

#include <execinfo.h>

#include <atomic>
#include <cerrno>
#include <iterator>

// The process's own allocation functions stand before those of the C library, which they call.
extern "C" {
void* __libc_malloc(std::size_t size);                     // NOLINT(bugprone-reserved-identifier)
void* __libc_calloc(std::size_t count, std::size_t size);  // NOLINT(bugprone-reserved-identifier)
void* __libc_realloc(void* block, std::size_t size);       // NOLINT(bugprone-reserved-identifier)
void __libc_free(void* block);                             // NOLINT(bugprone-reserved-identifier)
}

namespace {

std::atomic<std::size_t> allocationCount{0};
std::atomic<std::size_t> failingAllocation{0};
allocations::Askers askers;
std::atomic<std::ptrdiff_t> liveBlocks{0};

bool Fails() {
    if (++allocationCount != failingAllocation) return false;
    askers.count = backtrace(askers.frames, static_cast<int>(std::size(askers.frames)));
    errno = ENOMEM;
    return true;
}

void* Counted(void* block) {
    if (block != nullptr) ++liveBlocks;
    return block;
}

}  // namespace

extern "C" void* malloc(std::size_t size) { return Fails() ? nullptr : Counted(__libc_malloc(size)); }

extern "C" void* calloc(std::size_t count, std::size_t size) {
    return Fails() ? nullptr : Counted(__libc_calloc(count, size));
}

extern "C" void* realloc(void* block, std::size_t size) {
    if (Fails()) return nullptr;
    void* moved = __libc_realloc(block, size);
    return block == nullptr ? Counted(moved) : moved;
}

extern "C" void free(void* block) {
    if (block != nullptr) --liveBlocks;
    __libc_free(block);
}

namespace allocations {

void FailAt(std::size_t number) {
    allocationCount = 0;
    askers.count = 0;
    failingAllocation = number;
}

std::size_t Count() { return allocationCount; }

std::ptrdiff_t Live() { return liveBlocks; }

const Askers& Failed() { return askers; }

}  // namespace allocations
