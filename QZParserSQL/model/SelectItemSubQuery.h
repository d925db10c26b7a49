// A query nested in an expression.
#pragma once

#include "QZParserSQL/model/SelectItem.h"

class CQZQueryInfo;

/// Of kind kSubQuery; the walkers give it the FuncName "SUB_QUERY".
class QZ_API SelectItemSubQuery : public SelectItem {
 public:
    SelectItemSubQuery();
    /// Clones the query.
    SelectItemSubQuery(const SelectItemSubQuery& other);
    /// Deletes the query.
    ~SelectItemSubQuery() override;

    SelectItemSubQuery* Clone() const override;

    /// Owned; null at first.
    CQZQueryInfo* Query = nullptr;

 private:
    friend class qz::Copier;
    SelectItemSubQuery(const SelectItemSubQuery& other, qz::Bare bare);
};
