// How fast parsers put trees together. A list of one element is that element, so that a rule which hands its child on
// makes nothing. A longer list is put into another as it is and is opened once, when it comes below a node of its own.
#include <algorithm>
#include <cstddef>
#include <cstring>

#include "QZParserSQL/dialect/FastRecognition.h"
#include "QZParserSQL/dialect/recognizer.h"

namespace {

using qz::Children;
using qz::FastParser;
using Tree = pANTLR3_BASE_TREE;
using Node = pANTLR3_COMMON_TREE;

// Up to so many children a list is cheaper copied than kept.
constexpr ANTLR3_UINT32 kFew = 4;

// ------------------------------------------------------------------------------------------------- nodes and children

Children& ChildrenOf(pANTLR3_VECTOR vector) {
    return *reinterpret_cast<Children*>(reinterpret_cast<char*>(vector) - offsetof(Children, vector));
}

ANTLR3_UINT32 RoomOf(const Children& children) {
    return children.hasGrown ? children.vector.elementsSize : ANTLR3_VECTOR_INTERNAL_SIZE;
}

void MakeRoom(Children& children, ANTLR3_UINT32 added) {
    auto& vector = children.vector;
    const ANTLR3_UINT32 needed = vector.count + added;
    const ANTLR3_UINT32 room = RoomOf(children);
    if (needed <= room) return;
    const ANTLR3_UINT32 larger = std::max(needed, 2 * room);
    void* grown = children.parser->memory.Take(larger * sizeof(ANTLR3_VECTOR_ELEMENT));
    std::memcpy(grown, vector.elements, vector.count * sizeof(ANTLR3_VECTOR_ELEMENT));
    vector.elements = static_cast<pANTLR3_VECTOR_ELEMENT>(grown);
    vector.elementsSize = larger;
    children.hasGrown = true;
}

ANTLR3_UINT32 AddElement(pANTLR3_VECTOR vector, void* element, void (*freeElement)(void*)) {
    MakeRoom(ChildrenOf(vector), 1);
    vector->elements[vector->count++] = {element, freeElement};
    return vector->count;
}

Children MakeChildrenModel() {
    Children model{};
    antlr3SetVectorApi(&model.vector, 0);
    model.vector.factoryMade = ANTLR3_TRUE;
    model.vector.add = AddElement;
    return model;
}

pANTLR3_VECTOR NewVector(FastParser& parser) {
    static const Children model = MakeChildrenModel();
    auto& children = *parser.children.Take(model);
    children.parser = &parser;
    children.vector.elements = children.vector.internal;
    children.vector.count = 0;
    if (children.hasGrown) {
        children.vector.elementsSize = ANTLR3_VECTOR_INTERNAL_SIZE;
        children.hasGrown = false;
    }
    return &children.vector;
}

ANTLR3_COMMON_TREE MakeNodeModel() {
    ANTLR3_COMMON_TREE model{};
    antlr3SetCTAPI(&model);
    model.baseTree.reuse = [](Tree) {};
    return model;
}

// What nobody changes in a node (the places of its first and last token, its string factory) stays as it was made.
Node NewNode(FastParser& parser, pANTLR3_COMMON_TOKEN token) {
    static const ANTLR3_COMMON_TREE model = MakeNodeModel();
    auto* node = parser.nodes.Take(model);
    node->token = token;
    node->parent = nullptr;
    node->childIndex = -1;
    node->factory = &parser.arboretum;
    auto& tree = node->baseTree;
    tree.super = node;
    tree.u = nullptr;
    tree.children = nullptr;
    tree.savedIndex = 0;
    return node;
}

FastParser& ParserOf(pANTLR3_ARBORETUM arboretum) {
    return *reinterpret_cast<FastParser::Vectors*>(arboretum->vFactory)->parser;
}

ANTLR3_COMMON_TOKEN MakeTokenModel() {
    ANTLR3_COMMON_TOKEN model{};
    antlr3SetTokenAPI(&model);
    model.factoryMade = ANTLR3_TRUE;
    model.textState = ANTLR3_TEXT_CHARP;
    return model;
}

pANTLR3_COMMON_TOKEN NewImaginaryToken(FastParser& parser, ANTLR3_UINT32 type) {
    static const ANTLR3_COMMON_TOKEN model = MakeTokenModel();
    auto* token = static_cast<pANTLR3_COMMON_TOKEN>(parser.memory.Take(sizeof model));
    *token = model;
    token->type = type;
    token->strFactory = parser.parser.tstream->tokenSource->strFactory;
    token->tokText.chars = reinterpret_cast<pANTLR3_UCHAR>(parser.state->tokenNames[type]);
    return token;
}

// -------------------------------------------------------------------------------------------------------------- lists

ANTLR3_UINT32 CountOf(Tree tree) { return tree->children == nullptr ? 0 : tree->children->count; }
Tree ChildOf(Tree tree, ANTLR3_UINT32 index) { return static_cast<Tree>(tree->children->elements[index].element); }

void Append(FastParser& parser, Tree tree, Tree child) {
    if (tree->children == nullptr) tree->children = NewVector(parser);
    AddElement(tree->children, child, nullptr);
}

// What a list that has lists among its elements is marked with.
constexpr ANTLR3_MARKER kHasLists = 1;

void AppendElements(FastParser& parser, Tree tree, const ANTLR3_VECTOR& added) {
    if (tree->children == nullptr) tree->children = NewVector(parser);
    auto& vector = *tree->children;
    MakeRoom(ChildrenOf(&vector), added.count);
    std::memcpy(vector.elements + vector.count, added.elements, added.count * sizeof(ANTLR3_VECTOR_ELEMENT));
    vector.count += added.count;
}

// Lists can lie in lists as deep as the text nests: each keeps the way back and the place reached in itself.
void AppendAllOf(FastParser& parser, Tree tree, Tree list) {
    if (list->savedIndex != kHasLists) {
        if (list->children != nullptr) AppendElements(parser, tree, *list->children);
        return;
    }
    qzNodeOf(list)->parent = nullptr;
    qzNodeOf(list)->childIndex = 0;
    for (Node open = qzNodeOf(list); open != nullptr;) {
        const auto place = static_cast<ANTLR3_UINT32>(open->childIndex);
        if (place == CountOf(&open->baseTree)) {
            open = open->parent;
            continue;
        }
        ++open->childIndex;
        const Tree child = ChildOf(&open->baseTree, place);
        if (!qzIsList(child)) {
            Append(parser, tree, child);
            continue;
        }
        qzNodeOf(child)->parent = open;
        qzNodeOf(child)->childIndex = 0;
        open = qzNodeOf(child);
    }
}

void AddListToList(FastParser& parser, Tree list, Tree added) {
    if (CountOf(added) > kFew) {
        list->savedIndex = kHasLists;
        return Append(parser, list, added);
    }
    if (added->savedIndex == kHasLists) list->savedIndex = kHasLists;
    for (ANTLR3_UINT32 i = 0; i < CountOf(added); ++i) Append(parser, list, ChildOf(added, i));
}

Tree ListOf(FastParser& parser, Tree only) {
    const Tree list = &NewNode(parser, nullptr)->baseTree;
    Append(parser, list, only);
    return list;
}

// The node that a new root in a list of its own stands for; null where there isn't exactly one.
Tree OnlyNodeOf(Tree tree) {
    while (qzIsList(tree)) {
        if (CountOf(tree) != 1) return nullptr;
        tree = ChildOf(tree, 0);
    }
    return tree;
}

}  // namespace

