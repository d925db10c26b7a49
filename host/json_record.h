// One line of a batch: a flat JSON object. A reader of its own because lone surrogates must come through, an id must stay
// as it was written, and nesting in a hostile line must not be followed by recursion.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace qzsql {

/// Of a key that stands there twice the last value counts; other keys are read over.
struct Record {
    std::string id = "null";  // the JSON text
    std::optional<std::u16string> sql;
    std::optional<std::string> dialect;
    std::string error;  // what is wrong with the line, or empty; the id is kept where it was complete
};

Record ReadRecord(std::string_view line);

/// True for a line of white space only.
bool IsBlank(std::string_view line);

}  // namespace qzsql
