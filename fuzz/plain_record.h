// The plain recognizers, from a shared library that shows this alone: one program can't hold the names of both forms.
#pragma once

#include <string>

/// RecordOf (tests/support/Record.h) by the plain recognizer of a grammar.
std::string PlainRecordOf(const char* grammar, const std::u16string& text);
