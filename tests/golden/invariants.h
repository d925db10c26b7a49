// What holds for the tree of any text.
#pragma once

#include "tests/golden/Dialect.h"
#include "tests/support/Recognition.h"

/// Each token of the default channel is in the tree, once and in the order of the text, or is one that rules drop.
/// Where the parser reported an error, tokens may be lost as well.
void ExpectTokensInTree(const Dialect& dialect, const Recognition& recognition);

/// White space has no say: with each unit of it exchanged for another one the tree is the same.
void ExpectSameTreeWithOtherSpace(const Dialect& dialect, const Recognition& recognition);

/// A second run gives the same tree and the same reports.
void ExpectSameInSecondRun(const Recognition& recognition);

/// Reports tell places of the text or its end.
void ExpectReportsInText(const Recognition& recognition);

/// The facade's view, where there is one, shows the types, texts and child counts of the nodes.
void ExpectSameThroughView(const Dialect& dialect, const Recognition& recognition);
