#include "host/ordered_pool.h"

#include <utility>

namespace qzsql {

namespace {

constexpr std::size_t kSlotsPerThread = 64;
constexpr std::size_t kMostSize = std::size_t{64} << 20;

}  // namespace

OrderedPool::OrderedPool(unsigned threads, Work work, Write write)
    : work_(std::move(work)), write_(std::move(write)), mostSlots_(kSlotsPerThread * threads) {
    try {
        threads_.emplace_back([this] { DoWrite(); });
        for (unsigned i = 0; i < threads; ++i) threads_.emplace_back([this] { DoWork(); });
    } catch (...) {
        Finish();
        throw;
    }
}

// One line is always taken, however long it is.
bool OrderedPool::IsFull() const { return slots_.size() >= mostSlots_ || (heldSize_ >= kMostSize && !slots_.empty()); }

void OrderedPool::Add(Line line) {
    std::unique_lock lock(mutex_);
    written_.wait(lock, [this] { return !IsFull(); });
    auto& slot = slots_.emplace_back();
    slot.size = line.text.size();
    slot.line = std::move(line);
    heldSize_ += slot.size;
    waiting_.push_back(&slot);
    added_.notify_one();
}

void OrderedPool::Finish() {
    {
        const std::lock_guard lock(mutex_);
        isClosed_ = true;
    }
    added_.notify_all();
    answered_.notify_all();
    threads_.clear();
}

OrderedPool::Slot* OrderedPool::NextToWorkOn() {
    std::unique_lock lock(mutex_);
    added_.wait(lock, [this] { return isClosed_ || !waiting_.empty(); });
    if (waiting_.empty()) return nullptr;
    Slot* slot = waiting_.front();
    waiting_.pop_front();
    return slot;
}

void OrderedPool::DoWork() noexcept {
    while (Slot* slot = NextToWorkOn()) {
        auto answer = work_(slot->line);
        const std::lock_guard lock(mutex_);
        slot->answer = std::move(answer);
        slot->isAnswered = true;
        if (IsFrontAnswered()) answered_.notify_one();
    }
}

bool OrderedPool::NextToWrite(Answer& answer, bool& isLast) {
    std::unique_lock lock(mutex_);
    answered_.wait(lock, [this] { return IsFrontAnswered() || (isClosed_ && slots_.empty()); });
    if (slots_.empty()) return false;
    answer = std::move(slots_.front().answer);
    heldSize_ -= slots_.front().size;
    slots_.pop_front();
    isLast = !IsFrontAnswered();
    written_.notify_one();
    return true;
}

void OrderedPool::DoWrite() noexcept {
    Answer answer;
    bool isLast = false;
    while (NextToWrite(answer, isLast)) write_(answer, isLast);
}

}  // namespace qzsql
