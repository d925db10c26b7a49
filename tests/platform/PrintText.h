// How a failing test shows a text.
#pragma once

#include <ostream>

#include "QZParserSQL/platform/CString.h"

inline void PrintTo(const CString& text, std::ostream* out) {
    *out << '"' << text.ToUtf8() << "\" (" << text.GetLength() << " units)";
}
