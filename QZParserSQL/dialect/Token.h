// Reading the runtime's tokens.
#pragma once

#include <antlr3.h>

#include "QZParserSQL/dialect/QZRecognizers.h"

namespace qz {

/// Marks a token that the parser put in (user1).
constexpr ANTLR3_UINT32 kPutIn = 1;

QZToken Describe(const ANTLR3_COMMON_TOKEN& token);

}  // namespace qz
