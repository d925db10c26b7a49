#include "host/tree.h"

namespace qzsql {

std::size_t CountNodes(const QZNode* root) {
    std::size_t count = 0;
    Walk(root, [&count](const QZNode*, std::size_t) { ++count; });
    return count;
}

bool HasErrorNode(const QZNode* root) {
    bool found = false;
    Walk(root, [&found](const QZNode* node, std::size_t) { found = found || QZKindOf(node) == QZNodeKind::Error; });
    return found;
}

std::vector<const QZNode*> TrailingNodes(const QZNode* root) {
    std::vector<const QZNode*> nodes;
    if (QZKindOf(root) != QZNodeKind::Nil) return nodes;
    for (std::uint32_t i = 1; i < QZChildCount(root); ++i) {
        const QZNode* node = QZChildAt(root, i);
        if (QZKindOf(node) == QZNodeKind::Token) nodes.push_back(node);
    }
    return nodes;
}

}  // namespace qzsql
