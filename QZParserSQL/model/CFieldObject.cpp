#include "QZParserSQL/model/CFieldObject.h"

CFieldObject::CFieldObject() = default;
CFieldObject::CFieldObject(const CFieldObject& other) = default;
CFieldObject& CFieldObject::operator=(const CFieldObject& other) = default;
CFieldObject::~CFieldObject() = default;

CString CFieldObject::GetKey() const {
    CString key = TableName + FieldName;
    key += u'_';
    key += CString::FromInt(UnderAs);
    return key;
}
