// The commands that work on a catalog in its store. They throw StoreError and WrongUsage.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/exit_code.h"

namespace qzsql::catalog {

struct InitRequest {
    std::string store;
    std::string dialect = "access";
};
ExitCode Init(const InitRequest& request);

struct ImportRequest {
    std::string store;
    std::string sqlite;
    std::string dialect;  ///< of the views; empty for the catalog's
};
ExitCode Import(const ImportRequest& request);

struct AddQueryRequest {
    std::string store;
    std::string name;
    std::string file;
    std::string dialect;
    bool replaces = false;
};
ExitCode AddQuery(const AddQueryRequest& request);

struct ShowRequest {
    std::string store;
    std::string object = ".";
    std::string format = "text";
};
ExitCode Show(const ShowRequest& request);

struct SetRequest {
    std::string store;
    std::string object;
    std::string option;
    std::string value;
};
/// kNotClean when a rule refuses.
ExitCode Set(const SetRequest& request);

struct CheckRequest {
    std::string store;
};
/// kNotClean when there are faults.
ExitCode Check(const CheckRequest& request);

struct FilterRequest {
    std::string store;
    std::string table;
    std::vector<std::string> conditions;  ///< FIELD OP [VALUE] [and|or FIELD OP [VALUE]]...
    std::optional<std::string> sql;
    bool removes = false;
};
/// Without conditions, SQL text and removal shows the filter.
ExitCode Filter(const FilterRequest& request);

}  // namespace qzsql::catalog
