// What somebody may have meant.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "QZParserSQL/platform/CString.h"

namespace qzsql {

/// The names, three at most, that are most like this one, case apart; the most like first. Empty where none is like it.
std::vector<CString> NearestNames(const CString& name, const std::vector<CString>& names);

/// "unknown table 'Oders'. Did you mean Orders or Borders?"
std::string UnknownName(std::string_view what, const CString& name, const std::vector<CString>& names);

}  // namespace qzsql
