// Walks over queries and items that are nested in each other, without recursion.
#pragma once

#include <vector>

#include "QZParserSQL/model/SelectItem.h"

class CQZQueryInfo;

namespace qz {

/// A query and all that are nested in it (m_listSubQueries), each behind those that are nested in it.
std::vector<CQZQueryInfo*> InnermostFirst(CQZQueryInfo& outermost);

/// Goes through the items of a list and, where it is told to, through their children. Lists that it stands in must
/// stay.
class ItemWalk {
 public:
    explicit ItemWalk(const CList<SelectItem*>& items) { Enter(items); }

    /// The next item, or null at the end.
    SelectItem* Next();
    /// Puts other items before those that are still to come.
    void Enter(const CList<SelectItem*>& items);

 private:
    struct Level {
        const CList<SelectItem*>* items;
        POSITION position;
    };

    std::vector<Level> m_Levels;
};

}  // namespace qz
