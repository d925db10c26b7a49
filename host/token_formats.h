// The ways to show tokens.
#pragma once

#include <string>
#include <vector>

#include "QZParserSQL/dialect/QZRecognizers.h"

namespace qzsql {

/// TYPE:"text", and " @hidden" behind a hidden token.
std::u16string TokenLine(const QZGrammar& grammar, const QZToken& token);

/// A line each.
std::string TokensAsText(const QZGrammar& grammar, const std::vector<QZToken>& tokens);
/// An array on one line.
std::string TokensAsJson(const QZGrammar& grammar, const std::vector<QZToken>& tokens);

}  // namespace qzsql
