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

SelectItem* ItemWalk::Next() {
    while (!m_Levels.empty()) {
        Level& level = m_Levels.back();
        if (level.position == nullptr) {
            m_Levels.pop_back();
        } else if (SelectItem* item = level.items->GetNext(level.position)) {
            return item;
        }
    }
    return nullptr;
}

void ItemWalk::Enter(const CList<SelectItem*>& items) { m_Levels.push_back({&items, items.GetHeadPosition()}); }

}  // namespace qz
