// Judging a query: how much of it was understood.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/recognition.h"

namespace qzsql {

enum class Status { Clean, Trailing, Error };

std::string_view NameOf(Status status);

/// The tokens behind the query. `text` is the source from the first to the end of the last one.
struct Trailing {
    QZPosition from;
    std::size_t count = 0;
    std::u16string_view text;
};

struct Verdict {
    Status status = Status::Clean;
    std::optional<Trailing> trailing;
    const std::vector<QZReport>& reports;
};

/// Parses where that is not done yet. The verdict lives as long as the recognition.
Verdict Judge(Recognition& recognition);

/// Dropped characters are warnings, all else is an error.
bool IsError(const QZReport& report);
bool IsNestedTooDeep(const std::vector<QZReport>& reports);

/// "not understood from here on: 2 tokens, 5 characters"
std::string TrailingMessage(const Trailing& trailing);

/// The status on a line of its own, then what led to it with line, column and a caret.
std::string VerdictAsText(const Verdict& verdict, std::u16string_view text);
/// One object, without a newline.
std::string VerdictAsJson(const Verdict& verdict, std::string_view name);

}  // namespace qzsql
