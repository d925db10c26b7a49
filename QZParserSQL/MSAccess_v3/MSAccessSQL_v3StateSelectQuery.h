// The walker of MS Access.
#pragma once

#include "QZParserSQL/dialect/StateSelectQuery.h"

class CQZTableInfo;

class MSAccessSQL_v3StateSelectQuery final : public StateSelectQuery {
 public:
    explicit MSAccessSQL_v3StateSelectQuery(CQZSQLTree* pTree);

 private:
    /// A column on its way into an item, with the texts for its record.
    struct Column {
        SelectItemField& item;
        CString table;
        CString field;
    };

    std::unique_ptr<StateSelectQuery> NewState(CQZSQLTree* pTree) const override;

    bool DeclaresAlias(NodeKind kind) const override;
    void FillExpression(CQZSQLTree& node, SelectItem& expression) override;
    /// Only the items of columns leave records.
    void ScanFields() override {}

    void AddAsterisk(const WalkPlace& place) override { BuildField(place); }
    void AddJoinDefinition(const WalkPlace& place) override;
    void WalkOtherNode(const WalkPlace& place) override;
    /// Words of a join stand in a node of their own; by themselves they are nothing.
    void WalkJoinWord(const WalkPlace& /*place*/) override {}
    void WalkChildren(CQZSQLTree& node, CList<SelectItem*>& list) override;
    CString FunctionName(CQZSQLTree& node) const override;

    void BuildField(const WalkPlace& place) override;
    void TakeQualifier(Column& column, const CString& strName, CString& strTaken) const;
    void TakeColumnName(Column& column, CString strName);
    void RecordColumn(Column& column);
    void ExpandTableFields(const CQZTableInfo& table, CList<SelectItem*>& list);

    void ExpandAlias(SelectItemField& item, const CString& strName);
    void FixAliasField(SelectItem& item, const CString& strAlias);
    void TurnRound(SelectItemField& field);
    template <class Item, class Visit>
    void ForEachReference(Item& item, const CString& strAlias, Visit visit) const;
    const SelectItem* ExpressionOf(const CString& strAlias) const;
    bool NamesAlias(const SelectItemField& field) const;
    void AddClone(const SelectItem& expression, SelectItemField& item);

    int m_nExpandedItems = 0;
};
