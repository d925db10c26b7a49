#include "QZParserSQL/dialect/Memory.h"

#include <algorithm>
#include <cstdlib>
#include <new>
#include <utility>

#include "QZParserSQL/platform/LargePages.h"

namespace qz {

namespace {

thread_local Kept* keptOfThread = nullptr;

Chunk* NewChunk(std::size_t size) {
    const std::size_t page = LargePageSize();
    if (size >= page) size = (size + page - 1) / page * page;
    auto* chunk = static_cast<Chunk*>(size >= page ? NewLargePages(size) : std::malloc(size));
    if (chunk == nullptr) throw std::bad_alloc();
    *chunk = {nullptr, size, 0};
    return chunk;
}

Kept& KeptMemory() {
    thread_local Kept kept;
    return kept;
}

}  // namespace

Kept::Kept() : others_(std::exchange(keptOfThread, this)) {}

// The thread ends: from here on nothing is kept any more.
Kept::~Kept() {
    Release();
    isOver_ = true;
    for (Kept** kept = &keptOfThread; *kept != nullptr; kept = &(*kept)->others_) {
        if (*kept != this) continue;
        *kept = others_;
        break;
    }
}

Chunk* Kept::AddTo(Chunk* chunks, std::size_t size) {
    size += sizeof(Chunk);
    Chunk* chunk = Take(size);
    if (chunk == nullptr) {
        const bool isLarge = chunks != nullptr && chunks->next != nullptr;
        const std::size_t usual = isLarge ? std::min(4 * chunks->size, Chunk::kLargestSize) : Chunk::kCommonSize;
        chunk = NewChunk(std::max(usual, size));
    }
    chunk->next = chunks;
    return chunk;
}

Chunk* Kept::Take(std::size_t size) {
    for (Chunk** kept = &first_; *kept != nullptr; kept = &(*kept)->next) {
        if ((*kept)->size < size) continue;
        bytes_ -= (*kept)->size;
        return std::exchange(*kept, (*kept)->next);
    }
    return nullptr;
}

void Kept::GiveBack(Chunk* chunks) {
    std::size_t used = 0;
    while (chunks != nullptr) {
        Chunk* chunk = std::exchange(chunks, chunks->next);
        used += chunk->size;
        bytes_ += chunk->size;
        chunk->next = std::exchange(first_, chunk);
    }
    limit_ = std::min(std::max({used, limit_ - limit_ / 8, kLeastBytes}), kMostBytes);
    KeepAtMost(isOver_ ? 0 : limit_);
}

void Kept::KeepAtMost(std::size_t bytes) {
    while (bytes_ > bytes) {
        bytes_ -= first_->size;
        std::free(std::exchange(first_, first_->next));
    }
}

void Kept::ReleaseAllOfThread() {
    for (Kept* kept = keptOfThread; kept != nullptr; kept = kept->others_) kept->Release();
}

void* Memory::TakeFromNewChunk(std::size_t size) {
    Chunk* chunk = chunks_ = KeptMemory().AddTo(chunks_, size);
    char* begin = reinterpret_cast<char*>(chunk + 1);
    next_ = begin + size;
    end_ = reinterpret_cast<char*>(chunk) + chunk->size;
    return begin;
}

void Memory::GiveBack() {
    KeptMemory().GiveBack(std::exchange(chunks_, nullptr));
    next_ = end_ = nullptr;
}

}  // namespace qz
