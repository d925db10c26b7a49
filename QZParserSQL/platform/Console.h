// The library's lines to the console: one stream for its output, one for the recognizers' messages. Unless a host puts
// a sink of its own there, they are written as UTF-8 bytes to standard output and standard error, each line in one
// piece; the C streams are never made wide.
#pragma once

#include <string_view>

#include "QZParserSQL/platform/CString.h"
#include "QZParserSQL/platform/Export.h"

/// Takes one line, without its line end, which is valid during the call only. `context` is what was set with the sink.
/// The calls for one stream come one at a time, on whatever thread writes the line.
using QZConsoleSink = void (*)(void* context, std::string_view utf8Line);

/// Sends the lines of the output, or of the recognizers' messages, to a sink; null restores the default. The context is
/// not owned. When the call returns, the former sink isn't running and won't be called again, unless the call came from
/// within it. Safe for concurrent use, with itself and with writing.
QZ_API void QZSetConsoleSink(QZConsoleSink sink, void* context);
QZ_API void QZSetErrorSink(QZConsoleSink sink, void* context);

/// Writes one line of output. Lone surrogates become U+FFFD. Safe for concurrent use.
QZ_API void QZConsoleWriteLine(const CString& line);
/// Writes one message, given in UTF-8. Safe for concurrent use.
QZ_API void QZErrorWriteLine(std::string_view utf8);
