#include "QZParserSQL/model/Dispose.h"

#include <algorithm>
#include <new>
#include <vector>

namespace qz {
namespace {

struct Disposal {
    void* object;
    void (*destroy)(void* object);

    void Run() const { destroy(object); }
};

using Disposals = std::vector<Disposal>;

// What waits for the outermost call on this thread, in whose frame it lives; null when there is none. A plain pointer,
// since objects of static storage are destroyed when a thread's own objects are already gone.
thread_local Disposals* t_pWaiting = nullptr;

void RunAll(Disposal next) {
    Disposals waiting;
    t_pWaiting = &waiting;
    while (true) {
        const auto earlier = static_cast<Disposals::difference_type>(waiting.size());
        next.Run();
        std::reverse(waiting.begin() + earlier, waiting.end());  // the last one is the next to go
        if (waiting.empty()) break;
        next = waiting.back();
        waiting.pop_back();
    }
    t_pWaiting = nullptr;
}

}  // namespace

void Dispose(void* object, void (*destroy)(void* object)) noexcept {
    const Disposal disposal{object, destroy};
    if (t_pWaiting == nullptr) return RunAll(disposal);
    try {
        t_pWaiting->push_back(disposal);
    } catch (const std::bad_alloc&) {
        disposal.Run();  // by recursion, for want of memory
    }
}

}  // namespace qz
