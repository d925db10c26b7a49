// Results on standard output, all else on standard error.
#pragma once

#include <string>
#include <string_view>

#include "host/exit_code.h"

namespace qzsql {

/// Collects results and writes them in large pieces. Where they can't be written there is nothing left to do, so the
/// process ends: quietly when nobody reads any more, else with the system's reason and kUnreadable.
class Output {
 public:
    Output() = default;
    ~Output() { Flush(); }
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    void Write(std::string_view result);
    void Flush();

 private:
    std::string pending_;
};

/// Writes to standard error in one piece; where that can't be, nobody listens and nothing follows from it.
void Tell(std::string_view message);

constexpr std::string_view kNoMemory = "out of memory; give the process more of it, or a smaller input";

/// Tells that memory ran out over `what`, which may be empty, and takes none. Gives kOutOfMemory.
ExitCode TellOutOfMemory(std::string_view what) noexcept;

}  // namespace qzsql
