// The walkers that the library does not build models with by itself. This is the one place of qzsql that sees internal
// names: it needs the static library. Without static_walkers.cpp, a FindStaticWalker that gives null stands in for it,
// and qzsql is a host like any other.
#pragma once

#include "QZParserSQL/front/BuildQueryInfo.h"

namespace qzsql {

/// Does for its kind of database what QZBuildQuery does for MS Access.
using StaticWalker = bool (*)(CQZQueryInfo& query, const QZReporter* reporter);

/// Null where the kind has none.
StaticWalker FindStaticWalker(DBTypes kind);

}  // namespace qzsql
