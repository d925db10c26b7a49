// The commands that show something of each input.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "host/dialects.h"
#include "host/exit_code.h"
#include "host/input.h"

namespace qzsql {

/// Of what is larger nobody could make out anything, and the layout would take long.
constexpr std::size_t kMostNodesInPicture = 2000;

struct Request {
    std::string_view command;
    std::string format = "text";
    const Dialect* dialect = nullptr;
    InputNames inputs;
    std::string catalog;    // of models: a store, or empty
    bool resolves = false;  // of models
};

/// The formats of a command.
std::vector<std::string> FormatNames(std::string_view command);

/// What is wrong with the inputs of a request, or empty.
std::string WrongInputs(const Request& request);

/// Writes the results to standard output, and what recognizers report to standard error where the results don't tell.
ExitCode RunCommand(const Request& request);

}  // namespace qzsql
