// The model of one SELECT.
#pragma once

#include <cstdint>

#include "QZParserSQL/model/CFieldObject.h"
#include "QZParserSQL/model/CQZAliasInfo.h"
#include "QZParserSQL/model/CQZQueryUnionInfo.h"
#include "QZParserSQL/model/CQZSourceInfo.h"
#include "QZParserSQL/model/SelectItem.h"
#include "QZParserSQL/platform/CList.h"
#include "QZParserSQL/platform/CMap.h"

class CQZDatabaseInfo;
class SelectItemField;

namespace qz {
class QueryResolution;
}  // namespace qz

/// A query's clause lists, the sources it reads, the aliases it declares, its references to fields, its nested queries
/// and its text. A dialect's walker fills it from a syntax tree. Only identity and options persist: lists and text do
/// not.
///
/// What the lists and maps hold is owned, the entries of m_listUnions excepted: who wants those gone deletes them
/// first. The database is not owned; a query without one finds no source. Queries may be nested as deep as memory
/// allows: neither deleting nor copying recurses, but for copies of queries of a host's own class. Names are compared
/// without regard to case and the first match wins. Not safe for concurrent use.
class QZ_API CQZQueryInfo : public CQZSourceInfo {
 public:
    CQZQueryInfo();
    /// A deep copy of the same identity and database, without query kind and query option.
    CQZQueryInfo(const CQZQueryInfo& other);
    ~CQZQueryInfo() override;

    /// Runs the check, see CheckQuery.
    int GetCorrect() override;
    void Load(QZSettingsStore* pStore, QZObjectFactory* pFactory) override;
    CQZQueryInfo* Clone(int bSelectedOnly) const override;
    bool IsVirtualObject(int nUnused) const override;
    bool IsRealObject(int nUnused) const override;
    /// 1 when some reference to a field names a query as its table.
    int HasQuerySource() const override;
    /// Null: not even an alias is found so.
    CQZSourceFildInfo* FindFieldByGUID(CString strGUID) override;
    CQZSourceFildInfo* FindFieldByName(CString strName) override;
    /// Searches what the field records lead to, then the aliases. An alias found marks the query Resolved.
    CQZSourceFildInfo* FindFieldBySrcName(CString strSrcName) override;
    /// Runs the check, see CheckQuery; the flag is ignored.
    int CheckChildren(int nFlag) override;

    /// Hooks for derived classes; empty here.
    virtual CString GetExtraText1() const;
    virtual CString GetExtraText2() const;
    /// Writes identity and options.
    virtual void SaveQuery(QZSettingsStore* pStore, int nUnused);
    /// Takes over identity and options, see CQZObjectInfo::CopyFrom.
    virtual void CopyQuery(CQZObjectInfo* pOther);
    /// The catalog against which the query resolves.
    virtual CQZQueryInfo& SetDatabase(CQZDatabaseInfo* pDatabase);

    /// Not owned; null for none.
    CQZDatabaseInfo* GetDatabase() const { return m_pDatabase; }
    /// The text as SetSQL left it.
    CString GetSQL() const { return m_strSQL; }
    /// Each "\r\n" becomes a blank, and white space at the right end is cut.
    void SetSQL(CString strSQL);

    /// States a limit of rows: where it starts and how many.
    void SetLimit(int nFirst, int nSecond);
    /// The numbers mean something only while HasLimit.
    void GetLimit(int& nFirst, int& nSecond) const;
    /// 1 when a limit was stated.
    int HasLimit() const { return m_bHasLimit; }
    /// 0 none stated, 1 ALL, 2 DISTINCT, 3 DISTINCTROW.
    int GetSelectQuantifier() const { return m_nSelectQuantifier; }
    void SetSelectQuantifier(int nQuantifier) { m_nSelectQuantifier = nQuantifier; }
    /// Numbers that are only carried.
    int GetQueryKind() const { return m_nQueryKind; }
    void SetQueryKind(int nKind) { m_nQueryKind = nKind; }
    int GetQueryFlag() const { return m_nQueryFlag; }
    CQZQueryInfo& SetQueryFlag(int nFlag);
    int GetQueryMark() const { return m_nQueryMark; }
    void SetQueryMark(int nMark) { m_nQueryMark = nMark; }
    int GetQueryOption() const { return m_nQueryOption; }
    void SetQueryOption(int nOption) { m_nQueryOption = nOption; }

    /// Ties the sources to the catalog: the value of each becomes the GUID of the table, or else the query, that the
    /// key names as its source name; without one it stays. Nested queries (m_listSubQueries) come first.
    void ResolveSourceGUIDs();
    /// Records a user function and its number of arguments in the database.
    void SetUserFunction(const CString& strName, int nArguments);
    /// Gives this query's database to the queries of the items in its clauses, and to those within the members of its
    /// unions.
    void PropagateDatabase();

    /// Whether all that the query reads exists and is selected. Returns a code: 0 is success, which marks the query
    /// Resolved; 1 to 100 are errors; 101 and above are notes of a source's check, which do not stop the check. Queries
    /// that read each other are each checked once. A chain of queries too long for the stack fails.
    int CheckQuery();
    /// 1 when a field that is referred to does not exist or is not selected, else 0.
    int CheckFields();
    /// 1 when this query or a query among its sources, at any depth, declares an alias named like the second name or
    /// else the first. The declaring query goes to `pDeclaring`.
    int HasAlias(const CString& strFirst, CString strSecond, CQZQueryInfo*& pDeclaring);

