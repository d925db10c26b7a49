#include "QZParserSQL/model/CQZAliasInfo.h"

#include <utility>

CQZAliasInfo::CQZAliasInfo() { Calculated = 1; }

CQZAliasInfo::CQZAliasInfo(const CQZAliasInfo& other)
    : CQZSourceFildInfo(other),
      AliasTable(other.AliasTable),
      AliasField(other.AliasField),
      Expression(other.Expression) {}

CQZAliasInfo::~CQZAliasInfo() = default;

CQZAliasInfo* CQZAliasInfo::Clone(int /*bSelectedOnly*/) const { return new CQZAliasInfo(*this); }

bool CQZAliasInfo::IsVirtualObject(int /*nUnused*/) const { return true; }

bool CQZAliasInfo::IsRealObject(int nUnused) const { return !IsVirtualObject(nUnused); }

// NOLINTNEXTLINE(performance-unnecessary-value-param): derived classes may keep the text
int CQZAliasInfo::CheckAlias(CString /*strText*/) { return 0; }

void CQZAliasInfo::SetAliasTable(CString strTable) { AliasTable = std::move(strTable); }

void CQZAliasInfo::SetAliasField(CString strField) { AliasField = std::move(strField); }
