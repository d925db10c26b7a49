// What the golden tests must know of a dialect. Its lists are written by hand from the dialect's rules, never taken
// from the grammar or from what the recognizers gave.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "QZParserSQL/dialect/QZRecognizers.h"
#include "QZParserSQL/front/CQZSQLTree.h"
#include "QZParserSQL/platform/CString.h"

struct Dialect {
    std::string folder;  // in golden/ and corpus/
    const QZGrammar& grammar;
    /// Parses a text through the dialect's facade and hands over the view of the root; empty where there is no facade.
    std::function<void(CString& text, const std::function<void(CQZSQLTree&)>& use)> parse;
    /// Tokens that some rule takes without keeping them as nodes; "a b" for an a that is taken so only where a b
    /// follows.
    std::vector<std::string> droppedTokens;
    /// Words that a blank behind them changes, as it makes a token with them, and no other white space does.
    std::vector<std::string> wordsWithBlank;
    /// Nodes that stand over others: those that the grammar makes, and the tokens that become a root.
    std::vector<std::string> innerKinds;
    /// Names for nodes that no rule makes, or only rules that none calls.
    std::vector<std::string> kindsNeverMade;
    /// What may stand for each other between tokens.
    std::vector<std::u16string> whiteSpace = {u"\n", u"\r\n", u"\t", u"  "};
};

const Dialect& AccessDialect();
const Dialect& MSSQLDialect();
const Dialect& MSSQLFromDialect();
const Dialect& MySQLDialect();
const Dialect& OracleDialect();

std::vector<const Dialect*> AllDialects();
