// One line of a batch: {"id":any,"sql":"...","dialect":"..."}.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace qzsql {

/// Of a key that stands there twice the last value counts; other keys are read over.
struct Record {
    std::string id = "null";             // as it is written
    std::optional<std::u16string> sql;   // none where it is missing or no string
    std::optional<std::string> dialect;  // what is no string, as it is written
    std::string error;                   // what is wrong with the line, or empty; an id read before it is kept
};

Record ReadRecord(std::string_view line);

}  // namespace qzsql
