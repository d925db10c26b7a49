// Objects of one kind that a recognizer takes one by one and gives back as a whole. They come in chunks, some of which
// are kept for the thread's next recognizers; an object that comes again has what its last user left in it.
#pragma once

#include <cstddef>

#include "QZParserSQL/dialect/Memory.h"

namespace qz {

template <class Object>
class Pool {
 public:
    Pool() = default;
    Pool(const Pool&) = delete;
    Pool& operator=(const Pool&) = delete;
    ~Pool() { GiveBack(); }

    /// An object; `model` is what it is when it is first made. Null where memory fails.
    Object* Take(const Object& model) {
        if (used_ == room_ && !AddChunk()) return nullptr;
        Object* object = objects_ + used_++;
        __builtin_prefetch(reinterpret_cast<char*>(object + kAhead), 1);
        __builtin_prefetch(reinterpret_cast<char*>(object + kAhead) + 64, 1);
        __builtin_prefetch(reinterpret_cast<char*>(object + kAhead) + 128, 1);
        if (used_ > chunks_->made) {
            *object = model;
            chunks_->made = used_;
        }
        return object;
    }

    void GiveBack() {
        KeptChunks().GiveBack(chunks_);
        chunks_ = nullptr;
        used_ = room_ = 0;
    }

 private:
    static constexpr std::ptrdiff_t kAhead = 8;

    static Kept& KeptChunks() {
        thread_local Kept kept;
        return kept;
    }

    bool AddChunk() {
        Chunk* chunk = KeptChunks().AddTo(chunks_, sizeof(Object));
        if (chunk == nullptr) return false;
        chunks_ = chunk;
        objects_ = reinterpret_cast<Object*>(chunk + 1);
        used_ = 0;
        room_ = (chunk->size - sizeof(Chunk)) / sizeof(Object);
        return true;
    }

    Chunk* chunks_ = nullptr;
    Object* objects_ = nullptr;
    std::size_t used_ = 0;
    std::size_t room_ = 0;
};

}  // namespace qz
