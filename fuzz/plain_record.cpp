#include "fuzz/plain_record.h"

#include "tests/support/Record.h"

std::string PlainRecordOf(const char* grammar, const std::u16string& text) {
    return RecordOf(*GrammarOf(grammar), text);
}
