// How parsers put trees together. The runtime copies the children of a rule's list into the list of the rule around it,
// level by level, which is quadratic where flat lists nest: (a, (a, (a, ...). Here a longer list is put into the other
// as it is and is opened once, when it comes below a node of its own.
#include <utility>

#include "QZParserSQL/dialect/recognizer.h"

namespace {

using Tree = pANTLR3_BASE_TREE;
using Node = pANTLR3_COMMON_TREE;

// Up to so many children a list is cheaper copied than kept.
constexpr ANTLR3_UINT32 kFew = 4;

Node NodeOf(Tree tree) { return static_cast<Node>(tree->super); }
bool IsList(Tree tree) { return NodeOf(tree)->token == nullptr; }
ANTLR3_UINT32 CountOf(Tree tree) { return tree->children == nullptr ? 0 : tree->children->count; }
Tree ChildOf(Tree tree, ANTLR3_UINT32 index) { return static_cast<Tree>(tree->children->elements[index].element); }

void Append(Tree parent, Tree child) {
    if (parent->children == nullptr) NodeOf(parent)->baseTree.createChildrenList(parent);
    parent->children->add(parent->children, child, nullptr);
}

// Lists can lie in lists as deep as the text nests: each keeps the way back and the place reached in itself.
void AppendAllOf(Tree parent, Tree list) {
    NodeOf(list)->parent = nullptr;
    NodeOf(list)->childIndex = 0;
    for (Node open = NodeOf(list); open != nullptr;) {
        const auto place = static_cast<ANTLR3_UINT32>(open->childIndex);
        if (place == CountOf(&open->baseTree)) {
            open = open->parent;
            continue;
        }
        ++open->childIndex;
        const Tree child = ChildOf(&open->baseTree, place);
        if (!IsList(child)) {
            Append(parent, child);
            continue;
        }
        NodeOf(child)->parent = open;
        NodeOf(child)->childIndex = 0;
        open = NodeOf(child);
    }
}

void AddListToList(Tree list, Tree added) {
    if (CountOf(list) == 0) {
        std::swap(list->children, added->children);
    } else if (CountOf(added) > kFew) {
        Append(list, added);
    } else {
        for (ANTLR3_UINT32 i = 0; i < CountOf(added); ++i) Append(list, ChildOf(added, i));
    }
}

void AddChild(pANTLR3_BASE_TREE_ADAPTOR, void* parent, void* child) {
    if (parent == nullptr || child == nullptr) return;
    const auto tree = static_cast<Tree>(parent);
    const auto added = static_cast<Tree>(child);
    if (!IsList(added)) return Append(tree, added);
    if (!IsList(tree)) return AppendAllOf(tree, added);
    AddListToList(tree, added);
}

// The node that a new root in a list of its own stands for; null where there isn't exactly one.
Tree OnlyNodeOf(Tree tree) {
    while (IsList(tree)) {
        if (CountOf(tree) != 1) return nullptr;
        tree = ChildOf(tree, 0);
    }
    return tree;
}

void* BecomeRoot(pANTLR3_BASE_TREE_ADAPTOR adaptor, void* newRoot, void* oldRoot) {
    if (newRoot == nullptr) return oldRoot;
    if (oldRoot == nullptr) return newRoot;
    const Tree root = OnlyNodeOf(static_cast<Tree>(newRoot));
    if (root == nullptr) return newRoot;
    AddChild(adaptor, root, oldRoot);
    const auto old = static_cast<Tree>(oldRoot);
    if (IsList(old)) old->reuse(old);
    return root;
}

// A rule that made nothing has no tree, one that made a single node has that.
void* RulePostProcessing(pANTLR3_BASE_TREE_ADAPTOR, void* made) {
    const auto tree = static_cast<Tree>(made);
    if (tree == nullptr || !IsList(tree) || CountOf(tree) > 1) return tree;
    if (CountOf(tree) == 0) return nullptr;
    const Tree only = ChildOf(tree, 0);
    tree->reuse(tree);
    return only;
}

}  // namespace

pANTLR3_BASE_TREE_ADAPTOR qzTreeAdaptorNew(pANTLR3_STRING_FACTORY strings) {
    const auto adaptor = ANTLR3_TREE_ADAPTORNew(strings);
    if (adaptor == nullptr) return nullptr;
    adaptor->addChild = AddChild;
    adaptor->becomeRoot = BecomeRoot;
    adaptor->rulePostProcessing = RulePostProcessing;
    return adaptor;
}

pANTLR3_BASE_TREE qzWholeTree(pANTLR3_BASE_TREE_ADAPTOR adaptor, pANTLR3_BASE_TREE root) {
    if (root == nullptr || !IsList(root)) return root;
    const auto whole = static_cast<Tree>(adaptor->nilNode(adaptor));
    AppendAllOf(whole, root);
    return whole;
}

void qzFillStream(pANTLR3_COMMON_TOKEN_STREAM stream) {
    stream->tstream->_LT(stream->tstream, 1);  // the first look fills the stream
}
