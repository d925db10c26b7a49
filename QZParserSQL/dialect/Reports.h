// What all reports go through.
#pragma once

#include <cstddef>

#include "QZParserSQL/dialect/QZRecognizers.h"

namespace qz {

/// More than any object of the runtime takes, and more than it takes for an error. It doesn't look at what it gets, so
/// that the room must be there before it is called.
constexpr std::size_t kRuntimeNeeds = std::size_t{16} * 1024;

/// Gives it to the host's reporter, or without one writes it to the standard error stream.
void Send(const QZReporter* reporter, const QZReport& report);

/// Tells that memory has run out, and takes none where there is a reporter.
void SendOutOfMemory(const QZReporter* reporter, QZPhase phase, const QZPosition& position) noexcept;

}  // namespace qz
