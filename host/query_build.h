// Models of a catalog's queries, as far as they serve its check.
#pragma once

#include <vector>

#include "host/catalog_objects.h"

namespace qzsql {

/// Fills the model of an MS Access query by the library; of queries in other dialects, which the library does not
/// build, only what they read. The names of sources and fields are those of the catalog, without quotes, and the
/// sources are tied to it. What the library has to say about the text is not told.
void BuildForCheck(CatalogQuery& query, const std::vector<CString>& sources);

}  // namespace qzsql