    /// A table, or else a query, of the database; null for none. The name is the source's.
    CQZSourceInfo* FindSourceByName(const CString& strSrcName) const;
    CQZSourceInfo* FindSourceByGUID(const CString& strGUID) const;

    /// The field that a reference means, or null. Without a table's name it is looked for in all sources. A source that
    /// does not exist sets Correct to 1 and ends the search.
    CQZSourceFildInfo* FindFieldInSources(const CString& strTable, const CString& strField);
    /// The first field with this source name in the sources that exist, or null.
    CQZSourceFildInfo* FindFieldInAnySource(const CString& strField);
    /// 1 when FindFieldInSources finds the field without a table's name, else 0.
    int IsFieldOfSources(const CString& strField);

    /// Gives all fields in the query's clauses their names in the target: in the SELECT list, FROM, ORDER BY, WHERE,
    /// GROUP BY, HAVING and the items of unions, in this order. Queries that items hold are not gone through. A field
    /// that cannot be tied to a source sets Correct to 1 and keeps empty names. Of queries that read each other, or
    /// too many layers of them, what lies behind the circle or too deep is not found.
    void ResolveAllItems();
    /// Sets Resolved to 0 and resolves each item.
    void ResolveItems(const CList<SelectItem*>& items);
    /// Resolves an item, if it is a field, and its children, but for those of fields that are resolved through another
    /// query, name a table's star or are not found. An alias reference loses its children where a source has a field
    /// of the alias's name and the item names an alias as its table.
    void ResolveField(SelectItem& item);
    /// Whether a target field is among the outputs of an item: the name that matched, or empty. With bByField a
    /// target's field name counts, also behind a star in the queries among the sources, and the item that has it is
    /// resolved and goes to `pFound`; otherwise the table name counts. The children of operators, functions and
    /// subqueries are left out, but for those of "ALIAS", unless bNoDescendGuard is set.
    CString FindInItem(SelectItem& item, const SelectItemField& target, SelectItemField*& pFound, int bByField,
                       int bNoDescendGuard);
    /// The first match in a list of items.
    CString FindInItemList(const CList<SelectItem*>& items, const SelectItemField& target, SelectItemField*& pFound,
                           int bByField, int bNoDescendGuard);
    /// 1 when FROM names the field's table and that source has the field, as a field or an alias.
    int IsFieldInDeclaredSource(const SelectItemField& field);
    /// Resolves a field that IsFieldInDeclaredSource denies by the SELECT list of `pSource`, if that is a query, or of
    /// a query among the sources. Returns whether it did.
    int ResolveThroughSubQuery(SelectItemField& field, CQZSourceInfo* pSource);

    /// For hosts: only copied.
    std::uint16_t m_nQuerySerial = 0;
    /// Output names; the key is the alias in lower case.
    CTypedMapStringToPtr<CQZAliasInfo> m_mapAliases{10};
    /// Source names as written, without quotes; the value is the same name until ResolveSourceGUIDs.
    CMapStringToString m_mapSources{10};
    /// One record of each distinct reference to a field, under its GetKey.
    CTypedMapStringToPtr<CFieldObject> m_mapFields{10};
    /// Queries nested in this one, in tree order.
    CList<CQZQueryInfo*> m_listSubQueries{10};
    /// The clauses, each the list of its items.
    CList<SelectItem*> m_listSelect{10};
    CList<SelectItem*> m_listFrom{10};
    CList<SelectItem*> m_listOrderBy{10};
    CList<SelectItem*> m_listGroupBy{10};
    /// The SelectItemUnion items.
    CList<SelectItem*> m_listUnion{10};
    /// The items of HAVING.
    CList<SelectItem*> m_listHaving{10};
    /// A plain item whose children are the condition; null without one.
    SelectItem* m_pWhere = nullptr;
    /// The SELECTs of a split text. Not owned.
    CList<CQZQueryUnionInfo*> m_listUnions{10};

 protected:
    /// What the accessors tell. The database is not owned.
    CQZDatabaseInfo* m_pDatabase = nullptr;
    CString m_strSQL;
    int m_nQueryKind = 0;
    int m_bHasLimit = 0;
    int m_nQueryFlag = 0;
    int m_nLimitFirst = 0;
    int m_nLimitSecond = 0;
    int m_nSelectQuantifier = 0;
    int m_nQueryMark = 0;
    int m_nQueryOption = 0;

 private:
    friend class qz::Copier;
    friend class qz::QueryResolution;
    CQZQueryInfo(const CQZQueryInfo& other, qz::Bare);

    void ResolveOwnSourceGUIDs();
    bool CheckSources(int& nCode);
    void CheckSubQueries(int& nCode);
    bool IsMissing(const CFieldObject& record);

    CQZAliasInfo* FindAliasBySrcName(const CString& strSrcName) const;
    CQZAliasInfo* TakeAlias(const CQZQueryInfo& declaring, const CString& strSrcName);
    CQZSourceFildInfo* FindInEachSource(const CString& strField);
    CQZSourceFildInfo* FindInEntry(CQZSourceInfo& source, const CString& strField);
    CQZSourceFildInfo* FindInNamedSource(const CString& strTable, const CString& strField);
    CQZSourceFildInfo* FindInRecordsOf(CQZQueryInfo& query, const CString& strField);
    CQZSourceFildInfo* FindInOwnRecords(const CString& strField);

    bool m_bIsBeingChecked = false;
};
