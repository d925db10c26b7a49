#include "host/catalog_commands.h"

#include <fmt/format.h>

#include <charconv>
#include <map>
#include <system_error>
#include <utility>

#include "host/catalog_check.h"
#include "host/catalog_file.h"
#include "host/catalog_filter.h"
#include "host/catalog_import.h"
#include "host/catalog_show.h"
#include "host/file.h"
#include "host/input.h"
#include "host/output.h"
#include "host/unicode.h"
#include "host/wrong_usage.h"

namespace qzsql::catalog {

namespace {

CString FromArgument(const std::string& argument) {
    try {
        return CString(FromUtf8(argument));
    } catch (const NotUtf8&) {
        throw WrongUsage("an argument is not UTF-8");
    }
}

void Write(std::string_view result) { Output().Write(result); }

/// The options of an object, and of the table and the database that a change may reach, by name.
std::map<std::string, std::string> OptionsAround(CatalogDatabase& database, const NamedObject& named) {
    std::map<std::string, std::string> values;
    CQZObjectInfo& object = *named.object;
    const auto add = [&values](CQZObjectInfo& around, const Options& options, const std::string& name) {
        for (const auto& option : options) values[fmt::format("{} {}", name, option.name)] = ToText(option.get(around));
    };
    add(database, DatabaseOptions(), ".");
    if (named.table != nullptr) add(*named.table, TableOptions(), ToUtf8(named.table->GetSrcName()));
    if (&object != &database && &object != named.table) {
        const auto prefix = named.table != nullptr ? ToUtf8(named.table->GetSrcName()) + "." : std::string();
        add(object, *named.options, prefix + ToUtf8(object.GetSrcName()));
    }
    return values;
}

/// Texts are never refused, but may be shown in another form than they were given in.
bool Refuse(const NamedObject& named, const Option& option, const OptionValue& value) {
    if (!option.isNumber) return false;
    const OptionValue now = option.get(*named.object);
    if (now == value) return false;
    std::string obstacle = "a rule of the catalog stands against it";
    if (named.object == named.table) obstacle = Obstacle(*named.table, option.name, std::get<int>(value));
    Tell(fmt::format("qzsql: {} stays {}: refused, since {}\n", option.name, ToText(now), obstacle));
    return true;
}

/// Reads FIELD OP [VALUE] one behind the other.
class ConditionReader {
 public:
    ConditionReader(const std::vector<std::string>& words, CatalogTable& table) : words_(words), table_(table) {}

    QZOwned<CatalogFilter> Read() {
        QZOwned<CatalogFilter> filter(new CatalogFilter(table_.Kind()));
        int joint = kAnd;
        for (bool more = true; more;) {
            filter->m_listItems.AddTail(ReadItem(joint).release());
            more = at_ < words_.size();
            if (more) joint = ReadJoint();
        }
        return filter;
    }

 private:
    const std::string& Next(const char* what) {
        if (at_ < words_.size()) return words_[at_++];
        throw WrongUsage(
            fmt::format("the conditions end where {} is missing; write FIELD OP VALUE, and or or between "
                        "conditions",
                        what));
    }

    QZOwned<CatalogFilterItem> ReadItem(int joint) {
        auto& field = FindField(table_, FromArgument(Next("a field")));
        const auto& name = Next("a comparison");
        const int code = ComparisonCode(name);
        if (code < 0) {
            throw WrongUsage(fmt::format("unknown comparison '{}'; the known ones are {}", name, ComparisonNames()));
        }
        const auto& comparison = *FindComparison(code);
        QZFieldValue value;
        if (comparison.hasValue) value = ReadValue(field, comparison);
        QZOwned<CatalogFilterItem> item(new CatalogFilterItem(table_.Kind()));
        item->Set(field.GetSrcName(), code, value, joint);
        return item;
    }

    QZFieldValue ReadValue(const CQZFieldInfo& field, const Comparison& comparison) {
        const auto& text = Next("a value");
        const auto type = comparison.isOfTexts ? kTextValue : ValueTypeOf(field.GetType());
        if (type == kNumberValue && !IsNumber(text)) {
            throw WrongUsage(fmt::format("'{}' is no number, but the field {} is {}", text, field.GetSrcName().ToUtf8(),
                                         field.GetType().ToUtf8()));
        }
        return {FromArgument(text).GetString(), type};
    }

    static bool IsNumber(const std::string& text) {
        if (text.find_first_not_of("+-.0123456789eE") != std::string::npos) return false;
        double number = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
        return error == std::errc() && end == text.data() + text.size();
    }

    int ReadJoint() {
        const auto& word = Next("and");
        if (word == "and") return kAnd;
        if (word == "or") return kOr;
        throw WrongUsage(fmt::format("'{}' where and or or was expected; a value of several words needs quotes", word));
    }

