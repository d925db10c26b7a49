// What a stored query reads.
#pragma once

#include <vector>

#include "host/catalog_objects.h"

namespace qzsql {

struct QuerySources {
    std::vector<CString> names;  ///< of tables and queries, without quotes, as often as the text has them
    bool isUnderstood = true;    ///< false where text that is not understood may name more
};

QuerySources ReadSources(const CatalogQuery& query);

}  // namespace qzsql
