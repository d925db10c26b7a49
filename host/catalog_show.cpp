#include "host/catalog_show.h"

#include <fmt/format.h>

#include <iterator>
#include <string_view>

#include "QZParserSQL/catalog/CQZFilterInfo.h"
#include "host/json_writer.h"
#include "host/unicode.h"

namespace qzsql {

namespace {

// As text.

std::string Count(int count, std::string_view one, std::string_view many) {
    return fmt::format("{} {}", count, count == 1 ? one : many);
}

std::string NameOf(const CQZObjectInfo& object) { return ToUtf8(object.GetSrcName()); }

std::string Unselected(const CQZObjectInfo& object) { return object.GetSelected() == 0 ? ", not selected" : ""; }

std::string OptionsText(CQZObjectInfo& object, const Options& options) {
    std::string text = "options:\n";
    for (const auto& option : options) text += fmt::format("  {} {}\n", option.name, ToText(option.get(object)));
    return text;
}

std::string TypeOf(const CQZFieldInfo& field) {
    std::string type = ToUtf8(field.GetType());
    if (field.GetLength() < 0) return type;
    type += fmt::format("({}", field.GetLength());
    return type + (field.GetScale() > 0 ? fmt::format(",{})", field.GetScale()) : ")");
}

std::string FieldsText(const KeyColumns& columns, CString KeyColumn::*name) {
    std::string text;
    for (const auto& column : columns) {
        if (!text.empty()) text += ", ";
        text += (column.*name).IsEmpty() ? "(expression)" : ToUtf8(column.*name);
    }
    return text;
}

std::string FieldLine(const CQZFieldInfo& field) {
    const auto type = TypeOf(field);
    return fmt::format("{}{}{}{}", NameOf(field), type.empty() ? "" : ": ", type, Unselected(field));
}

std::string IndexLine(const CatalogIndex& index) {
    return fmt::format("{}: {}({}){}", NameOf(index),
                       index.Primary != 0  ? "primary "
                       : index.Unique != 0 ? "unique "
                                           : "",
                       FieldsText(index.columns, &KeyColumn::field), Unselected(index));
}

// Without referenced fields the primary key is meant.
std::string KeyLine(const CatalogForeignKey& key) {
    const bool names = !key.columns.empty() && !key.columns.front().referenced.IsEmpty();
    const auto referenced =
        names ? fmt::format("({})", FieldsText(key.columns, &KeyColumn::referenced)) : std::string();
    return fmt::format("{}: ({}) -> {}{}{}", NameOf(key), FieldsText(key.columns, &KeyColumn::field),
                       ToUtf8(key.ReferencedTable), referenced, Unselected(key));
}

template <class List, class Line>
std::string ListText(std::string_view title, const List& list, Line line) {
    std::string text = std::begin(list) != std::end(list) ? fmt::format("{}:\n", title) : std::string();
    for (const auto* object : list) text += fmt::format("  {}\n", line(*object));
    return text;
}

std::string TableLine(const CQZTableInfo& table) {
    return fmt::format("{}: {}, {}, {}{}{}", NameOf(table), Count(table.m_listFields.GetCount(), "field", "fields"),
                       Count(table.m_listIndexes.GetCount(), "index", "indexes"),
                       Count(table.m_listForeignKeys.GetCount(), "foreign key", "foreign keys"),
                       table.GetFilter() != nullptr ? ", filtered" : "", Unselected(table));
}

std::string QueryLine(const CatalogQuery& query) {
    return fmt::format("{}: {}{}", NameOf(query), query.DialectName(), Unselected(query));
}

std::string TableText(const CatalogTable& table) {
    auto text = ListText("fields", table.m_listFields, FieldLine);
    text += ListText("indexes", table.m_listIndexes,
                     [](const CQZIndexInfo& index) { return IndexLine(static_cast<const CatalogIndex&>(index)); });
    text += ListText("foreign keys", table.m_listForeignKeys,
                     [](const CQZForeignKeyInfo& key) { return KeyLine(static_cast<const CatalogForeignKey&>(key)); });
    if (table.GetFilter() != nullptr) text += fmt::format("filter:\n  {}\n", ToUtf8(table.GetFilter()->GetSQLText()));
    return text;
}

std::string QueryText(const CatalogQuery& query) {
    return fmt::format("dialect: {}\ntext:\n{}\n", query.DialectName(), ToUtf8(query.Text()));
}

std::string TitleOf(const NamedObject& named) {
    const auto name = NameOf(*named.object);
    if (named.query != nullptr) return "query " + name;
    if (named.object == named.table) return "table " + name;
    if (const auto* field = dynamic_cast<CQZFieldInfo*>(named.object)) return "field " + FieldLine(*field);
    if (const auto* index = dynamic_cast<CatalogIndex*>(named.object)) return "index " + IndexLine(*index);
    return "foreign key " + KeyLine(static_cast<const CatalogForeignKey&>(*named.object));
}

// As JSON.

void WriteStart(JsonWriter& json, CQZObjectInfo& object, const Options& options) {
    json.Open('{');
    json.Key("name");
    json.Text(object.GetSrcName());
    json.Key("options");
    json.Open('{');
    for (const auto& option : options) {
        json.Key(option.name);
        const OptionValue value = option.get(object);
        if (const int* number = std::get_if<int>(&value)) {
            json.Number(*number);
        } else {
            json.Text(std::get<CString>(value));
        }
    }
    json.Close('}');
}

template <class List, class Write>
void WriteList(JsonWriter& json, std::string_view key, const List& list, Write write) {
    json.Key(key);
    json.Open('[');
    for (auto* object : list) write(json, *object);
    json.Close(']');
}

void WriteColumns(JsonWriter& json, const KeyColumns& columns) {
    json.Key("fields");
    json.Open('[');
    for (const auto& column : columns) {
        json.Open('{');
        json.Key("field");
        json.Text(column.field);
        if (!column.referenced.IsEmpty()) {
            json.Key("referenced");
            json.Text(column.referenced);
        }
        json.Close('}');
    }
    json.Close(']');
}

void WriteField(JsonWriter& json, CQZFieldInfo& field) {
    WriteStart(json, field, FieldOptions());
    json.Close('}');
}

void WriteIndex(JsonWriter& json, CQZIndexInfo& object) {
    auto& index = static_cast<CatalogIndex&>(object);
    WriteStart(json, index, IndexOptions());
    json.Key("primary");
    json.Number(index.Primary);
    json.Key("unique");
    json.Number(index.Unique);
    WriteColumns(json, index.columns);
    json.Close('}');
}

void WriteKey(JsonWriter& json, CQZForeignKeyInfo& object) {
    auto& key = static_cast<CatalogForeignKey&>(object);
    WriteStart(json, key, IndexOptions());
    json.Key("table");
    json.Text(key.ReferencedTable);
    WriteColumns(json, key.columns);
    json.Close('}');
}

void WriteTable(JsonWriter& json, CatalogTable& table) {
    WriteStart(json, table, TableOptions());
    WriteList(json, "fields", table.m_listFields, WriteField);
    WriteList(json, "indexes", table.m_listIndexes, WriteIndex);
    WriteList(json, "foreignKeys", table.m_listForeignKeys, WriteKey);
    if (table.GetFilter() != nullptr) {
        json.Key("filter");
        json.Text(table.GetFilter()->GetSQLText());
    }
    json.Close('}');
}

void WriteQuery(JsonWriter& json, CatalogQuery& query) {
    WriteStart(json, query, QueryOptions());
    json.Key("dialect");
    json.Text(query.DialectName());
    json.Key("sql");
    json.Text(query.Text());
    json.Close('}');
}

void WriteObject(JsonWriter& json, const NamedObject& named) {
    if (named.query != nullptr) return WriteQuery(json, *named.query);
    if (named.object == named.table) return WriteTable(json, *named.table);
    if (auto* field = dynamic_cast<CQZFieldInfo*>(named.object)) return WriteField(json, *field);
    if (auto* index = dynamic_cast<CQZIndexInfo*>(named.object)) return WriteIndex(json, *index);
    WriteKey(json, static_cast<CQZForeignKeyInfo&>(*named.object));
}

}  // namespace

std::string CatalogAsText(CatalogDatabase& database) {
    auto text = fmt::format("catalog: {}, {}, {}\n", database.Kind().name,
                            Count(database.m_listTables.GetCount(), "table", "tables"),
                            Count(database.m_listQueries.GetCount(), "query", "queries"));
    text += OptionsText(database, DatabaseOptions());
    text += ListText("tables", database.Tables(), TableLine);
    return text + ListText("queries", database.Queries(), QueryLine);
}

std::string CatalogAsJson(CatalogDatabase& database) {
    JsonWriter json;
    WriteStart(json, database, DatabaseOptions());
    json.Key("dialect");
    json.Text(database.Kind().name);
    WriteList(json, "tables", database.Tables(), WriteTable);
    WriteList(json, "queries", database.Queries(), WriteQuery);
    json.Close('}');
    return json.Result() + '\n';
}

std::string ObjectAsText(const NamedObject& named) {
    auto text = TitleOf(named) + '\n' + OptionsText(*named.object, *named.options);
    if (named.query != nullptr) return text + QueryText(*named.query);
    return named.object == named.table ? text + TableText(*named.table) : text;
}

std::string ObjectAsJson(const NamedObject& named) {
    JsonWriter json;
    WriteObject(json, named);
    return json.Result() + '\n';
}

}  // namespace qzsql
