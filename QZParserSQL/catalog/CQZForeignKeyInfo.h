// What the library asks of a foreign key of a table.
#pragma once

#include "QZParserSQL/model/CQZObjectInfo.h"

class CQZTableInfo;

/// A foreign key; the concrete classes are the host's. Names, selection and persistence are those of CQZObjectInfo.
class QZ_API CQZForeignKeyInfo : public CQZObjectInfo {
 public:
    CQZForeignKeyInfo* Clone(int bSelectedOnly) const override = 0;

    /// Called on each clone that the copy of a table makes, with that copy. Not owned.
    virtual void SetOwner(CQZTableInfo* pOwner) = 0;
    /// Checks what the key refers to, and keeps the result where GetCorrect finds it. The library passes 0.
    virtual void CheckReference(int nFlag) = 0;
    /// The GUID of the table that the key points to. Read by several threads at once, see CQZTableInfo::CanStart.
    virtual CString GetReferencedTableGUID() const = 0;
};
