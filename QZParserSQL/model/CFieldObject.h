// The record of one field reference in a query.
#pragma once

#include "QZParserSQL/model/CObject.h"
#include "QZParserSQL/platform/CString.h"
#include "QZParserSQL/platform/Export.h"

/// Owned by the map of its query. One thread at a time.
class QZ_API CFieldObject : public CObject {
 public:
    CFieldObject();
    /// Copies all members.
    CFieldObject(const CFieldObject& other);
    CFieldObject& operator=(const CFieldObject& other);
    ~CFieldObject() override;

    /// The key of the record in the map of a query's fields: both names, "_" and UnderAs.
    CString GetKey() const;

    /// The table part as written, without quotes; empty when there is none.
    CString TableName;
    /// The field part as written; "*" for all columns.
    CString FieldName;
    /// For hosts: copied, never filled here.
    CString ExtraText;
    int ExtraNumber = 0;
    /// 1 when the reference stands under an AS, as far as a dialect tells.
    int UnderAs = 0;
    /// The output name that the field's item had at the moment of the reference.
    CString OutputName;
};
