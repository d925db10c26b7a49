// Whether a catalog holds together.
#pragma once

#include <string>
#include <vector>

#include "host/catalog_objects.h"

namespace qzsql {

struct CatalogFindings {
    std::vector<std::string> faults;
    std::vector<std::string> notes;  ///< what could not be checked
};

/// Checks the references of indexes and foreign keys, the tables, and the queries with what they read. Queries that
/// read each other in a ring, and those that lead there, are told and not checked any further. Changes the results of
/// checks in the objects.
CatalogFindings CheckCatalog(CatalogDatabase& database);

}  // namespace qzsql
