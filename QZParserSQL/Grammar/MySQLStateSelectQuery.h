// The walker of MySQL.
#pragma once

#include "QZParserSQL/dialect/StateSelectQuery.h"

class MySQLStateSelectQuery final : public StateSelectQuery {
 public:
    explicit MySQLStateSelectQuery(CQZSQLTree* pTree = nullptr);

 private:
    std::unique_ptr<StateSelectQuery> NewState(CQZSQLTree* pTree) const override;
    bool IsAlias(const CString& strName, NameOf use) const override;
    void WalkNode(const WalkPlace& place) override;
    void BuildField(const WalkPlace& place) override;
};
