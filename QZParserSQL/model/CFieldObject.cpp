#include "QZParserSQL/model/CFieldObject.h"

CFieldObject::CFieldObject() = default;
CFieldObject::CFieldObject(const CFieldObject& other) = default;
CFieldObject& CFieldObject::operator=(const CFieldObject& other) = default;
CFieldObject::~CFieldObject() = default;

CString CFieldObject::GetKey() const { return TableName + FieldName + u"_" + CString::FromInt(UnderAs); }
