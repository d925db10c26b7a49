// The runtime's own 16-bit streams join surrogates and read past the end, so its plain stream gets look-ahead, consume,
// seek and size of our own. Positions are addresses, as everywhere in the runtime.
#include "QZParserSQL/platform/InputStream.h"

#include <antlr3.h>

#include "QZParserSQL/platform/Headroom.h"

namespace {

using Unit = char16_t;

pANTLR3_INPUT_STREAM InputOf(pANTLR3_INT_STREAM stream) { return static_cast<pANTLR3_INPUT_STREAM>(stream->super); }

const Unit* Next(pANTLR3_INPUT_STREAM input) { return static_cast<const Unit*>(input->nextChar); }

const Unit* End(pANTLR3_INPUT_STREAM input) {
    return static_cast<const Unit*>(input->data) + input->sizeBuf / sizeof(Unit);
}

void MoveTo(pANTLR3_INPUT_STREAM input, const Unit* place) { input->nextChar = const_cast<Unit*>(place); }

ANTLR3_UCHAR LookAhead(pANTLR3_INT_STREAM stream, ANTLR3_INT32 distance) {
    const auto input = InputOf(stream);
    const auto index = (Next(input) - static_cast<const Unit*>(input->data)) + (distance > 0 ? distance - 1 : distance);
    if (distance == 0 || index < 0 || index >= End(input) - static_cast<const Unit*>(input->data)) {
        return ANTLR3_CHARSTREAM_EOF;
    }
    return static_cast<const Unit*>(input->data)[index];
}

void Consume(pANTLR3_INT_STREAM stream) {
    const auto input = InputOf(stream);
    const Unit* next = Next(input);
    if (next >= End(input)) return;
    ++input->charPositionInLine;
    if (*next == input->newlineChar) {
        ++input->line;
        input->charPositionInLine = 0;
        input->currentLine = const_cast<Unit*>(next + 1);
    }
    MoveTo(input, next + 1);
}

void Seek(pANTLR3_INT_STREAM stream, ANTLR3_MARKER place) {
    const auto input = InputOf(stream);
    const auto target = reinterpret_cast<const Unit*>(place);
    if (target <= Next(input)) return MoveTo(input, target);
    while (Next(input) < target && Next(input) < End(input)) Consume(stream);
}

}  // namespace

ANTLR3_INPUT_STREAM_struct* antlr3NewUCS2StringInPlaceStream(const char16_t* text, std::uint32_t size,
                                                             const char16_t*) {
    constexpr std::size_t kStreamNeeds = std::size_t{16} * 1024;  // the runtime doesn't look at what it gets
    if (size >= 0x80000000U || !qz::HasHeadroom(kStreamNeeds)) return nullptr;
    static char streamName[] = "query";
    auto* const data = reinterpret_cast<pANTLR3_UINT8>(const_cast<char16_t*>(text));
    const auto input = antlr3StringStreamNew(data, ANTLR3_ENC_UTF16LE, size * static_cast<ANTLR3_UINT32>(sizeof(Unit)),
                                             reinterpret_cast<pANTLR3_UINT8>(streamName));
    if (input == nullptr) return nullptr;
    input->istream->_LA = LookAhead;
    input->istream->consume = Consume;
    input->istream->seek = Seek;
    input->charPositionInLine = 0;
    return input;
}
