// Newline-delimited JSON in and out, one record a line, in input order.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/exit_code.h"
#include "host/ordered_pool.h"

namespace qzsql {

/// What a record of the output holds.
std::vector<std::string> EmissionNames();

struct BatchRequest {
    std::string file = "-";
    std::string dialect;  // of records that name none; may be empty
    std::string emission;
    unsigned threads = 1;
};

/// Where the input can't be read, what was read before is answered.
ExitCode RunBatch(const BatchRequest& request);

/// The answer to one line, without the newline.
Answer AnswerLine(const BatchRequest& request, const Line& line);

}  // namespace qzsql
