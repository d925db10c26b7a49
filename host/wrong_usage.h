// A command that asks for what is not there or not allowed.
#pragma once

#include <stdexcept>

namespace qzsql {

/// Answered with kWrongUsage; the text says what would be right.
struct WrongUsage : std::runtime_error {
    using std::runtime_error::runtime_error;
};

}  // namespace qzsql
