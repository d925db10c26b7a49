// Memory that a recognizer takes piece by piece and gives back as a whole. It comes in chunks; those of common size are
// kept for the thread's next recognizers, up to a bound.
#pragma once

#include <cstddef>

namespace qz {

struct Chunk;

class Memory {
 public:
    Memory() = default;
    Memory(const Memory&) = delete;
    Memory& operator=(const Memory&) = delete;
    ~Memory() { GiveBack(); }

    /// `size` bytes, aligned for any object, not cleared; null where memory fails.
    void* Take(std::size_t size) {
        const std::size_t whole = (size + kAlignment - 1) / kAlignment * kAlignment;
        if (whole > static_cast<std::size_t>(end_ - next_)) return TakeFromNewChunk(whole);
        char* taken = next_;
        next_ += whole;
        return taken;
    }

    void GiveBack();

    /// Gives back what the calling thread keeps.
    static void Release();

 private:
    static constexpr std::size_t kAlignment = alignof(std::max_align_t);

    void* TakeFromNewChunk(std::size_t size);

    Chunk* chunks_ = nullptr;
    char* next_ = nullptr;
    char* end_ = nullptr;
};

}  // namespace qz