void qz::InitTrees(FastParser& parser) {
    parser.adaptor.super = &parser;
    parser.adaptor.free = [](pANTLR3_BASE_TREE_ADAPTOR) {};
    parser.vectors.parser = &parser;
    parser.vectors.factory.close = [](pANTLR3_VECTOR_FACTORY) {};
    parser.vectors.factory.newVector = [](pANTLR3_VECTOR_FACTORY factory) {
        return NewVector(*reinterpret_cast<FastParser::Vectors*>(factory)->parser);
    };
    parser.arboretum.vFactory = &parser.vectors.factory;
    parser.arboretum.newTree = [](pANTLR3_ARBORETUM arboretum) {
        return &NewNode(ParserOf(arboretum), nullptr)->baseTree;
    };
    parser.arboretum.newFromToken = [](pANTLR3_ARBORETUM arboretum, pANTLR3_COMMON_TOKEN token) {
        return &NewNode(ParserOf(arboretum), token)->baseTree;
    };
    parser.arboretum.newFromTree = [](pANTLR3_ARBORETUM arboretum, Node tree) {
        return &NewNode(ParserOf(arboretum), tree->token)->baseTree;
    };
}

pANTLR3_BASE_TREE_ADAPTOR qzTreeAdaptorOf(pANTLR3_PARSER parser) { return &FastParser::Of(parser).adaptor; }
pANTLR3_VECTOR_FACTORY qzVectorFactoryOf(pANTLR3_PARSER parser) { return &FastParser::Of(parser).vectors.factory; }

pANTLR3_BASE_TREE qzTokenNode(QZFastParser* parser, pANTLR3_COMMON_TOKEN token) {
    return &NewNode(FastParser::Of(parser), token)->baseTree;
}

pANTLR3_BASE_TREE qzImaginaryNode(QZFastParser* fast, ANTLR3_UINT32 type) {
    auto& parser = FastParser::Of(fast);
    if (parser.imaginary == nullptr) {
        const std::size_t size = parser.tokenTypes * sizeof(void*);
        parser.imaginary = static_cast<pANTLR3_COMMON_TOKEN*>(std::memset(parser.memory.Take(size), 0, size));
    }
    auto& token = parser.imaginary[type];
    if (token == nullptr) token = NewImaginaryToken(parser, type);
    return &NewNode(parser, token)->baseTree;
}

pANTLR3_BASE_TREE qzJoin(QZFastParser* fast, Tree tree, Tree added) {
    auto& parser = FastParser::Of(fast);
    if (qzIsOne(tree)) tree = ListOf(parser, qzOnly(tree));
    if (!qzIsList(added)) {
        Append(parser, tree, added);
    } else if (qzIsList(tree)) {
        AddListToList(parser, tree, added);
    } else {
        AppendAllOf(parser, tree, added);
    }
    return tree;
}

pANTLR3_BASE_TREE qzBecomeRoot(QZFastParser* fast, Tree newRoot, Tree tree) {
    if (newRoot == nullptr) return tree;
    const Tree root = OnlyNodeOf(newRoot);
    if (root == nullptr) return newRoot;
    if (tree == nullptr) return root;
    return qzJoin(fast, root, qzResult(tree));
}

pANTLR3_BASE_TREE qzWholeTree(pANTLR3_BASE_TREE_ADAPTOR adaptor, pANTLR3_BASE_TREE root) {
    if (root == nullptr || !qzIsList(root)) return root;
    auto& parser = *static_cast<FastParser*>(adaptor->super);
    const Tree whole = &NewNode(parser, nullptr)->baseTree;
    AppendAllOf(parser, whole, root);
    return whole;
}
