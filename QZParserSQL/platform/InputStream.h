// The 16-bit input stream of the recognizers: it reads a text in place, one character being one UTF-16 code unit.
#pragma once

#include <cstdint>

#include "QZParserSQL/platform/Export.h"

struct ANTLR3_INPUT_STREAM_struct;

/// Makes an input stream over `size` UTF-16 code units at `text`, without copying them. Surrogates are two characters,
/// NUL is one like any other. The text must stay alive and unchanged until the stream is closed.
/// `name` is the stream's name or null; it is not kept. Returns null where memory fails or `size` is 2^31 or more.
/// The caller closes the stream (QZCloseInput). One stream belongs to one thread.
extern "C" QZ_API ANTLR3_INPUT_STREAM_struct* antlr3NewUCS2StringInPlaceStream(const char16_t* text, std::uint32_t size,
                                                                               const char16_t* name);