    const std::vector<std::string>& words_;
    CatalogTable& table_;
    std::size_t at_ = 0;
};

std::string FilterLine(const CatalogTable& table) {
    const auto* filter = table.GetFilter();
    return fmt::format("{}: {}\n", ToUtf8(table.GetSrcName()),
                       filter == nullptr ? "no filter" : ToUtf8(filter->GetSQLText()));
}

void ChangeFilter(CatalogTable& table, const FilterRequest& request) {
    if (request.removes) return table.SetFilter(nullptr);
    if (!request.sql) {
        const auto filter = ConditionReader(request.conditions, table).Read();
        return table.SetFilter(filter.get());
    }
    const QZOwned<CatalogFilter> filter(new CatalogFilter(table.Kind()));
    filter->SetSQLQuery(FromArgument(*request.sql));
    filter->SetUseSQLQuery(1);
    table.SetFilter(filter.get());
}

}  // namespace

ExitCode Init(const InitRequest& request) {
    CreateCatalog(request.store, *FindKind(request.dialect));
    return kDone;
}

ExitCode Import(const ImportRequest& request) {
    CatalogEdit edit(request.store);
    auto& database = edit.Database();
    const auto& dialect = request.dialect.empty() ? database.Kind() : *FindKind(request.dialect);
    const auto imported = ImportSqlite(request.sqlite, database, dialect);
    edit.Save();
    for (const auto& note : imported.notes) Tell(fmt::format("qzsql: {}\n", note));
    Write(fmt::format("imported: tables {}, queries {}\n", imported.tables, imported.queries));
    return kDone;
}

ExitCode AddQuery(const AddQueryRequest& request) {
    const CString name = FromArgument(request.name);
    if (name.IsEmpty() || name == kDatabaseItself) throw WrongUsage("a query needs a name, other than a single dot");
    const auto text = ReadText(request.file);
    CatalogEdit edit(request.store);
    auto& database = edit.Database();
    if (database.FindTable(name) != nullptr) {
        throw WrongUsage(fmt::format("a table has the name {}; give the query another one", request.name));
    }
    auto* query = database.FindQuery(name);
    if (query != nullptr && !request.replaces) {
        throw WrongUsage(fmt::format("a query has the name {}; say --replace to give it the new text", request.name));
    }
    if (query == nullptr) query = &database.AddQuery(name);
    query->SetDialect(*FindKind(request.dialect));
    query->SetText(CString(text));
    edit.Save();
    return kDone;
}

ExitCode Show(const ShowRequest& request) {
    const auto database = LoadCatalog(request.store);
    const bool asJson = request.format == "json";
    const auto named = FindObject(*database, FromArgument(request.object));
    if (named.object == database.get()) {
        Write(asJson ? CatalogAsJson(*database) : CatalogAsText(*database));
    } else {
        Write(asJson ? ObjectAsJson(named) : ObjectAsText(named));
    }
    return kDone;
}

ExitCode Set(const SetRequest& request) {
    CatalogEdit edit(request.store);
    auto& database = edit.Database();
    const auto named = FindObject(database, FromArgument(request.object));
    const auto& option = FindOption(*named.options, FromArgument(request.option));
    const auto value = ReadValue(option, FromArgument(request.value));
    const auto before = OptionsAround(database, named);
    option.set(*named.object, value);
    if (Refuse(named, option, value)) return kNotClean;
    if (auto* field = dynamic_cast<CatalogField*>(named.object)) field->BuildTypeMappedString();
    std::string changes;
    for (const auto& [name, now] : OptionsAround(database, named)) {
        if (now != before.at(name)) changes += fmt::format("{}: {} -> {}\n", name, before.at(name), now);
    }
    if (!changes.empty()) edit.Save();
    Write(changes.empty() ? "nothing changes\n" : changes);
    return kDone;
}

ExitCode Check(const CheckRequest& request) {
    const auto database = LoadCatalog(request.store);
    const auto findings = CheckCatalog(*database);
    for (const auto& note : findings.notes) Tell(fmt::format("qzsql: {}\n", note));
    for (const auto& fault : findings.faults) Write(fault + '\n');
    if (!findings.faults.empty()) return kNotClean;
    Write("clean\n");
    return kDone;
}

ExitCode Filter(const FilterRequest& request) {
    const int ways = (request.conditions.empty() ? 0 : 1) + (request.sql ? 1 : 0) + (request.removes ? 1 : 0);
    if (ways > 1) throw WrongUsage("give conditions, --sql or --remove, one of them");
    if (request.sql && request.sql->empty()) throw WrongUsage("--sql is empty; to remove the filter, say --remove");
    const CString name = FromArgument(request.table);
    if (ways == 0) {
        const auto database = LoadCatalog(request.store);
        Write(FilterLine(FindTable(*database, name)));
        return kDone;
    }
    CatalogEdit edit(request.store);
    auto& table = FindTable(edit.Database(), name);
    ChangeFilter(table, request);
    edit.Save();
    Write(FilterLine(table));
    return kDone;
}

}  // namespace qzsql::catalog
