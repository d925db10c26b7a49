// Any text as a FROM list of MS SQL, through the exported constructors.
#include <cstdlib>

#include "fuzz/FuzzInput.h"
#include "tests/support/Outline.h"
#include "tests/support/Recognition.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Recognition recognition(std::u16string(TextOf(BytesOf(data, size)).View()), QZGrammarMSSQLfrom());
    if (recognition.Root() == nullptr) std::abort();
    for (const QZToken& token : recognition.Tokens())
        if (token.position.offset + token.text.size() > recognition.Text().size()) std::abort();
    if (Outline(recognition.Grammar(), recognition.Root()).empty()) std::abort();
    return 0;
}
