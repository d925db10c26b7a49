// Work on a thread with a stack of a given size.
#pragma once

#include <pthread.h>
#include <sys/mman.h>

#include <cstddef>
#include <functional>
#include <stdexcept>

/// A stack with a page below it that ends the process when it is touched. The thread library's own stacks will not do:
/// it keeps them, and hands out larger ones than were asked for.
class Stack {
 public:
    explicit Stack(std::size_t bytes)
        : m_Size(bytes + kGuard), m_Memory(mmap(nullptr, m_Size, PROT_READ | PROT_WRITE, kKind, -1, 0)) {
        if (m_Memory == MAP_FAILED || mprotect(m_Memory, kGuard, PROT_NONE) != 0) throw std::runtime_error("no stack");
    }
    Stack(const Stack&) = delete;
    Stack& operator=(const Stack&) = delete;
    ~Stack() { munmap(m_Memory, m_Size); }

    void* Low() const { return static_cast<char*>(m_Memory) + kGuard; }
    std::size_t Size() const { return m_Size - kGuard; }

 private:
    static constexpr std::size_t kGuard = std::size_t{64} * 1024;
    static constexpr int kKind = MAP_PRIVATE | MAP_ANONYMOUS | MAP_STACK;

    std::size_t m_Size;
    void* m_Memory;
};

/// What the thread sanitizer takes of each stack for itself.
#ifdef __SANITIZE_THREAD__
inline constexpr std::size_t kTakenOfStack = std::size_t{1} << 20;
#else
inline constexpr std::size_t kTakenOfStack = 0;
#endif

/// Runs `work`, which must not throw, on a stack of so many bytes and waits for its end.
inline void RunOnStack(std::size_t bytes, std::function<void()> work) {
    const Stack stack(bytes + kTakenOfStack);
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstack(&attributes, stack.Low(), stack.Size());
    const auto run = [](void* function) -> void* {
        (*static_cast<std::function<void()>*>(function))();
        return nullptr;
    };
    pthread_t thread{};
    const bool started = pthread_create(&thread, &attributes, run, &work) == 0;
    pthread_attr_destroy(&attributes);
    if (!started) throw std::runtime_error("no thread");
    pthread_join(thread, nullptr);
}
