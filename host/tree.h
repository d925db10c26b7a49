// Trees and the one way to walk them. A tree can be as deep as its text is long, so that no walk recurses.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "QZParserSQL/dialect/QZRecognizers.h"

namespace qzsql {

struct Tree {
    const QZGrammar& grammar;
    const QZNode* root;
};

/// Calls enter(node, depth) before a node's children and leave(node) behind them. The root's depth is 0.
template <class Enter, class Leave>
void Walk(const QZNode* root, Enter enter, Leave leave) {
    struct Step {
        const QZNode* node;
        std::uint32_t nextChild;
    };
    std::vector<Step> path{{root, 0}};
    enter(root, std::size_t{0});
    while (!path.empty()) {
        auto& step = path.back();
        if (const QZNode* child = QZChildAt(step.node, step.nextChild++)) {
            enter(child, path.size());
            path.push_back({child, 0});
        } else {
            leave(step.node);
            path.pop_back();
        }
    }
}

template <class Enter>
void Walk(const QZNode* root, Enter enter) {
    Walk(root, enter, [](const QZNode*) {});
}

std::size_t CountNodes(const QZNode* root);
bool HasErrorNode(const QZNode* root);

/// The root's children behind the query, the end of the text left out: what was not understood.
std::vector<const QZNode*> TrailingNodes(const QZNode* root);

}  // namespace qzsql
