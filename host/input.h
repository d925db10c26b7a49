// The texts that a command is given.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "host/exit_code.h"

namespace qzsql {

/// One query under the name that it is reported by.
struct Input {
    std::string name;
    std::u16string text;
};

/// What stands on the command line: texts first, then files, "-" being standard input.
struct InputNames {
    std::vector<std::string> texts;
    std::vector<std::string> files;

    std::size_t Count() const { return texts.size() + files.size(); }
};

/// From UTF-8 with or without a byte-order mark, or UTF-16 with one. Throws std::runtime_error that names the byte at
/// which it is neither, and what to do.
std::u16string DecodeText(std::string_view bytes);

/// The text of a file, or of standard input for "-". Throws std::runtime_error that names it.
std::u16string ReadText(const std::string& name);

/// Hands the inputs over one after the other; one that can't be read is told on standard error and left out. Returns
/// the highest exit code.
ExitCode ForEachInput(const InputNames& names, const std::function<ExitCode(const Input&)>& use);

}  // namespace qzsql
