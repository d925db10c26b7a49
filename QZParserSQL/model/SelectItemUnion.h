// A further SELECT of a union.
#pragma once

#include "QZParserSQL/model/SelectItem.h"

class CQZQueryInfo;

/// Of kind kUnion; the walkers give it the FuncName "UNION".
class QZ_API SelectItemUnion : public SelectItem {
 public:
    SelectItemUnion();
    /// Clones the query.
    SelectItemUnion(const SelectItemUnion& other);
    /// Deletes the query.
    ~SelectItemUnion() override;

    SelectItemUnion* Clone() const override;

    /// Owned; null at first.
    CQZQueryInfo* Query = nullptr;

 private:
    friend class qz::Copier;
    SelectItemUnion(const SelectItemUnion& other, qz::Bare bare);
};
