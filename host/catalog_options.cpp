#include "host/catalog_options.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <iterator>
#include <limits>

#include "host/nearest_names.h"
#include "host/wrong_usage.h"

namespace qzsql {

namespace {

constexpr int kLeast = std::numeric_limits<int>::min();
constexpr int kMost = std::numeric_limits<int>::max();

template <class Object, auto get, auto set>
Option Number(std::string_view name, int lowest = 0, int highest = 1) {
    return {name,
            [](CQZObjectInfo& object) -> OptionValue { return (static_cast<Object&>(object).*get)(); },
            [](CQZObjectInfo& object, const OptionValue& value) {
                using Setter = decltype(set);
                constexpr bool isShort = std::is_invocable_v<Setter, Object&, short> &&
                                         std::is_same_v<std::invoke_result_t<decltype(get), Object&>, short>;
                const int number = std::get<int>(value);
                if constexpr (isShort) {
                    (static_cast<Object&>(object).*set)(static_cast<short>(number));
                } else {
                    (static_cast<Object&>(object).*set)(number);
                }
            },
            true,
            lowest,
            highest};
}

template <class Object, auto get, auto set>
Option Text(std::string_view name) {
    return {name,
            [](CQZObjectInfo& object) -> OptionValue { return (static_cast<Object&>(object).*get)(); },
            [](CQZObjectInfo& object, const OptionValue& value) {
                (static_cast<Object&>(object).*set)(std::get<CString>(value));
            },
            false,
            0,
            0};
}

template <auto get, auto set>
Option ObjectNumber(std::string_view name, int lowest = 0, int highest = 1) {
    return Number<CQZObjectInfo, get, set>(name, lowest, highest);
}

template <auto get, auto set>
Option ObjectText(std::string_view name) {
    return Text<CQZObjectInfo, get, set>(name);
}

template <auto get, auto set>
Option DatabaseNumber(std::string_view name, int lowest = 0, int highest = 1) {
    return Number<CQZDatabaseInfo, get, set>(name, lowest, highest);
}

template <auto get, auto set>
Option DatabaseText(std::string_view name) {
    return Text<CQZDatabaseInfo, get, set>(name);
}

template <auto get, auto set>
Option TableNumber(std::string_view name) {
    return Number<CQZTableInfo, get, set>(name);
}

using Object = CQZObjectInfo;
using Database = CQZDatabaseInfo;
using Table = CQZTableInfo;

/// What all objects have, and then what a class adds.
Options WithCommon(const Options& more) {
    constexpr int kLeastShort = std::numeric_limits<std::int16_t>::min();
    constexpr int kMostShort = std::numeric_limits<std::int16_t>::max();
    Options options = {
        ObjectNumber<&Object::GetSelected, &Object::SetSelected>("Selected"),
        ObjectText<&Object::GetName, &Object::SetName>("Name"),
        ObjectNumber<&Object::GetLowerCase, &Object::SetLowerCase>("LowerCase", kLeastShort, kMostShort),
        ObjectNumber<&Object::GetState, &Object::SetState>("State", kLeast, kMost),
    };
    options.insert(options.end(), more.begin(), more.end());
    return options;
}

/// A rule that refuses to turn an option of a table on or off while something stands.
struct Rule {
    std::string_view option;
    bool turnsOn;
    bool (*stands)(const CatalogTable& table);
    std::string_view obstacle;
};

bool NoStructure(const CatalogTable& table) { return table.GetCopyStructure() == 0; }
bool Overwritten(const CatalogTable& table) { return table.GetOverwriteTable() != 0; }
bool NoIndexes(const CatalogTable& table) { return table.m_listIndexes.IsEmpty(); }
bool NoKeys(const CatalogTable& table) { return table.m_listForeignKeys.IsEmpty(); }
bool NotCopyingIndexes(const CatalogTable& table) { return table.GetCopyIndexes() == 0; }
bool NotCopyingKeys(const CatalogTable& table) { return table.GetCopyForeignKeys() == 0; }
bool DatabaseOverwritten(const CatalogTable& table) {
    return table.GetDatabase() != nullptr && table.GetDatabase()->GetOverwriteDatabase() != 0;
}

constexpr std::string_view kNoStructure = "CopyStructure of the table is 0";
constexpr std::string_view kOverwritten = "OverwriteTable of the table is 1";

constexpr Rule kRules[] = {
    {"CopyIndexes", true, NoStructure, kNoStructure},
    {"CopyIndexes", true, NoIndexes, "the table has no indexes"},
    {"CopyForeignKeys", true, NoStructure, kNoStructure},
    {"CopyForeignKeys", true, NoKeys, "the table has no foreign keys"},
    {"OverwriteTable", false, DatabaseOverwritten, "OverwriteDatabase of the database is 1"},
    {"OverwriteTable", true, NoStructure, kNoStructure},
    {"ModifyFields", true, NoStructure, kNoStructure},
    {"ModifyFields", true, Overwritten, kOverwritten},
    {"ModifyIndexes", true, Overwritten, kOverwritten},
    {"ModifyIndexes", true, NotCopyingIndexes, "CopyIndexes of the table is 0"},
    {"ModifyForeignKeys", true, Overwritten, kOverwritten},
    {"ModifyForeignKeys", true, NotCopyingKeys, "CopyForeignKeys of the table is 0"},
};

}  // namespace

const Options& DatabaseOptions() {
    static const Options options = WithCommon({
        DatabaseText<&Database::GetSchemaName, &Database::SetSchemaName>("SchemaName"),
        DatabaseNumber<&Database::GetOverwriteDatabase, &Database::SetOverwriteDatabase>("OverwriteDatabase"),
        DatabaseNumber<&Database::GetOverwriteTables, &Database::SetOverwriteTables>("OverwriteTables"),
        DatabaseNumber<&Database::GetAutoStructureUpdate, &Database::SetAutoStructureUpdate>("AutoStructureUpdate"),
        DatabaseNumber<&Database::GetHandleSelectedObjects, &Database::SetHandleSelectedObjects>(
            "HandleSelectedObjects"),
        DatabaseNumber<&Database::GetCreateLogsEnabled, &Database::SetCreateLogsEnabled>("CreateLogsEnabled"),
        DatabaseNumber<&Database::GetCreateDiff, &Database::SetCreateDiff>("CreateDiff"),
        DatabaseNumber<&Database::GetCreateUndiff, &Database::SetCreateUndiff>("CreateUndiff"),
        DatabaseNumber<&Database::GetBulkInsert, &Database::SetBulkInsert>("BulkInsert"),
        DatabaseNumber<&Database::GetQuant, &Database::SetQuant>("Quant", kLeast, kMost),
        DatabaseNumber<&Database::GetCloseExistingConnections, &Database::SetCloseExistingConnections>(
            "CloseExistingConnections"),
        DatabaseNumber<&Database::GetCaseState, &Database::SetCaseState>("CaseState", -32'768, 32'767),
        DatabaseText<&Database::GetGarbageSymbols, &Database::SetGarbageSymbols>("GarbageSymbols"),
        DatabaseText<&Database::GetGarbageReplace, &Database::SetGarbageReplace>("GarbageReplace"),
        DatabaseText<&Database::GetVersion, &Database::SetVersion>("Version"),
        DatabaseNumber<&Database::GetMaxThreads, &Database::SetMaxThreads>("MaxThreads", 0, 255),
        DatabaseNumber<&Database::GetMaxQuant, &Database::SetMaxQuant>("MaxQuant", kLeast, kMost),
        DatabaseNumber<&Database::GetWithTriggers, &Database::SetWithTriggers>("WithTriggers"),
        DatabaseNumber<&Database::GetWithBidirectional, &Database::SetWithBidirectional>("WithBidirectional"),
        DatabaseNumber<&Database::GetUseHistoryCopyData, &Database::SetUseHistoryCopyData>("UseHistoryCopyData"),
        DatabaseNumber<&Database::GetBidirectionalSync, &Database::SetBidirectionalSync>("BidirectionalSync"),
        DatabaseNumber<&Database::GetCleanHistoryAfterUse, &Database::SetCleanHistoryAfterUse>("CleanHistoryAfterUse"),
    });
    return options;
}

const Options& TableOptions() {
    static const Options options = WithCommon({
        TableNumber<&Table::GetCopyStructure, &Table::SetCopyStructure>("CopyStructure"),
        TableNumber<&Table::GetCopyIndexes, &Table::SetCopyIndexes>("CopyIndexes"),
        TableNumber<&Table::GetCopyForeignKeys, &Table::SetCopyForeignKeys>("CopyForeignKeys"),
        TableNumber<&Table::GetCopyData, &Table::SetCopyData>("CopyData"),
        TableNumber<&Table::GetOverwriteTable, &Table::SetOverwriteTable>("OverwriteTable"),
        TableNumber<&Table::GetModifyFields, &Table::SetModifyFields>("ModifyFields"),
        TableNumber<&Table::GetModifyIndexes, &Table::SetModifyIndexes>("ModifyIndexes"),
        TableNumber<&Table::GetModifyForeignKeys, &Table::SetModifyForeignKeys>("ModifyForeignKeys"),
        TableNumber<&Table::GetSyncInsert, &Table::SetSyncInsert>("SyncInsert"),
        TableNumber<&Table::GetSyncUpdate, &Table::SetSyncUpdate>("SyncUpdate"),
        TableNumber<&Table::GetSyncDrop, &Table::SetSyncDrop>("SyncDrop"),
    });
    return options;
}

const Options& FieldOptions() {
    static const Options options = WithCommon({
        ObjectText<&Object::GetType, &Object::SetType>("Type"),
        ObjectNumber<&Object::GetLength, &Object::SetLength>("Length", -1, kMost),
        ObjectNumber<&Object::GetScale, &Object::SetScale>("Scale", kLeast, kMost),
        ObjectText<&Object::GetTypeMapped, &Object::SetTypeMapped>("TypeMapped"),
        ObjectNumber<&Object::GetLengthMapped, &Object::SetLengthMapped>("LengthMapped", -1, kMost),
        ObjectNumber<&Object::GetScaleMapped, &Object::SetScaleMapped>("ScaleMapped", kLeast, kMost),
        ObjectNumber<&Object::GetAutoIncrMapped, &Object::SetAutoIncrMapped>("AutoIncrMapped"),
        ObjectNumber<&Object::GetUnsignedMapped, &Object::SetUnsignedMapped>("UnsignedMapped"),
        Text<CatalogField, &CatalogField::GetCollation, &CatalogField::SetCollation>("Collation"),
    });
    return options;
}

const Options& IndexOptions() {
    static const Options options = WithCommon({ObjectNumber<&Object::GetIndexOff, &Object::SetIndexOff>("IndexOff")});
    return options;
}

const Options& QueryOptions() {
    static const Options options = WithCommon({});
    return options;
}

const Option& FindOption(const Options& options, const CString& name) {
    for (const auto& option : options) {
        if (name.CompareNoCase(CString::FromUtf8(option.name)) == 0) return option;
    }
    std::vector<CString> names;
    for (const auto& option : options) names.push_back(CString::FromUtf8(option.name));
    std::string all;
    for (const auto& option : options) all.append(all.empty() ? "" : ", ").append(option.name);
    throw WrongUsage(fmt::format("{} The options are {}", UnknownName("option", name, names), all));
}

OptionValue ReadValue(const Option& option, const CString& text) {
    if (!option.isNumber) return text;
    const auto utf8 = text.ToUtf8();
    int number = 0;
    const auto [end, error] = std::from_chars(utf8.data(), utf8.data() + utf8.size(), number);
    const bool isNumber = error == std::errc() && end == utf8.data() + utf8.size();
    if (isNumber && number >= option.lowest && number <= option.highest) return number;
    const auto range = option.highest - option.lowest == 1 ? fmt::format("{} or {}", option.lowest, option.highest)
                                                           : fmt::format("{} to {}", option.lowest, option.highest);
    throw WrongUsage(fmt::format("{} takes {}, not '{}'", option.name, range, utf8));
}

std::string ToText(const OptionValue& value) {
    if (const int* number = std::get_if<int>(&value)) return std::to_string(*number);
    return '"' + std::get<CString>(value).ToUtf8() + '"';
}

std::string Obstacle(const CatalogTable& table, std::string_view option, int value) {
    const auto* const found = std::find_if(std::begin(kRules), std::end(kRules), [&](const Rule& rule) {
        return rule.option == option && rule.turnsOn == (value != 0) && rule.stands(table);
    });
    return std::string(found == std::end(kRules) ? "a rule of the catalog stands against it" : found->obstacle);
}

}  // namespace qzsql
