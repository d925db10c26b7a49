#include "QZParserSQL/catalog/Encodings.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <mutex>
#include <string>

#include "QZParserSQL/catalog/EncodingTables.h"
#include "QZParserSQL/platform/TextConversion.h"

namespace qz {
namespace {

constexpr char kUnmapped = '?';

// Above this many characters UTF-8 is measured before memory is taken for it.
constexpr std::size_t kMeasuredLength = 20000000;
constexpr std::size_t kMostBytesPerCharacter = 4;

// The byte of each 16-bit character.
using ReverseTable = std::array<char, 65536>;

// Of bytes with the same character the lowest stands for it, so that ASCII stays ASCII.
std::shared_ptr<const ReverseTable> BuildReverseTable(int encoding) {
    const CodePoints& forward = ForwardTable(encoding);
    const auto reverse = std::make_shared<ReverseTable>();
    reverse->fill(kUnmapped);
    for (std::size_t byte = forward.size(); byte-- > 0;) {
        if (forward[byte] != 0) (*reverse)[forward[byte]] = static_cast<char>(byte);
    }
    return reverse;
}

// The tables used last, filled in turn. A table that gives way lives on while a conversion uses it.
class ReverseTables {
 public:
    std::shared_ptr<const ReverseTable> Get(int encoding) {
        const std::lock_guard lock(m_Lock);
        for (const Slot& slot : m_Slots) {
            if (slot.table != nullptr && slot.encoding == encoding) return slot.table;
        }
        Slot& next = m_Slots[m_Built % m_Slots.size()];
        next = {encoding, BuildReverseTable(encoding)};
        ++m_Built;
        return next.table;
    }

    std::size_t Built() {
        const std::lock_guard lock(m_Lock);
        return m_Built;
    }

 private:
    struct Slot {
        int encoding = 0;
        std::shared_ptr<const ReverseTable> table;
    };

