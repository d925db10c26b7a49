// What the plain recognizers make of a text and what the fast ones make of it. The first byte chooses the grammar.
#include <cstdlib>
#include <iostream>
#include <string>

#include "fuzz/FuzzInput.h"
#include "fuzz/plain_record.h"
#include "tests/support/Record.h"

namespace {

constexpr const char* kGrammars[] = {"MSAccessSQL_v3", "MSSQL", "MSSQLfrom", "MySQLSelect", "Oracle"};

/// How deep a text may be nested differs between the forms, and what follows from the end of the stack with it.
bool IsNestedTooDeep(const std::string& record) { return record.find("nested too deep") != std::string::npos; }

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(BytesOf(data, size));
    const char* const grammar = kGrammars[input.Below(std::size(kGrammars))];
    const std::u16string text(TextOf(input.Rest()).View());
    const std::string plain = PlainRecordOf(grammar, text);
    const std::string fast = RecordOf(*GrammarOf(grammar), text);
    if (plain == fast || IsNestedTooDeep(plain) || IsNestedTooDeep(fast)) return 0;
    std::cerr << grammar << ", plain:\n" << plain << "\nfast:\n" << fast << "\n";
    std::abort();
}
