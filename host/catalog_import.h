// The schema of an SQLite database as a catalog.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/catalog_objects.h"

namespace qzsql {

struct Imported {
    int tables = 0;
    int queries = 0;
    std::vector<std::string> notes;  ///< what could not be taken over as it is
};

/// Adds tables with their fields, indexes and foreign keys, and views as queries of a dialect. Throws StoreError where
/// the file can't be read, and WrongUsage where the catalog has an object of one of the names already.
Imported ImportSqlite(const std::string& path, CatalogDatabase& database, const DatabaseKind& dialect);

/// A source type taken apart: DECIMAL(10,2).
struct DeclaredType {
    std::string name;
    int length = -1;
    int scale = 0;
};
/// Of what does not end in one or two numbers in parentheses everything is the name.
DeclaredType ReadDeclaredType(std::string_view declared);

struct ViewText {
    std::string select;
    bool namesColumns = false;  ///< of its own, which the select does not show
};
/// The select of a CREATE VIEW statement as SQLite keeps it.
ViewText ReadViewText(std::string_view statement);

}  // namespace qzsql
