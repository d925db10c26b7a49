#include "QZParserSQL/dialect/QueryWalk.h"

#include <algorithm>
#include <new>
#include <utility>

#include "QZParserSQL/dialect/StateSelectQuery.h"
#include "QZParserSQL/model/CQZQueryInfo.h"

QueryWalk::QueryWalk() = default;

QueryWalk::~QueryWalk() {
    for (auto& [select, aliases] : m_Scanned)
        for (const auto& [key, alias] : aliases) delete alias;
}

void QueryWalk::Run() {
    if (m_bRunning) return;
    struct Running {
        explicit Running(bool& flag) : m_Flag(flag) { m_Flag = true; }
        ~Running() { m_Flag = false; }
        bool& m_Flag;
    } running(m_bRunning);

    ReverseFrom(0);
    while (!m_Waiting.empty()) {
        const Task task = m_Waiting.back();
        m_Waiting.pop_back();
        const auto earlier = m_Waiting.size();
        const auto nested = m_Nested.size();
        const auto endNested = [&] {
            m_Waiting.resize(earlier);
            m_Nested.resize(std::min(nested, m_Nested.size()));
            if (!task.Ends()) Abandon();
            if (m_Nested.empty()) throw;
            m_Nested.pop_back();
        };
        try {
            Do(task);
            ReverseFrom(earlier);
        } catch (const std::bad_alloc&) {
            m_bOutOfMemory = true;
            endNested();
        } catch (...) {
            endNested();
        }
    }
}

void QueryWalk::ThrowIfOutOfMemory() const {
    if (m_bOutOfMemory) throw std::bad_alloc();
}

// The last task is the next.
void QueryWalk::ReverseFrom(std::size_t first) {
    std::reverse(m_Waiting.begin() + static_cast<std::ptrdiff_t>(first), m_Waiting.end());
}

void QueryWalk::Do(const Task& task) {
    if (task.Ends()) {
        task.state->m_pQuery->ResolveSourceGUIDs();
        m_Nested.pop_back();
    } else if (!IsFull()) {
        (task.state->*task.step)(task.place);
    }
}

// Drops the steps up to the end of the innermost nested query, that one included.
void QueryWalk::Abandon() {
    bool ended = false;
    while (!ended && !m_Waiting.empty()) {
        ended = m_Waiting.back().Ends();
        m_Waiting.pop_back();
    }
}

StateSelectQuery& QueryWalk::Begin(std::unique_ptr<StateSelectQuery> state) {
    m_Nested.push_back(std::move(state));
    return *m_Nested.back();
}

const NameIndex& QueryWalk::KeepNames(NameIndex names) {
    m_pNames = std::make_unique<const NameIndex>(std::move(names));
    return *m_pNames;
}

const QueryWalk::Aliases* QueryWalk::AliasesBelow(const CQZSQLTree* select) const {
    const auto found = m_Scanned.find(select);
    return found == m_Scanned.end() ? nullptr : &found->second;
}

void QueryWalk::ShareAliases(const Aliases& from, Aliases& to) {
    for (const auto& [key, alias] : from) {
        std::unique_ptr<CQZAliasInfo> same(alias->Clone(0));
        same->Expression.ShareAs(alias->Expression);
        SetOwned(to, key, std::move(same));
    }
}
