// Walks over queries that are nested in each other, without recursion.
#pragma once

#include <vector>

class CQZQueryInfo;

namespace qz {

/// A query and all that are nested in it (m_listSubQueries), each behind those that are nested in it.
std::vector<CQZQueryInfo*> InnermostFirst(CQZQueryInfo& outermost);

}  // namespace qz
