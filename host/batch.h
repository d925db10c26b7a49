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
    std::string catalog;    // of models: a store, or empty
    bool resolves = false;  // of models
};

class CatalogModelsPool;

/// What is wrong with a request, or empty.
std::string WrongRequest(const BatchRequest& request);

/// Where the input can't be read, what was read before is answered. Throws StoreError where the catalog can't be.
ExitCode RunBatch(const BatchRequest& request);

/// The answer to one line, without the newline. The catalogs are those of the request, null without one.
Answer AnswerLine(const BatchRequest& request, const Line& line, CatalogModelsPool* catalogs = nullptr);

}  // namespace qzsql
