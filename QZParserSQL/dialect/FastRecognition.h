// A fast parser with what it owns: the runtime's parser first, so that the runtime's functions find it.
#pragma once

#include "QZParserSQL/dialect/Memory.h"
#include "QZParserSQL/dialect/Pool.h"
#include "QZParserSQL/dialect/fast_parser.h"

namespace qz {

struct FastParser;

/// The children of a node, which grow out of the memory of the parser.
struct Children {
    FastParser* parser;
    ANTLR3_VECTOR vector;
};

struct FastParser : QZFastParser {
    struct Vectors {
        ANTLR3_VECTOR_FACTORY factory;
        FastParser* parser;
    };

    static FastParser& Of(void* parser) { return *static_cast<FastParser*>(static_cast<QZFastParser*>(parser)); }

    Memory memory;
    Pool<ANTLR3_COMMON_TREE> nodes;
    Pool<Children> children;
    ANTLR3_BASE_TREE_ADAPTOR_struct adaptor{};
    ANTLR3_ARBORETUM arboretum{};
    Vectors vectors{};
    pANTLR3_COMMON_TOKEN* imaginary = nullptr;  // one token for each type, made when it is first needed
    ANTLR3_UINT32 tokenTypes = 0;
    ANTLR3_BITWORD* unions = nullptr;  // of the first 1, 2, 3... of the runtime's follow sets, as far as they are known
    ANTLR3_UINT32 unionCount = 0;
    ANTLR3_UINT32 unionRoom = 0;
    void (*freeParser)(pANTLR3_PARSER parser) = nullptr;
};

/// Prepares what a parser makes nodes with.
void InitTrees(FastParser& parser);

}  // namespace qz
