// What the recognizers make of a text, written out, for two builds of them to be compared.
#pragma once

#include <string>
#include <string_view>

#include "QZParserSQL/dialect/QZRecognizers.h"

/// By its name, null where there is none.
const QZGrammar* GrammarOf(std::string_view name);

/// Tree, tokens, counts of errors and reports. The text is recognized twice: with the reports taken by a reporter, and
/// by the console.
std::string RecordOf(const QZGrammar& grammar, const std::u16string& text);
