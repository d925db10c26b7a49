// The options of a catalog's objects as users name them, and the rules that may stand in the way of a change.
#pragma once

#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "host/catalog_objects.h"

namespace qzsql {

using OptionValue = std::variant<int, CString>;

/// One option of a class of objects.
struct Option {
    std::string_view name;
    OptionValue (*get)(CQZObjectInfo& object);
    /// The library's setter, which may refuse. Null where a text is asked for a number or the other way round.
    void (*set)(CQZObjectInfo& object, const OptionValue& value);
    bool isNumber;
    int lowest;
    int highest;
};

using Options = std::vector<Option>;

const Options& DatabaseOptions();
const Options& TableOptions();
const Options& FieldOptions();
const Options& IndexOptions();  // of foreign keys too
const Options& QueryOptions();

/// Throws WrongUsage with the nearest names.
const Option& FindOption(const Options& options, const CString& name);
/// Throws WrongUsage that says what the option takes.
OptionValue ReadValue(const Option& option, const CString& text);
std::string ToText(const OptionValue& value);

/// What keeps an option of a table from taking a value that it was given in vain.
std::string Obstacle(const CatalogTable& table, std::string_view option, int value);

}  // namespace qzsql
