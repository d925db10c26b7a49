// What the library asks of an index of a table.
#pragma once

#include "QZParserSQL/model/CQZObjectInfo.h"

class CQZTableInfo;

/// An index; the concrete classes are the host's. Names, selection and persistence are those of CQZObjectInfo.
class QZ_API CQZIndexInfo : public CQZObjectInfo {
 public:
    CQZIndexInfo* Clone(int bSelectedOnly) const override = 0;

    /// Called on each clone that the copy of a table makes, with that copy. Not owned.
    virtual void SetOwner(CQZTableInfo* pOwner) = 0;
    /// Checks what the index refers to, and keeps the result where GetCorrect finds it. The library passes 0.
    virtual void CheckReference(int nFlag) = 0;
    /// Whether CQZTableInfo::GetPrimaryKeyIndex may give this index: it is the table's primary key.
    virtual int IsPrimaryKey() const = 0;
    /// Whether CQZTableInfo::GetPrimaryIndex may give this index: it serves as the primary one.
    virtual int IsPrimaryIndex() const = 0;
};
