// What a stored query reads.
#pragma once

#include <optional>
#include <vector>

#include "host/catalog_objects.h"

namespace qzsql {

struct QuerySources {
    std::vector<CString> names;  ///< of tables and queries, without quotes, as often as the text has them
    bool isUnderstood = true;    ///< false where text that is not understood may name more
};

/// None where the query's dialect is not read.
std::optional<QuerySources> ReadSources(const CatalogQuery& query);

}  // namespace qzsql
