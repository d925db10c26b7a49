#include "host/query_rings.h"

#include <algorithm>

namespace qzsql {

namespace {

/// A walk in depth, without recursion, since chains of queries may be long.
class RingFinder {
 public:
    explicit RingFinder(const Readings& readings)
        : readings_(readings), states_(readings.size(), State::New), isTold_(readings.size()) {
        found_.leadsToRing.resize(readings.size());
    }

    Rings Run() {
        for (std::size_t query = 0; query < readings_.size(); ++query) {
            if (states_[query] == State::New) WalkFrom(query);
        }
        return std::move(found_);
    }

 private:
    enum class State { New, OnPath, Done };
    struct Step {
        std::size_t query;
        std::size_t next;
    };

    void WalkFrom(std::size_t query) {
        Enter(query);
        while (!path_.empty()) {
            auto& step = path_.back();
            if (step.next < readings_[step.query].size()) {
                Follow(readings_[step.query][step.next++]);
            } else {
                Leave();
            }
        }
    }

    void Enter(std::size_t query) {
        states_[query] = State::OnPath;
        path_.push_back({query, 0});
    }

    void Follow(std::size_t query) {
        if (states_[query] == State::New) return Enter(query);
        if (states_[query] == State::OnPath) Tell(query);
        if (states_[query] == State::OnPath || found_.leadsToRing[query]) Mark(path_.back().query);
    }

    void Leave() {
        const auto query = path_.back().query;
        states_[query] = State::Done;
        found_.sourcesFirst.push_back(query);
        path_.pop_back();
        if (!path_.empty() && found_.leadsToRing[query]) Mark(path_.back().query);
    }

    void Mark(std::size_t query) { found_.leadsToRing[query] = true; }

    /// The path from the query to its end closes a ring.
    void Tell(std::size_t query) {
        std::vector<std::size_t> ring;
        auto step = path_.rbegin();
        do {
            if (isTold_[step->query]) return;
            ring.push_back(step->query);
        } while ((step++)->query != query);
        for (const auto member : ring) isTold_[member] = true;
        std::reverse(ring.begin(), ring.end());
        found_.rings.push_back(std::move(ring));
    }

    const Readings& readings_;
    std::vector<State> states_;
    std::vector<bool> isTold_;
    std::vector<Step> path_;
    Rings found_;
};

}  // namespace

Rings FindRings(const Readings& readings) { return RingFinder(readings).Run(); }

}  // namespace qzsql
