// Memory that a recognizer takes piece by piece and gives back as a whole. It comes in chunks, some of which are kept
// for the thread's next recognizers.
#pragma once

#include <cstddef>

namespace qz {

struct alignas(std::max_align_t) Chunk {
    static constexpr std::size_t kCommonSize = std::size_t{64} * 1024;
    static constexpr std::size_t kLargestSize = std::size_t{2} * 1024 * 1024;

    Chunk* next;
    std::size_t size;  // with this head
    std::size_t made;  // of a pool: how many of its objects have been made
};

/// The chunks that a thread keeps, of one kind of use: as much as its last recognizers needed, which is forgotten by
/// and by, and a little at least.
class Kept {
 public:
    static constexpr std::size_t kLeastBytes = std::size_t{1} * 1024 * 1024;
    static constexpr std::size_t kMostBytes = std::size_t{64} * 1024 * 1024;

    Kept();
    Kept(const Kept&) = delete;
    Kept& operator=(const Kept&) = delete;
    ~Kept();

    /// A chunk for `size` bytes at least, to stand before `chunks`: the more there are, the larger. Throws
    /// std::bad_alloc.
    Chunk* AddTo(Chunk* chunks, std::size_t size);
    /// All that one recognizer has taken.
    void GiveBack(Chunk* chunks);
    void Release() { KeepAtMost(0); }
    static void ReleaseAllOfThread();

 private:
    Chunk* Take(std::size_t size);
    void KeepAtMost(std::size_t bytes);

    Chunk* first_ = nullptr;
    std::size_t bytes_ = 0;
    std::size_t limit_ = kLeastBytes;
    Kept* others_;  // of this thread
    bool isOver_ = false;
};

class Memory {
 public:
    Memory() = default;
    Memory(const Memory&) = delete;
    Memory& operator=(const Memory&) = delete;
    ~Memory() { GiveBack(); }

    /// `size` bytes, aligned for any object, not cleared. Throws std::bad_alloc.
    void* Take(std::size_t size) {
        const std::size_t whole = (size + kAlignment - 1) / kAlignment * kAlignment;
        if (whole > static_cast<std::size_t>(end_ - next_)) return TakeFromNewChunk(whole);
        char* taken = next_;
        next_ += whole;
        return taken;
    }

    void GiveBack();

 private:
    static constexpr std::size_t kAlignment = alignof(std::max_align_t);

    void* TakeFromNewChunk(std::size_t size);

    Chunk* chunks_ = nullptr;
    char* next_ = nullptr;
    char* end_ = nullptr;
};

}  // namespace qz
