// A strict reader of JSON values that keeps what a general library can't: lone surrogates, and values as they are
// written. It reads over nesting of any depth without recursion.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace qzsql {

/// Moves through a text that must outlive it. Each step skips blanks first, and throws std::runtime_error that names
/// the byte (from 1) where it meets something else than asked for.
class JsonReader {
 public:
    explicit JsonReader(std::string_view text) : text_(text) {}

    bool AtEnd();
    /// True, and moves on, where this character is next.
    bool Take(char character);
    void Expect(char character);
    /// The end of an object or array that a comma could have gone on.
    void ExpectEnd(char closer);
    bool IsString();
    std::u16string ReadString();
    /// A string and the colon behind it.
    std::u16string ReadKey();
    /// Any value; returns its text.
    std::string_view ReadRaw();

    [[noreturn]] void Fail(std::string_view what) const;

 private:
    char Peek() const { return at_ < text_.size() ? text_[at_] : '\0'; }
    bool IsPlain() const;
    void SkipBlanks();

    bool ReadValueOrOpening(std::string& closers);
    void ReadClosings(std::string& closers);
    void ReadScalar();
    bool TakeWord(std::string_view word);
    void ReadNumber();
    void ReadDigits();
    void ReadPlain(std::u16string& text);
    void ReadEscape(std::u16string& text);
    char16_t ReadUnit();
    unsigned ReadHexDigit();

    std::string_view text_;
    std::size_t at_ = 0;
};

}  // namespace qzsql
