#include "tests/faults/FailEach.h"

#include <dlfcn.h>
#include <execinfo.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <new>
#include <string_view>

#include "tests/faults/Allocations.h"

namespace {

/// How a process ended.
enum Outcome { kWhole, kTold, kRuntimeCrashed, kRuntimeLeaked, kLeaked, kOther, kThrewOtherwise, kCrashed };

constexpr unsigned kPatience = 30;  // seconds

bool IsIn(const void* address, std::string_view library) {
    Dl_info info;
    return dladdr(address, &info) != 0 && std::string_view(info.dli_fname).find(library) != std::string_view::npos;
}

bool IsInRuntime(const void* address) { return IsIn(address, "/libantlr3c"); }

// Ours are the frames of the allocation function and of what it calls.
bool HasRuntimeAsked() {
    const auto& asked = allocations::Failed();
    void* ours = reinterpret_cast<void*>(&FailEach);
    Dl_info here;
    dladdr(ours, &here);
    int first = 0;
    while (first < asked.count && IsIn(asked.frames[first], here.dli_fname)) ++first;
    return first < asked.count && first <= 2 && IsInRuntime(asked.frames[first]);
}

// What it was that failed.
void TellAskers(Outcome outcome) {
    dprintf(STDERR_FILENO, "outcome %d where memory failed at\n", static_cast<int>(outcome));
    const auto& asked = allocations::Failed();
    backtrace_symbols_fd(asked.frames, asked.count, STDERR_FILENO);
}

// Where the runtime calls what it has not set, there is no stack to read.
void EndCrashedTwice(int /*signal*/) { _exit(HasRuntimeAsked() ? kRuntimeCrashed : kCrashed); }

void HandleCrashes(void (*handle)(int)) {
    for (const int signal : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT}) {
        struct sigaction action {};
        action.sa_handler = handle;
        action.sa_flags = SA_NODEFER;
        sigaction(signal, &action, nullptr);
    }
}

// The frames are this function's, the C library's that called it, and then those of the crash: within the C library, or
// at no address of code, it is its caller's.
void EndCrashed(int /*signal*/) {
    HandleCrashes(EndCrashedTwice);
    void* frames[24];
    const int count = backtrace(frames, 24);
    int first = 1;
    Dl_info info;
    while (first < count && (dladdr(frames[first], &info) == 0 || IsIn(frames[first], "/libc.so"))) ++first;
    if (HasRuntimeAsked() && (first == count || IsInRuntime(frames[first]))) _exit(kRuntimeCrashed);
    TellAskers(kCrashed);
    _exit(kCrashed);
}

Outcome Run(const Work& work, const std::string& whole) {
    try {
        const Made made = work();
        if (made.isTold) return kTold;
        return made.text == whole ? kWhole : kOther;
    } catch (const std::bad_alloc&) {
        return kTold;
    } catch (...) {
        return kThrewOtherwise;
    }
}

Outcome RunFailing(const Work& work, const std::string& whole, std::size_t failing) {
    const std::ptrdiff_t before = allocations::Live();
    allocations::FailAt(failing);
    const Outcome outcome = Run(work, whole);
    if (allocations::Live() > before) return HasRuntimeAsked() ? kRuntimeLeaked : kLeaked;
    return outcome;
}

[[noreturn]] void RunInChild(const Work& work, const std::string& whole, std::size_t failing) {
    HandleCrashes(EndCrashed);
    alarm(kPatience);
    const Outcome outcome = RunFailing(work, whole, failing);
    if (outcome > kRuntimeLeaked) TellAskers(outcome);
    _exit(outcome);
}

struct Cases {
    std::size_t count = 0;
    std::size_t first = 0;
};

std::size_t Step() {
    const char* step = std::getenv("QZ_FAULTS_STEP");
    return step == nullptr ? 1 : std::strtoul(step, nullptr, 10);
}

}  // namespace

void FailEach(const Work& work, const std::function<void()>& expectAfter) {
    void* frame = nullptr;
    backtrace(&frame, 1);  // takes memory the first time
    work();                // and so does the work, for what is made once and kept
    work();
    allocations::FailAt(0);
    const std::string whole = work().text;
    const std::size_t count = allocations::Count();
    ASSERT_GT(count, 50U);

    const auto began = std::chrono::steady_clock::now();
    std::map<int, Cases> outcomes;
    for (std::size_t failing = 1; failing <= count; failing += Step()) {
        const pid_t child = fork();
        if (child == 0) RunInChild(work, whole, failing);
        int status = 0;
        waitpid(child, &status, 0);
        auto& cases = outcomes[WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status)];
        if (cases.count++ == 0) cases.first = failing;
        if (expectAfter) expectAfter();
    }
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - began;
    std::printf("%zu allocations: %zu whole, %zu told, the runtime crashed %zu times and leaked %zu; %.1f s\n", count,
                outcomes[kWhole].count, outcomes[kTold].count, outcomes[kRuntimeCrashed].count,
                outcomes[kRuntimeLeaked].count, took.count());
    for (const auto& [outcome, cases] : outcomes) {
        EXPECT_TRUE(outcome >= kWhole && outcome <= kRuntimeLeaked)
            << cases.count << " times outcome " << outcome << ", first at allocation " << cases.first;
    }
    EXPECT_GT(outcomes[kTold].count, 0U);
}
