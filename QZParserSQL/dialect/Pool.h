// Objects of one kind that a recognizer takes one by one and gives back as a whole. They come in chunks, some of which
// are kept for the thread's next recognizers; an object that comes again has what its last user left in it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <new>

#include "QZParserSQL/dialect/Memory.h"

namespace qz {

/// What every user of an object writes stands in its `Bytes` from `From` on: objects are placed so that this part
/// begins with a line of the cache, and is fetched shortly before the object is taken.
template <class Object, std::size_t From, std::size_t Bytes>
class Pool {
 public:
    Pool() = default;
    Pool(const Pool&) = delete;
    Pool& operator=(const Pool&) = delete;
    ~Pool() { GiveBack(); }

    /// An object; `model` is what it is when it is first made. Throws std::bad_alloc.
    Object* Take(const Object& model) {
        if (used_ == room_) AddChunk();
        char* object = objects_ + used_++ * kStride;
        for (std::size_t line = 0; line < Bytes; line += kLine) {
            __builtin_prefetch(object + kAhead * kStride + From + line, 1);
        }
        if (used_ > chunks_->made) {
            new (object) Object(model);
            chunks_->made = used_;
        }
        return reinterpret_cast<Object*>(object);
    }

    void GiveBack() {
        KeptChunks().GiveBack(chunks_);
        chunks_ = nullptr;
        used_ = room_ = 0;
    }

 private:
    static constexpr std::size_t kLine = 64;
    // An odd number of lines, so that objects come by all sets of the cache.
    static constexpr std::size_t kStride = ((sizeof(Object) + kLine - 1) / kLine | 1) * kLine;
    static constexpr std::size_t kAhead = 40;

    static Kept& KeptChunks() {
        thread_local Kept kept;
        return kept;
    }

    void AddChunk() {
        Chunk* chunk = chunks_ = KeptChunks().AddTo(chunks_, kLine + kStride);
        char* begin = reinterpret_cast<char*>(chunk + 1);
        objects_ = begin + (kLine - (reinterpret_cast<std::uintptr_t>(begin) + From) % kLine) % kLine;
        used_ = 0;
        room_ = static_cast<std::size_t>(reinterpret_cast<char*>(chunk) + chunk->size - objects_) / kStride;
    }

    Chunk* chunks_ = nullptr;
    char* objects_ = nullptr;
    std::size_t used_ = 0;
    std::size_t room_ = 0;
};

}  // namespace qz
