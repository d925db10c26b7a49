// What the states of one build share: the steps still to be done, the bound, and what scans have found.
#pragma once

#include <cstddef>
#include <memory>
#include <unordered_map>
#include <vector>

#include "QZParserSQL/dialect/NameIndex.h"
#include "QZParserSQL/model/CQZAliasInfo.h"
#include "QZParserSQL/model/SelectItem.h"
#include "QZParserSQL/platform/CList.h"
#include "QZParserSQL/platform/CMap.h"

class CQZSQLTree;
class StateSelectQuery;

/// Gives a map an object that it is to own.
template <class T>
void SetOwned(CTypedMapStringToPtr<T>& map, const CString& key, std::unique_ptr<T> object) {
    map.SetAt(key, object.get());
    static_cast<void>(object.release());
}

/// Where a step of a walk stands: a node, the list that its items go to, the node above.
struct WalkPlace {
    CQZSQLTree* node = nullptr;
    CList<SelectItem*>* list = nullptr;
    CQZSQLTree* parent = nullptr;
};

/// A walk goes as deep as its tree and needs no stack for it: a step does what it has to do at its node and leaves what
/// lies below for later. Steps that one step leaves are done in the order in which it leaves them, each with all that
/// follows from it before the next, as by recursion.
class QueryWalk {
 public:
    using Step = void (StateSelectQuery::*)(const WalkPlace& place);

    QueryWalk();
    ~QueryWalk();
    QueryWalk(const QueryWalk&) = delete;
    QueryWalk& operator=(const QueryWalk&) = delete;

    void Later(StateSelectQuery& state, Step step, const WalkPlace& place) {
        m_Waiting.push_back({&state, step, place});
    }

    /// Does all steps; from within a step nothing, since the outer call goes on. What a step throws ends the innermost
    /// nested query, which keeps what it has; outside of any it comes out here.
    void Run();
    /// Throws std::bad_alloc where that has ended a nested query.
    void ThrowIfOutOfMemory() const;

    /// Takes over the state of a nested query. The steps left from here on are its own, until those of End are done.
    StateSelectQuery& Begin(std::unique_ptr<StateSelectQuery> state);
    void End(StateSelectQuery& state) { m_Waiting.push_back({&state, nullptr, {}}); }

    /// Counts objects of the model. From the bound on, a walk only closes what it has begun.
    void Count(std::size_t objects = 1) { m_nObjects += objects; }
    bool IsFull() const { return m_nObjects >= kBound; }
    /// Counts a node that a scan reads: a few are as dear as an object, and those of nested SELECTs are read for each
    /// SELECT around them.
    void CountRead() {
        if (++m_nReads % kReadsOfAnObject == 0) Count();
    }

    /// The names in the tree of the state that the build began with; null until they have been kept.
    const NameIndex* Names() const { return m_pNames.get(); }
    const NameIndex& KeepNames(NameIndex names);

    /// The aliases that a scan has found below a SELECT which does not see the names around it: they are the same
    /// whenever it is walked, and share their expressions.
    using Aliases = CTypedMapStringToPtr<CQZAliasInfo>;
    const Aliases* AliasesBelow(const CQZSQLTree* select) const;
    void KeepAliases(const CQZSQLTree* select, const Aliases& aliases) { ShareAliases(aliases, m_Scanned[select]); }
    static void ShareAliases(const Aliases& from, Aliases& to);

 private:
    struct Task {
        StateSelectQuery* state;
        Step step;  // null where the state's query ends
        WalkPlace place;

        bool Ends() const { return step == nullptr; }
    };

    static constexpr std::size_t kBound = 2'000'000;
    static constexpr std::size_t kReadsOfAnObject = 4;

    void Do(const Task& task);
    void ReverseFrom(std::size_t first);
    void Abandon();

    std::vector<Task> m_Waiting;
    std::vector<std::unique_ptr<StateSelectQuery>> m_Nested;
    std::unique_ptr<const NameIndex> m_pNames;
    std::unordered_map<const CQZSQLTree*, Aliases> m_Scanned;
    std::size_t m_nObjects = 0;
    std::size_t m_nReads = 0;
    bool m_bRunning = false;
    bool m_bOutOfMemory = false;
};
