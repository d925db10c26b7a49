#include "QZParserSQL/platform/TextConversion.h"

#include <unicode/ucnv.h>

#include <memory>
#include <string>
#include <utility>

namespace {

struct CodePage {
    unsigned number;
    const char* converter;
    const char* substitute;
};

constexpr CodePage kCodePages[] = {
    {1252, "ibm-5348_P100-1997", "?"},
    {65001, "UTF-8", "\xEF\xBF\xBD"},
};

struct Close {
    void operator()(UConverter* converter) const { ucnv_close(converter); }
};
using Converter = std::unique_ptr<UConverter, Close>;

Converter Open(const CodePage& page) {
    UErrorCode status = U_ZERO_ERROR;
    Converter converter(ucnv_open(page.converter, &status));
    const auto size = static_cast<int8_t>(std::char_traits<char>::length(page.substitute));
    ucnv_setSubstChars(converter.get(), page.substitute, size, &status);
    return U_SUCCESS(status) ? std::move(converter) : nullptr;
}

Converter Open(unsigned codePage) {
    for (const CodePage& page : kCodePages) {
        if (page.number == codePage) return Open(page);
    }
    return nullptr;
}

// Runs one of ICU's conversions, which share their form.
template <class From, class To, class Conversion>
int Convert(unsigned codePage, const From* text, int length, To* out, int outSize, Conversion conversion) {
    if (text == nullptr || length < -1 || outSize < 0) return 0;
    const Converter converter = Open(codePage);
    if (converter == nullptr) return 0;
    if (length == -1) length = static_cast<int>(std::char_traits<From>::length(text)) + 1;
    UErrorCode status = U_ZERO_ERROR;
    const int count = conversion(converter.get(), out, outSize, text, length, &status);
    const bool measured = outSize == 0 && status == U_BUFFER_OVERFLOW_ERROR;
    return U_SUCCESS(status) || measured ? count : 0;
}

}  // namespace

int WideCharToMultiByte(unsigned codePage, const char16_t* wide, int wideLength, char* out, int outSize) {
    return Convert(codePage, wide, wideLength, out, outSize, ucnv_fromUChars);
}

int MultiByteToWideChar(unsigned codePage, const char* bytes, int length, char16_t* out, int outSize) {
    return Convert(codePage, bytes, length, out, outSize, ucnv_toUChars);
}
