// The dialects that qzsql knows: one row each.
#pragma once

#include <string>
#include <string_view>

#include "QZParserSQL/dialect/QZRecognizers.h"
#include "QZParserSQL/front/BuildQueryInfo.h"

namespace qzsql {

struct Dialect {
    std::string_view name;
    const QZGrammar& (*grammar)();
    DBTypes kind = DBTypes();  // that models are built for; none where they are not
};

/// Null for a name that no dialect has.
const Dialect* FindDialect(std::string_view name);

/// "access, mssql"
std::string DialectNames();

/// What to say about a name that no dialect has.
std::string UnknownDialect(std::string_view name);

}  // namespace qzsql
