#include "host/dialects.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

namespace qzsql {

namespace {

constexpr Dialect kDialects[] = {
    {"access", QZGrammarMSAccessSQL_v3, kDbMSAccess},
    {"mssql", QZGrammarMSSQL, kDbMSSQL},
    {"mssql-from", QZGrammarMSSQLfrom},
    {"mysql", QZGrammarMySQLSelect, kDbMySQL},
    {"oracle", QZGrammarOracle, kDbOracle},
};

}  // namespace

const Dialect* FindDialect(std::string_view name) {
    const auto found = std::find_if(std::begin(kDialects), std::end(kDialects),
                                    [name](const Dialect& dialect) { return dialect.name == name; });
    return found == std::end(kDialects) ? nullptr : found;
}

std::string DialectNames() {
    std::string names;
    for (const auto& dialect : kDialects) names.append(names.empty() ? "" : ", ").append(dialect.name);
    return names;
}

std::string UnknownDialect(std::string_view name) {
    return fmt::format("unknown dialect '{}'; the known ones are: {}", name, DialectNames());
}

}  // namespace qzsql
