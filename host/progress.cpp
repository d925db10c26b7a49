#include "host/progress.h"

#include <fmt/format.h>
#include <unistd.h>

#include "host/output.h"

namespace qzsql {

namespace {

constexpr std::chrono::milliseconds kPause{200};

}  // namespace

Progress::Progress() : isTerminal_(isatty(STDERR_FILENO) != 0), isShared_(isatty(STDOUT_FILENO) != 0) {}

void Progress::MakeRoom() {
    if (isShared_) Hide();
}

void Progress::Hide() {
    if (isShown_) Tell("\r\x1b[K");
    isShown_ = false;
}

void Progress::Show() {
    const auto now = Clock::now();
    if (!isTerminal_ || now < next_) return;
    next_ = now + kPause;
    isShown_ = true;
    const auto seconds = std::chrono::duration<double>(now - start_).count();
    Tell(fmt::format("\r\x1b[K{} records, {:.0f} a second", count_, static_cast<double>(count_) / seconds));
}

}  // namespace qzsql
