// What a query draws rows from.
#pragma once

#include "QZParserSQL/model/CQZObjectInfo.h"

class CQZSourceFildInfo;

/// A row source: a table of the catalog (CQZTableInfo) or a query (CQZQueryInfo).
class QZ_API CQZSourceInfo : public CQZObjectInfo {
 public:
    CQZSourceInfo() = default;
    /// Copies everything, the GUID too.
    CQZSourceInfo(const CQZSourceInfo& other) = default;
    ~CQZSourceInfo() override;

    /// The first field with this GUID, name or source name, in any case, or null. Fields belong to the source: those of
    /// a table are CQZFieldInfo objects, those of a query its aliases or fields of its own sources. A query has no
    /// fields by GUID or by name, and looks a source name up in its sources and its aliases.
    virtual CQZSourceFildInfo* FindFieldByGUID(CString strGUID) = 0;
    virtual CQZSourceFildInfo* FindFieldByName(CString strName) = 0;
    virtual CQZSourceFildInfo* FindFieldBySrcName(CString strSrcName) = 0;
    /// Checks what the source consists of; with a flag, also that all of it is selected. Returns a code: 0 is success,
    /// 1 to 100 are errors, 101 and above are notes.
    virtual int CheckChildren(int nFlag) = 0;
};
