// How tokens and nodes are written: TYPE:"text".
#pragma once

#include <string>
#include <string_view>

#include "QZParserSQL/dialect/QZRecognizers.h"

namespace qzsql {

/// Appends "text" in quotes; in it \ " newline, return and tab are written \\ \" \n \r \t.
void AppendQuoted(std::u16string& out, std::u16string_view text);

/// Appends TYPE:"text".
void AppendToken(std::u16string& out, std::string_view type, std::u16string_view text);

/// The type of a node: nil, EOF, ERROR or the name of its token type.
std::string_view TypeName(const QZGrammar& grammar, const QZNode* node);

/// Appends the node without its children: its type, and for a token its text.
void AppendNode(std::u16string& out, const QZGrammar& grammar, const QZNode* node);

}  // namespace qzsql
