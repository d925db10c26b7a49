// What the library asks of a field of a table.
#pragma once

#include "QZParserSQL/model/CQZSourceFildInfo.h"

class CQZTableInfo;

/// A field; the concrete classes are the host's. Names, selection and persistence are those of CQZObjectInfo.
class QZ_API CQZFieldInfo : public CQZSourceFildInfo {
 public:
    CQZFieldInfo* Clone(int bSelectedOnly) const override = 0;
    /// Composes the target's type clause from the two texts below.
    void BuildTypeMappedString() override;

    /// Called on each clone that the copy of a table makes, with that copy. Not owned.
    virtual void SetOwner(CQZTableInfo* pOwner) = 0;
    /// The mapped type as SQL text.
    virtual CString GetTypeText() const = 0;
    /// The name of the collation, empty for none.
    virtual CString GetCollation() const = 0;
};
