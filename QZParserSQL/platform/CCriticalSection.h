// The lock that guards what several threads share.
#pragma once

#include <mutex>

/// A lock that the thread which holds it may take again; it is free once it was given back as often. Works with
/// std::lock_guard. Safe for concurrent use, that being its purpose.
class CCriticalSection {
 public:
    CCriticalSection() = default;
    CCriticalSection(const CCriticalSection&) = delete;
    CCriticalSection& operator=(const CCriticalSection&) = delete;

    /// Waits until the lock is free or the caller's own. Throws std::system_error where the system refuses.
    void Lock() { m_Mutex.lock(); }
    /// Only for the thread that holds the lock.
    void Unlock() { m_Mutex.unlock(); }

    /// Lock and Unlock under the names that std::lock_guard wants.
    void lock() { Lock(); }
    void unlock() { Unlock(); }

 private:
    std::recursive_mutex m_Mutex;
};
