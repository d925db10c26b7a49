// Lines worked on by several threads, answers handed on in the order of the lines.
#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <string>

#include "host/big_stack.h"
#include "host/exit_code.h"

namespace qzsql {

struct Line {
    std::size_t number;
    std::string text;
};

struct Answer {
    std::string text;
    ExitCode code = kDone;
};

/// Add is called by one thread. `work` runs on many at once, `write` on one, and neither may throw. Only so many lines
/// are held at a time, by their number and their size, that memory stays bounded however long the input is.
class OrderedPool {
 public:
    using Work = std::function<Answer(const Line& line)>;
    /// `isLast` where no further answer is ready.
    using Write = std::function<void(const Answer& answer, bool isLast)>;

    OrderedPool(unsigned threads, Work work, Write write);
    ~OrderedPool() { Finish(); }
    OrderedPool(const OrderedPool&) = delete;
    OrderedPool& operator=(const OrderedPool&) = delete;

    /// Waits while too much is held.
    void Add(Line line);
    /// Waits until every answer is written.
    void Finish();

 private:
    struct Slot {
        Line line;
        Answer answer;
        std::size_t size = 0;
        bool isAnswered = false;
    };

    void DoWork() noexcept;
    void DoWrite() noexcept;
    Slot* NextToWorkOn();
    bool NextToWrite(Answer& answer, bool& isLast);
    bool IsFull() const;
    bool IsFrontAnswered() const { return !slots_.empty() && slots_.front().isAnswered; }

    const Work work_;
    const Write write_;
    const std::size_t mostSlots_;
    std::mutex mutex_;
    std::condition_variable added_;
    std::condition_variable answered_;
    std::condition_variable written_;
    std::deque<Slot> slots_;  // in the order of the lines; the addresses stay
    std::deque<Slot*> waiting_;
    std::size_t heldSize_ = 0;
    bool isClosed_ = false;
    std::deque<BigStackThread> threads_;
};

}  // namespace qzsql
