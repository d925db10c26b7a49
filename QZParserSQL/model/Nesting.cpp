#include "QZParserSQL/model/Nesting.h"

#include <algorithm>

#include "QZParserSQL/model/CQZQueryInfo.h"

namespace qz {

std::vector<CQZQueryInfo*> InnermostFirst(CQZQueryInfo& outermost) {
    std::vector<CQZQueryInfo*> queries;
    std::vector<CQZQueryInfo*> waiting = {&outermost};
    while (!waiting.empty()) {
        queries.push_back(waiting.back());
        waiting.pop_back();
        for (CQZQueryInfo* nested : queries.back()->m_listSubQueries) waiting.push_back(nested);
    }
    std::reverse(queries.begin(), queries.end());
    return queries;
}

}  // namespace qz
