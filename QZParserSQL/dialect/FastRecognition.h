// A fast parser with what it owns: the runtime's parser first, so that the runtime's functions find it.
#pragma once

#include <cstddef>

#include "QZParserSQL/dialect/Memory.h"
#include "QZParserSQL/dialect/Pool.h"
#include "QZParserSQL/dialect/fast_parser.h"

namespace qz {

struct FastParser;

/// The tokens of the stream's channel in the order of the text, room for the end being left.
struct TokenList {
    ANTLR3_UINT32* types;
    pANTLR3_COMMON_TOKEN* tokens;
    ANTLR3_UINT32 count;

    void Add(pANTLR3_COMMON_TOKEN token) {
        types[count] = token->type;
        tokens[count++] = token;
    }
};

/// Whether the tokens can be listed as the lexer makes them, and how many these are at most: each has a character.
bool IsToBeFilled(const ANTLR3_COMMON_TOKEN_STREAM& stream);
std::size_t MostTokens(const ANTLR3_COMMON_TOKEN_STREAM& stream);
void FillStream(pANTLR3_COMMON_TOKEN_STREAM stream, TokenList& list);

/// The children of a node, which grow out of the memory of the parser. Up to two of them stand in one line of the
/// cache with what is asked of them; how many there is room for is looked up only where they have grown.
struct Children {
    FastParser* parser;
    bool hasGrown;
    ANTLR3_VECTOR vector;
};

struct FastParser : QZFastParser {
    struct Vectors {
        ANTLR3_VECTOR_FACTORY factory;
        FastParser* parser;
    };

    static FastParser& Of(void* parser) { return *static_cast<FastParser*>(static_cast<QZFastParser*>(parser)); }

    Memory memory;
    Pool<ANTLR3_COMMON_TREE, offsetof(ANTLR3_COMMON_TREE, token), 64> nodes;
    Pool<Children, 0, 64> children;
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

/// Room for so many elements, that the runtime's vector frees. Throws std::bad_alloc, where its own growth would crash.
void Reserve(ANTLR3_VECTOR& vector, std::size_t count);

/// Whether a recognizer that was just made has all its parts. If not, it can be freed.
bool IsWhole(ANTLR3_RECOGNIZER_SHARED_STATE& state);

/// Prepares what a parser makes nodes with.
void InitTrees(FastParser& parser);

}  // namespace qz
