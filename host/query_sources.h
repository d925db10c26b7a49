// What a stored query reads.
#pragma once

#include <string>
#include <vector>

#include "host/catalog_objects.h"
#include "host/query_rings.h"

namespace qzsql {

struct QuerySources {
    std::vector<CString> names;  ///< of tables and queries, without quotes, as often as the text has them
    bool isUnderstood = true;    ///< false where text that is not understood may name more
};

QuerySources ReadSources(const CatalogQuery& query);

/// Which of the catalog's queries read which, by the names of each query's sources. A table wins over a query of the
/// same name.
Readings FollowSources(const CatalogDatabase& database, const std::vector<std::vector<CString>>& sources);

/// "a -> b -> a"
std::string RingPath(const CatalogDatabase& database, const std::vector<std::size_t>& ring);

}  // namespace qzsql
