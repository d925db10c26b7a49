// The walker of Oracle. An alias is kept apart by what it names, through a suffix of its key, and remembers the table
// or the column behind it.
#pragma once

#include "QZParserSQL/dialect/StateSelectQuery.h"

class OracleStateSelectQuery final : public StateSelectQuery {
 public:
    explicit OracleStateSelectQuery(CQZSQLTree* pTree = nullptr);

    /// Whether a key of the aliases is the name, or the name with the suffix ("_TABLE", "_FIELD").
    bool IsAliasKey(const CString& strName, const CString& strSuffix) const;
    /// The table that an alias stands for; empty for an alias of anything else, the name itself for no alias. Of two
    /// aliases of the same name the one that was declared first counts.
    CString AliasRealTable(const CString& strName) const;
    /// The column that an alias stands for; the name itself without one.
    CString AliasRealField(const CString& strName) const;

 private:
    std::unique_ptr<StateSelectQuery> NewState(CQZSQLTree* pTree) const override;

    bool IsOperatorNode(CQZSQLTree& node) const override;
    bool IsAlias(const CString& strName, NameOf use) const override;
    CString AliasKey(CQZSQLTree& node, const CString& strName) const override;
    void NameOrigin(CQZSQLTree& node, CQZAliasInfo& alias) const override;
    void AddConstant(const WalkPlace& place) override;
    void AddOtherClauseItem(const WalkPlace& place) override;
    CString NewNameText(CQZSQLTree& node) const override;
    CFieldObject ScannedRecordOf(const ColumnParts& parts) const override;

    bool HasCondition(CQZSQLTree& node) const;
    CQZAliasInfo* FindAlias(const CString& strName, const CString& strSuffix) const;
};