    std::mutex m_Lock;
    std::array<Slot, 5> m_Slots;
    std::size_t m_Built = 0;
};

ReverseTables& SharedReverseTables() {
    static ReverseTables tables;
    return tables;
}

OwnedText NewText(std::size_t length) {
    OwnedText text(new char[length + 2]);
    text[length] = text[length + 1] = '\0';
    return text;
}

std::u16string_view Units(std::string_view bytes) {
    return {reinterpret_cast<const char16_t*>(bytes.data()), bytes.size() / sizeof(char16_t)};
}

struct Sequence {
    char16_t unit = 0;
    std::size_t length = 0;
};

std::size_t SequenceLength(unsigned lead) {
    if (lead < 0x80) return 1;
    if (lead < 0xC0 || lead > 247) return 0;
    return lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
}

// The sequence at the start of a text that isn't empty; of length 0 where its first byte starts none.
Sequence FirstSequence(std::string_view text) {
    const auto lead = static_cast<unsigned char>(text[0]);
    const std::size_t length = SequenceLength(lead);
    if (length == 1) return {lead, 1};
    if (length == 0 || length > text.size()) return {};
    unsigned point = lead & (0x7Fu >> length);
    for (const char byte : text.substr(1, length - 1)) {
        const auto following = static_cast<unsigned char>(byte);
        if ((following & 0xC0u) != 0x80) return {};
        point = point << 6 | (following & 0x3Fu);
    }
    return {static_cast<char16_t>(point), length};
}

std::u16string DecodeUtf8(std::string_view text, bool repeatAtStrayBytes) {
    std::u16string units;
    units.reserve(text.size());
    while (!text.empty()) {
        const Sequence sequence = FirstSequence(text);
        if (sequence.length > 0) {
            units += sequence.unit;
        } else if (repeatAtStrayBytes && !units.empty()) {
            units += units.back();
        }
        text.remove_prefix(std::max<std::size_t>(sequence.length, 1));
    }
    return units;
}

// The active code page, byte by byte.
CodePoints DecodeActiveCodePage() {
    constexpr unsigned kActiveCodePage = 1252;
    std::array<char, 256> bytes;
    for (std::size_t byte = 0; byte < bytes.size(); ++byte) bytes[byte] = static_cast<char>(byte);
    std::array<char16_t, 256> units{};
    MultiByteToWideChar(kActiveCodePage, bytes.data(), static_cast<int>(bytes.size()), units.data(),
                        static_cast<int>(units.size()));
    CodePoints points;
    std::copy(units.begin(), units.end(), points.begin());
    return points;
}

const CodePoints& ActiveCodePage() {
    static const CodePoints points = DecodeActiveCodePage();
    return points;
}

std::u16string DecodeSet(std::string_view text, const CodePoints& set, char16_t unmapped) {
    std::u16string units(text.size(), u'\0');
    std::transform(text.begin(), text.end(), units.begin(), [&](char byte) {
        const char32_t point = set[static_cast<unsigned char>(byte)];
        return point == 0 ? unmapped : static_cast<char16_t>(point);
    });
    return units;
}

std::u16string DecodeSet(std::string_view text, int from, int to) {
    if (to != kUtf16) return DecodeSet(text, ForwardTable(from), kUnmapped);
    return DecodeSet(text, from == kIso8859_1 ? ActiveCodePage() : ForwardTable(from), u'\0');
}

std::u16string Decode(std::string_view text, int from, int to) {
    if (from == kUtf16) return std::u16string(Units(text));
    return from == kUtf8 ? DecodeUtf8(text, to != kUtf16) : DecodeSet(text, from, to);
}

std::size_t Utf8Length(char16_t unit) {
    if (unit < 128) return 1;
    if (unit > 128 && unit < 2048) return 2;
    return unit > 2048 ? 3 : 0;
}

std::size_t Utf8Length(std::u16string_view units) {
    std::size_t length = 0;
    for (const char16_t unit : units) length += Utf8Length(unit);
    return length;
}

char* PutUtf8(char16_t unit, char* out) {
    const auto put = [&out](unsigned byte) { *out++ = static_cast<char>(byte); };
    const auto following = [&put](unsigned bits) { put(0x80 | (bits & 0x3F)); };
    switch (Utf8Length(unit)) {
        case 1:
            put(unit);
            break;
        case 2:
            put(0xC0u | unit >> 6);
            following(unit);
            break;
        case 3:
            put(0xE0u | unit >> 12);
            following(unit >> 6);
            following(unit);
            break;
        default:
            break;
    }
    return out;
}

OwnedText EncodeUtf8(std::u16string_view units) {
    OwnedText text =
        NewText(units.size() > kMeasuredLength ? Utf8Length(units) : units.size() * kMostBytesPerCharacter);
    char* end = text.get();
    for (const char16_t unit : units) end = PutUtf8(unit, end);
    end[0] = end[1] = '\0';
    return text;
}

OwnedText EncodeSet(std::u16string_view units, int encoding) {
    const auto table = SharedReverseTables().Get(encoding);
    OwnedText text = NewText(units.size());
    std::transform(units.begin(), units.end(), text.get(), [&](char16_t unit) { return (*table)[unit]; });
    return text;
}

OwnedText Encode(std::u16string_view units, int to) {
    if (to == kUtf16) return CopyText(units.data(), units.size() * sizeof(char16_t));
    if (to == kUtf8) return EncodeUtf8(units);
    return EncodeSet(units, to);
}

}  // namespace

OwnedText CopyText(const void* bytes, std::size_t length) {
    OwnedText copy = NewText(length);
    if (length > 0) std::memcpy(copy.get(), bytes, length);
    return copy;
}

std::string_view TextOf(std::string_view bytes, int encoding) {
    if (encoding != kUtf16) return bytes.substr(0, bytes.find('\0'));
    const std::u16string_view units = Units(bytes);
    return bytes.substr(0, std::min(units.find(u'\0'), units.size()) * sizeof(char16_t));
}

OwnedText ConvertText(std::string_view bytes, int from, int to) {
    const std::string_view text = TextOf(bytes, from);
    if (from == to) return CopyText(text.data(), text.size());
    return Encode(Decode(text, from, to), to);
}

std::size_t ReverseTablesBuilt() { return SharedReverseTables().Built(); }

}  // namespace qz
