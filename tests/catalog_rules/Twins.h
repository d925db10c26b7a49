// Two catalogs, "db" and "other", once of the library's classes and once of the plain model, driven by the same calls.
#pragma once

#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "tests/catalog_rules/RuleModel.h"

class CQZObjectInfo;

namespace concrete {
class Table;
}

namespace rules {

class HostDatabase;

/// A call is a text of the form "object.Operation(argument)". Catalogs are named "db" and "other", tables, queries and
/// children by the call that makes them; a child's name stands behind its table's.
///
///     db.Load(MaxQuant=5 Selected=0)   these keys, and the defaults of all others; before any AddTable
///     db.AddTable(t0 Orders)           a table named t0 here, with Orders for its SrcName
///     db.AddQuery(q0 Sales)            a query likewise, whose Name is its SrcName until q0.SetName(Sold)
///     t0.Load(CopyData=0)              as above; before any Add
///     t0.ChildrenTell(1)               its children will have it refresh itself after each change; before any Add
///     t0.Add(f0 Price)                 a field f, an index i or a foreign key k
///     t0.SetDatabase(other)            or none
///     t0.CopyTable(t1), db.ApplyOptions(other), db.RefreshSelection(0)
///
/// All other calls are setters of a number, on t0.f0 and q0 SetSelected only. A call that names an object that is not
/// there does nothing.
class Twins {
 public:
    Twins();
    ~Twins();
    Twins(const Twins&) = delete;
    Twins& operator=(const Twins&) = delete;

    /// The fields of a catalog and of a table: keys of Load, and behind "Set" the setters.
    static const std::vector<std::string>& CatalogFields();
    static const std::vector<std::string>& TableFields();

    void Apply(const std::string& text);

    /// What a field or getter of an object gives on either side.
    struct Value {
        std::string Name() const;  // "t0.CopyData"; a child's or query's selection is "t0.f0", "q0"

        const std::string* object;
        const char* field;
        int library;
        int model;
    };

    /// All of them, in an order that only the calls of Add... change.
    std::vector<Value> Values() const;

 private:
    struct Call;
    struct CatalogTwin {
        std::string name;
        std::unique_ptr<HostDatabase> library;
        Database model;
    };
    struct TableTwin {
        std::string name;
        concrete::Table* library;
        Table* model;
    };
    struct ChildTwin {
        std::string name;
        CQZObjectInfo* library;
        Child* model;
        Table* table;
    };
    struct QueryTwin {
        std::string name;
        CQZObjectInfo* library;
        Query* model;
    };

    void ApplyTo(CatalogTwin& catalog, const Call& call);
    void ApplyTo(TableTwin& table, const Call& call);
    static void ApplyTo(QueryTwin& query, const Call& call);
    void AddTable(CatalogTwin& catalog, const Call& call);
    void AddQuery(CatalogTwin& catalog, const Call& call);
    void AddChild(TableTwin& table, const Call& call);
    /// A table's database as a number: 0 is none, 1 "db", 2 "other".
    Value DatabaseOf(const TableTwin& table) const;

    std::deque<CatalogTwin> m_Catalogs;
    std::deque<TableTwin> m_Tables;
    std::deque<ChildTwin> m_Children;
    std::deque<QueryTwin> m_Queries;
};

}  // namespace rules
