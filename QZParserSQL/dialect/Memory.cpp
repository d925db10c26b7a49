#include "QZParserSQL/dialect/Memory.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace qz {

struct alignas(std::max_align_t) Chunk {
    Chunk* next;
    std::size_t size;  // with this head
};

namespace {

constexpr std::size_t kCommonSize = std::size_t{64} * 1024;
constexpr std::size_t kLargestSize = std::size_t{1024} * 1024;
constexpr std::size_t kMostKept = 16;

// Once the thread's objects are gone nothing is kept any more.
class Kept {
 public:
    Kept() = default;
    Kept(const Kept&) = delete;
    Kept& operator=(const Kept&) = delete;
    ~Kept() {
        Release();
        count_ = kMostKept;
    }

    Chunk* Take() {
        if (first_ == nullptr) return nullptr;
        --count_;
        return std::exchange(first_, first_->next);
    }

    void Put(Chunk* chunk) {
        if (chunk->size != kCommonSize || count_ == kMostKept) return std::free(chunk);
        ++count_;
        chunk->next = std::exchange(first_, chunk);
    }

    void Release() {
        while (first_ != nullptr) std::free(std::exchange(first_, first_->next));
        count_ = 0;
    }

 private:
    Chunk* first_ = nullptr;
    std::size_t count_ = 0;
};

thread_local Kept kept;

Chunk* NewChunk(std::size_t size) {
    if (size == kCommonSize) {
        if (Chunk* chunk = kept.Take()) return chunk;
    }
    auto* chunk = static_cast<Chunk*>(std::malloc(size));
    if (chunk != nullptr) chunk->size = size;
    return chunk;
}

}  // namespace

void* Memory::TakeFromNewChunk(std::size_t size) {
    const std::size_t grown = chunks_ == nullptr ? kCommonSize : std::min(2 * chunks_->size, kLargestSize);
    const bool growing = chunks_ != nullptr && chunks_->next != nullptr;
    const std::size_t usual = growing ? grown : kCommonSize;
    Chunk* chunk = NewChunk(std::max(usual, size + sizeof(Chunk)));
    if (chunk == nullptr) return nullptr;
    chunk->next = chunks_;
    chunks_ = chunk;
    char* begin = reinterpret_cast<char*>(chunk + 1);
    next_ = begin + size;
    end_ = reinterpret_cast<char*>(chunk) + chunk->size;
    return begin;
}

void Memory::GiveBack() {
    while (chunks_ != nullptr) kept.Put(std::exchange(chunks_, chunks_->next));
    next_ = end_ = nullptr;
}

void Memory::Release() { kept.Release(); }

}  // namespace qz
