// Objects of a catalog by the names that users give them.
#pragma once

#include <string>
#include <vector>

#include "host/catalog_objects.h"
#include "host/catalog_options.h"

namespace qzsql {

/// The name of the database itself.
constexpr const char16_t* kDatabaseItself = u".";

struct NamedObject {
    CQZObjectInfo* object = nullptr;
    const Options* options = nullptr;
    CatalogTable* table = nullptr;  ///< the object, or the table that it belongs to; null for queries and the database
    CatalogQuery* query = nullptr;  ///< the object, where it is one
};

/// TABLE, QUERY, TABLE.CHILD for a field, an index or a foreign key, or a single dot for the database. Source names
/// in any case count; the first object of the name wins, tables before queries and fields before indexes. Throws
/// WrongUsage with the nearest names.
NamedObject FindObject(CatalogDatabase& database, const CString& name);
CatalogTable& FindTable(CatalogDatabase& database, const CString& name);

/// The field of a condition; throws WrongUsage.
CQZFieldInfo& FindField(CatalogTable& table, const CString& name);

}  // namespace qzsql
