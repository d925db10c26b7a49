// The progress of a batch, shown on one line of a terminal.
#pragma once

#include <chrono>
#include <cstddef>

namespace qzsql {

/// Writes to standard error where that is a terminal, else nothing. Used by one thread.
class Progress {
 public:
    Progress();
    ~Progress() { Hide(); }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void Count() { ++count_; }
    /// To be called before results are written: they may go to the same terminal.
    void MakeRoom();
    /// Shows the count and the speed; often called, it writes some times a second.
    void Show();

 private:
    void Hide();

    using Clock = std::chrono::steady_clock;

    bool isTerminal_;
    bool isShared_;
    bool isShown_ = false;
    std::size_t count_ = 0;
    Clock::time_point start_ = Clock::now();
    Clock::time_point next_ = start_;
};

}  // namespace qzsql
