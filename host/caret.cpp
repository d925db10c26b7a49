#include "host/caret.h"

#include <unicode/uchar.h>

#include <cstdint>

#include "host/unicode.h"

namespace qzsql {

namespace {

constexpr int kBefore = 100;
constexpr int kBehind = 60;
constexpr int kTab = 8;
constexpr std::string_view kIndent = "    ";
constexpr std::string_view kEllipsis = "…";

bool IsWide(char32_t character) {
    const auto width = u_getIntPropertyValue(static_cast<UChar32>(character), UCHAR_EAST_ASIAN_WIDTH);
    return width == U_EA_FULLWIDTH || width == U_EA_WIDE;
}

bool HasCategory(char32_t character, std::uint32_t mask) {
    return (U_MASK(u_charType(static_cast<UChar32>(character))) & mask) != 0;
}

int Columns(char32_t character) {
    if (character == '\t') return kTab;
    return HasCategory(character, U_GC_MN_MASK | U_GC_ME_MASK) ? 0 : IsWide(character) ? 2 : 1;
}

/// What a character takes of the room that there is. Combining ones count too, or the line could grow without end.
int Cost(char32_t character) { return Columns(character) == 0 ? 1 : Columns(character); }

bool EndsLine(std::u16string_view text, std::size_t at) {
    return text[at] == u'\n' || (text[at] == u'\r' && (at + 1 == text.size() || text[at + 1] == u'\n'));
}

std::size_t BeginOfLine(std::u16string_view text, std::size_t offset) {
    int room = kBefore;
    while (offset > 0 && text[offset - 1] != u'\n' && room > 0) {
        offset = BeginOfCharacter(text, offset);
        auto behind = offset;
        room -= Cost(NextCharacter(text, behind));
    }
    return offset;
}

std::size_t EndOfLine(std::u16string_view text, std::size_t offset) {
    int room = kBehind;
    while (offset < text.size() && !EndsLine(text, offset) && room > 0) {
        room -= Cost(NextCharacter(text, offset));
    }
    return offset;
}

/// Nothing that a terminal would act on, and one column for what has no picture of its own.
char32_t Visible(char32_t character) {
    if (character == '\t') return character;
    if (character < 0x20) return 0x2400 + character;
    return HasCategory(character, U_GC_C_MASK) ? 0xFFFD : character;
}

/// The part of a line as it is shown, and blanks of the same width.
struct Shown {
    std::u16string text;
    std::string blanks;
};

Shown Show(std::u16string_view part) {
    Shown shown;
    for (std::size_t at = 0; at < part.size();) {
        const auto character = Visible(NextCharacter(part, at));
        AppendCharacter(shown.text, character);
        shown.blanks += character == '\t' ? "\t" : std::string(static_cast<std::size_t>(Columns(character)), ' ');
    }
    return shown;
}

}  // namespace

std::string CaretLines(std::u16string_view text, std::size_t offset) {
    const auto begin = BeginOfLine(text, offset);
    const auto end = EndOfLine(text, offset);
    const bool cutBefore = begin > 0 && text[begin - 1] != u'\n';
    const bool cutBehind = end < text.size() && !EndsLine(text, end);
    const auto before = Show(text.substr(begin, offset - begin));
    const auto behind = Show(text.substr(offset, end - offset));
    std::string lines(kIndent);
    if (cutBefore) lines += kEllipsis;
    AppendUtf8(lines, before.text + behind.text);
    if (cutBehind) lines += kEllipsis;
    lines.append("\n").append(kIndent).append(cutBefore ? " " : "").append(before.blanks).append("^\n");
    return lines;
}

}  // namespace qzsql
