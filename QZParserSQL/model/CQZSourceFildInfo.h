// What a source shows as a field.
#pragma once

#include "QZParserSQL/model/CQZObjectInfo.h"

/// The base of a table's fields (CQZFieldInfo) and of a query's output names (CQZAliasInfo).
class QZ_API CQZSourceFildInfo : public CQZObjectInfo {
 public:
    CQZSourceFildInfo() = default;
    /// Copies everything, the GUID too.
    CQZSourceFildInfo(const CQZSourceFildInfo& other) = default;
    ~CQZSourceFildInfo() override;
};
