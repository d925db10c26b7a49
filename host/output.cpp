#include "host/output.h"

#include <fmt/format.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <system_error>

namespace qzsql {

namespace {

constexpr std::size_t kEnough = 65'536;

[[noreturn]] void EndUnwritten(int error) {
    if (error == EPIPE) std::_Exit(kDone);
    Tell(fmt::format("qzsql: standard output: {}\n", std::generic_category().message(error)));
    std::_Exit(kUnreadable);
}

void WriteAll(std::string_view bytes) {
    while (!bytes.empty()) {
        const auto count = write(STDOUT_FILENO, bytes.data(), bytes.size());
        if (count >= 0) {
            bytes.remove_prefix(static_cast<std::size_t>(count));
        } else if (errno != EINTR) {
            EndUnwritten(errno);
        }
    }
}

}  // namespace

void Output::Write(std::string_view result) {
    pending_ += result;
    if (pending_.size() >= kEnough) Flush();
}

void Output::Flush() {
    WriteAll(pending_);
    pending_.clear();
}

void Tell(std::string_view message) { static_cast<void>(std::fwrite(message.data(), 1, message.size(), stderr)); }

ExitCode TellOutOfMemory(std::string_view what) noexcept {
    for (const auto part : {std::string_view("qzsql: "), what, std::string_view(what.empty() ? "" : ": "), kNoMemory}) {
        Tell(part);
    }
    Tell("\n");
    return kOutOfMemory;
}

}  // namespace qzsql
