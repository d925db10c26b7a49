// Any text as a FROM list of MS SQL, through the exported constructors.
#include <cstdlib>

#include "fuzz/FuzzText.h"
#include "tests/support/Recognition.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const CString text = TextOf({reinterpret_cast<const char*>(data), size});
    const Recognition recognition(std::u16string(text.View()), QZGrammarMSSQLfrom());
    if (recognition.Root() == nullptr) std::abort();
    for (const QZToken& token : recognition.Tokens())
        if (token.position.offset + token.text.size() > text.View().size()) std::abort();
    return 0;
}
