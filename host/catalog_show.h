// Catalogs and their objects for readers.
#pragma once

#include <string>

#include "host/catalog_names.h"

namespace qzsql {

/// An overview of the database with its options.
std::string CatalogAsText(CatalogDatabase& database);
/// All there is.
std::string CatalogAsJson(CatalogDatabase& database);

std::string ObjectAsText(const NamedObject& named);
std::string ObjectAsJson(const NamedObject& named);

}  // namespace qzsql
