// One SELECT of a text that was split at its UNIONs.
#pragma once

#include "QZParserSQL/platform/CString.h"
#include "QZParserSQL/platform/Export.h"

class CQZQueryInfo;

namespace qz {
class Copier;
struct Bare;
}  // namespace qz

/// Belongs to whoever put it into a query's list, and owns the query of its own. One thread at a time.
class QZ_API CQZQueryUnionInfo {
 public:
    CQZQueryUnionInfo() = default;
    /// Clones the query, and leaves Reserved empty.
    CQZQueryUnionInfo(const CQZQueryUnionInfo& other);
    CQZQueryUnionInfo& operator=(const CQZQueryUnionInfo&) = delete;
    /// Deletes the query.
    ~CQZQueryUnionInfo();

    /// Owned; null at first.
    CQZQueryInfo* Query = nullptr;
    /// 1 when the text before the SELECT was joined by UNION ALL, 0 for UNION.
    int UnionAll = 0;
    /// For hosts: not filled and not copied.
    CString Reserved;

 private:
    friend class qz::Copier;
    CQZQueryUnionInfo(const CQZQueryUnionInfo& other, qz::Bare);
};
