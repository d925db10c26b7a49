#include "QZParserSQL/model/CQZQueryUnionInfo.h"

#include "QZParserSQL/model/CQZQueryInfo.h"
#include "QZParserSQL/model/Copier.h"
#include "QZParserSQL/model/Dispose.h"

CQZQueryUnionInfo::CQZQueryUnionInfo(const CQZQueryUnionInfo& other) : CQZQueryUnionInfo(other, qz::Bare()) {
    qz::CopyOwned(other, *this);
}

CQZQueryUnionInfo::CQZQueryUnionInfo(const CQZQueryUnionInfo& other, qz::Bare /*bare*/) : UnionAll(other.UnionAll) {}

CQZQueryUnionInfo::~CQZQueryUnionInfo() { qz::Dispose(Query); }
