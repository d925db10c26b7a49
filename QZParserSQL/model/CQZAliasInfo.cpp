#include "QZParserSQL/model/CQZAliasInfo.h"

#include <utility>

#include "QZParserSQL/model/Copier.h"
#include "QZParserSQL/model/Dispose.h"
#include "QZParserSQL/model/SelectItem.h"

CQZAliasInfo::CQZAliasInfo() { Calculated = 1; }

CQZAliasInfo::CQZAliasInfo(const CQZAliasInfo& other) : CQZAliasInfo(other, qz::Bare()) { qz::CopyOwned(other, *this); }

CQZAliasInfo::CQZAliasInfo(const CQZAliasInfo& other, qz::Bare /*bare*/)
    : CQZSourceFildInfo(other), AliasTable(other.AliasTable), AliasField(other.AliasField) {}

CQZAliasInfo::~CQZAliasInfo() { qz::Dispose(Expression); }

CQZAliasInfo* CQZAliasInfo::Clone(int /*bSelectedOnly*/) const { return new CQZAliasInfo(*this); }

bool CQZAliasInfo::IsVirtualObject(int /*nUnused*/) const { return true; }

bool CQZAliasInfo::IsRealObject(int nUnused) const { return !IsVirtualObject(nUnused); }

// NOLINTNEXTLINE(performance-unnecessary-value-param): derived classes may keep the text
int CQZAliasInfo::CheckAlias(CString /*strText*/) { return 0; }

void CQZAliasInfo::SetAliasTable(CString strTable) { AliasTable = std::move(strTable); }

void CQZAliasInfo::SetAliasField(CString strField) { AliasField = std::move(strField); }
