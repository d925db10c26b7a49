// The walker of MS SQL.
#pragma once

#include "QZParserSQL/dialect/StateSelectQuery.h"

class MSSQLStateSelectQuery final : public StateSelectQuery {
 public:
    explicit MSSQLStateSelectQuery(CQZSQLTree* pTree = nullptr);

 private:
    std::unique_ptr<StateSelectQuery> NewState(CQZSQLTree* pTree) const override;
    void BuildFunction(const WalkPlace& place) override;
    CQZSQLTree* ArgumentsOf(CQZSQLTree& node, SelectItem& item, const WalkPlace& place) override;
    CString NumberText(CQZSQLTree& node) const override;
    CFieldObject RecordOf(const ColumnParts& parts) const override;
};
