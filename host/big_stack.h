// Threads whose stack lets recursion follow deeply nested texts.
#pragma once

#include <pthread.h>

#include <exception>
#include <functional>

namespace qzsql {

/// Runs `work` on a thread of its own. Its stack is address space that is used only where nesting needs it.
class BigStackThread {
 public:
    /// Throws std::system_error where the system gives no thread.
    explicit BigStackThread(std::function<void()> work);
    ~BigStackThread();
    BigStackThread(const BigStackThread&) = delete;
    BigStackThread& operator=(const BigStackThread&) = delete;

    /// Waits for the end, and rethrows what `work` has thrown.
    void Join();

 private:
    static void* Run(void* self);

    std::function<void()> work_;
    std::exception_ptr failure_;
    pthread_t thread_{};
    bool joined_ = false;
};

}  // namespace qzsql
