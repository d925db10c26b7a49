#include "host/json_reader.h"

#include <fmt/format.h>

#include <algorithm>
#include <stdexcept>

#include "host/unicode.h"

namespace qzsql {

namespace {

bool IsDigit(char character) { return character >= '0' && character <= '9'; }

bool IsControl(char character) { return static_cast<unsigned char>(character) < 0x20; }

}  // namespace

void JsonReader::Fail(std::string_view what) const {
    throw std::runtime_error(fmt::format("byte {}: {}", at_ + 1, what));
}

void JsonReader::SkipBlanks() { at_ = std::min(text_.find_first_not_of(" \t\r\n", at_), text_.size()); }

bool JsonReader::AtEnd() {
    SkipBlanks();
    return at_ == text_.size();
}

bool JsonReader::Take(char character) {
    SkipBlanks();
    if (Peek() != character) return false;
    ++at_;
    return true;
}

void JsonReader::Expect(char character) {
    if (!Take(character)) Fail(fmt::format("'{}' expected", character));
}

void JsonReader::ExpectEnd(char closer) {
    if (!Take(closer)) Fail(fmt::format("',' or '{}' expected", closer));
}

bool JsonReader::IsString() {
    SkipBlanks();
    return Peek() == '"';
}

std::u16string JsonReader::ReadKey() {
    auto key = ReadString();
    Expect(':');
    return key;
}

std::string_view JsonReader::ReadRaw() {
    SkipBlanks();
    const auto begin = at_;
    std::string closers;
    do {
        if (ReadValueOrOpening(closers)) ReadClosings(closers);
    } while (!closers.empty());
    return text_.substr(begin, at_ - begin);
}

/// True behind a whole value; false where an object or array has begun and its first value is next.
bool JsonReader::ReadValueOrOpening(std::string& closers) {
    if (Take('{')) {
        if (Take('}')) return true;
        ReadKey();
        closers += '}';
        return false;
    }
    if (Take('[')) {
        if (Take(']')) return true;
        closers += ']';
        return false;
    }
    ReadScalar();
    return true;
}

/// Behind a value: moves to the next one, or behind all that ends here.
void JsonReader::ReadClosings(std::string& closers) {
    while (!closers.empty()) {
        if (Take(',')) {
            if (closers.back() == '}') ReadKey();
            return;
        }
        ExpectEnd(closers.back());
        closers.pop_back();
    }
}

void JsonReader::ReadScalar() {
    if (IsString()) {
        ReadString();
    } else if (Peek() == '-' || IsDigit(Peek())) {
        ReadNumber();
    } else if (!TakeWord("true") && !TakeWord("false") && !TakeWord("null")) {
        Fail("a value expected");
    }
}

bool JsonReader::TakeWord(std::string_view word) {
    if (text_.substr(at_, word.size()) != word) return false;
    at_ += word.size();
    return true;
}

void JsonReader::ReadNumber() {
    if (Peek() == '-') ++at_;
    if (Peek() == '0') {
        ++at_;
    } else {
        ReadDigits();
    }
    if (Peek() == '.') {
        ++at_;
        ReadDigits();
    }
    if (Peek() == 'e' || Peek() == 'E') {
        ++at_;
        if (Peek() == '+' || Peek() == '-') ++at_;
        ReadDigits();
    }
}

void JsonReader::ReadDigits() {
    if (!IsDigit(Peek())) Fail("a digit expected");
    while (IsDigit(Peek())) ++at_;
}

std::u16string JsonReader::ReadString() {
    Expect('"');
    std::u16string text;
    while (Peek() != '"') {
        ReadPlain(text);
        if (Peek() == '\\') ReadEscape(text);
        if (at_ == text_.size()) Fail("a string is not closed");
        if (IsControl(Peek())) Fail("a control character in a string");
    }
    ++at_;
    return text;
}

bool JsonReader::IsPlain() const { return Peek() != '"' && Peek() != '\\' && !IsControl(Peek()); }

void JsonReader::ReadPlain(std::u16string& text) {
    const auto begin = at_;
    while (IsPlain()) ++at_;
    try {
        text += FromUtf8(text_.substr(begin, at_ - begin));
    } catch (const NotUtf8& error) {
        at_ = begin + error.offset;
        Fail("not UTF-8");
    }
}

void JsonReader::ReadEscape(std::u16string& text) {
    constexpr std::string_view kLetters = "\"\\/bfnrt";
    constexpr std::u16string_view kUnits = u"\"\\/\b\f\n\r\t";
    ++at_;
    const auto letter = kLetters.find(Peek());
    if (Peek() == 'u') {
        ++at_;
        text += ReadUnit();
    } else if (letter != std::string_view::npos) {
        ++at_;
        text += kUnits[letter];
    } else {
        Fail("an unknown escape");
    }
}

char16_t JsonReader::ReadUnit() {
    unsigned unit = 0;
    for (int i = 0; i < 4; ++i) unit = unit * 16 + ReadHexDigit();
    return static_cast<char16_t>(unit);
}

unsigned JsonReader::ReadHexDigit() {
    constexpr std::string_view kDigits = "0123456789abcdef0123456789ABCDEF";
    const auto digit = kDigits.find(Peek());
    if (digit == std::string_view::npos) Fail("a hexadecimal digit expected");
    ++at_;
    return digit % 16;
}

}  // namespace qzsql
