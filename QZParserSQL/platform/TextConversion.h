// Conversions between 16-bit text and the bytes of a code page: 65001 (UTF-8) and 1252 (Windows Latin 1).
#pragma once

#include "QZParserSQL/platform/Export.h"

/// Encodes `wideLength` UTF-16 code units at `wide` into at most `outSize` bytes at `out`. The length -1 takes the
/// units up to the first NUL and that NUL with them; otherwise no terminator is counted in. What the code page
/// lacks becomes "?", a lone surrogate in UTF-8 U+FFFD.
///
/// Returns the number of bytes written; with `outSize` 0 nothing is written and the number needed is returned. Returns
/// 0 on failure: an unknown code page, a null text, a length below -1, a buffer too small (its content is then
/// undefined). Safe for concurrent use.
QZ_API int WideCharToMultiByte(unsigned codePage, const char16_t* wide, int wideLength, char* out, int outSize);

/// The inverse: decodes `length` bytes at `bytes` into at most `outSize` UTF-16 code units at `out`, with the same
/// rules for lengths, results and failures, counted in units. Each maximal subpart of an ill-formed sequence becomes
/// U+FFFD; a byte-order mark stays.
QZ_API int MultiByteToWideChar(unsigned codePage, const char* bytes, int length, char16_t* out, int outSize);
