// Trees as text. A node is written `nil` (the nil root), `EOF`, `ERROR` (an error node), by its name alone where the
// grammar made it (`SELECT_LIST`), and as `IDENTIFICATOR:"a"` or `'count':"count"` where it is a token of the text.
#pragma once

#include <string>
#include <vector>

#include "QZParserSQL/dialect/QZRecognizers.h"

/// A node and its depth below the root.
struct TreeLine {
    const QZNode* node;
    std::size_t depth;
};

/// All nodes, parents before their children.
std::vector<TreeLine> TreeLines(const QZNode* root);

std::string NodeLabel(const QZGrammar& grammar, const QZNode* node);

/// One node a line, two blanks a level.
std::string Outline(const QZGrammar& grammar, const QZNode* root);

/// One line: `(NODE child child ...)`, a node without children without parentheses.
std::string Sexpr(const QZGrammar& grammar, const QZNode* root);
