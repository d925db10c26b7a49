// How the fields in a query's items get their names in the target.
#pragma once

#include <map>
#include <optional>
#include <set>
#include <tuple>
#include <utility>
#include <vector>

#include "QZParserSQL/model/CQZQueryInfo.h"
#include "QZParserSQL/model/SelectItemField.h"

namespace qz {

struct ByNameNoCase {
    bool operator()(const CString& left, const CString& right) const { return left.CompareNoCase(right) < 0; }
};

/// The names of a field as written.
struct FieldNames {
    FieldNames(CString strTable, CString strField) : table(std::move(strTable)), field(std::move(strField)) {}
    explicit FieldNames(const SelectItemField& item) : FieldNames(item.GetTableName(), item.GetFieldName()) {}

    CString table;
    CString field;
};

/// What one resolution knows of the queries that it goes through.
struct ResolutionRun {
    /// The queries whose items are being resolved: a circle of queries that read each other ends at them.
    std::set<const CQZQueryInfo*> underWay;
    /// The SELECT lists that a field was, or is being, looked for in without success so far.
    std::set<std::tuple<const CQZQueryInfo*, CString, CString>> searched;
    /// The queries among a query's sources, and the tables that its FROM names.
    std::map<const CQZQueryInfo*, std::vector<CQZQueryInfo*>> sourceQueries;
    std::map<const CQZQueryInfo*, std::set<CString, ByNameNoCase>> fromTables;
};

/// The resolution from the view of one query; the operations are those of CQZQueryInfo.
class QueryResolution {
 public:
    QueryResolution(CQZQueryInfo& query, ResolutionRun& run) : m_Query(query), m_Run(run) {}

    void ResolveAllItems();
    void ResolveItems(const CList<SelectItem*>& items);
    void ResolveField(SelectItem& item);
    bool ResolveThroughSubQuery(SelectItemField& field, CQZSourceInfo* source);

    CString FindInItemList(const CList<SelectItem*>& items, const FieldNames& target, SelectItemField*& found,
                           bool byField, bool noDescendGuard);
    bool IsFieldInDeclaredSource(const FieldNames& field);

 private:
    class UnderWay;

    bool ResolveOne(SelectItem& item);
    void ResolveAliasReference(SelectItemField& field);
    bool ResolveStar(SelectItemField& field, const FieldNames& names);
    bool ResolveQualified(SelectItemField& field, const FieldNames& names);
    bool ResolveTable(SelectItemField& field, const FieldNames& names);
    bool ResolveUnqualified(SelectItemField& field, const FieldNames& names);
    void SetSource(SelectItemField& field, CQZSourceInfo& source);

    std::optional<CString> Look(SelectItem& item, const FieldNames& target, SelectItemField*& found, bool byField);
    std::pair<CQZQueryInfo*, SelectItemField*> FindInSourceQueries(const FieldNames& target);
    SelectItemField* FindInQuery(CQZQueryInfo& query, const FieldNames& target);
    const std::vector<CQZQueryInfo*>& SourceQueries();
    bool IsNamedInFrom(const CString& table);

    CQZQueryInfo& m_Query;
    ResolutionRun& m_Run;
};

}  // namespace qz
