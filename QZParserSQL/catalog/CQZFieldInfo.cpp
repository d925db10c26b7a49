#include "QZParserSQL/catalog/CQZFieldInfo.h"

void CQZFieldInfo::BuildTypeMappedString() {
    TypeMappedString = GetTypeText();
    const CString strCollation = GetCollation();
    if (!strCollation.IsEmpty()) TypeMappedString += u", COLLATE " + strCollation;
}
