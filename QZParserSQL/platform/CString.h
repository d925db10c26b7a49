// The one text type: 16-bit units on every system, so that a text is handed to the recognizers in place.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "QZParserSQL/platform/Export.h"

/// A text of UTF-16 code units. It holds any units, lone surrogates and NUL included, and owns them. Indexes, counts
/// and lengths are in units; conversions to and from bytes happen only by name. One object belongs to one thread at a
/// time. Arguments that are views may look into the text itself.
class QZ_API CString {
 public:
    CString() = default;
    /// The units up to the first NUL; null gives an empty text.
    CString(const char16_t* text);      // NOLINT(google-explicit-constructor)
    CString(std::u16string_view text);  // NOLINT(google-explicit-constructor)
    CString(std::u16string text);       // NOLINT(google-explicit-constructor)
    /// `count` times the unit; none for a negative count.
    CString(char16_t unit, int count);
    CString(int) = delete;
    CString(int, int) = delete;

    /// Decodes UTF-8. Each maximal subpart of an ill-formed sequence becomes one U+FFFD; a byte-order mark stays.
    /// Throws std::length_error from 2^31 bytes on.
    static CString FromUtf8(std::string_view utf8);
    /// The number in decimal.
    static CString FromInt(std::int64_t number);

    /// Encodes as UTF-8; each lone surrogate becomes U+FFFD.
    std::string ToUtf8() const;

    /// The number of units. Throws std::length_error for a text of 2^31 units or more.
    int GetLength() const;
    /// Whether the length is 0.
    bool IsEmpty() const { return m_Text.empty(); }
    /// Makes it 0.
    void Empty() { m_Text.clear(); }

    /// The units in place, with a NUL behind them. Valid until the text changes or goes.
    const char16_t* GetString() const { return m_Text.c_str(); }
    /// The units in place. Valid until the text changes or goes.
    std::u16string_view View() const { return m_Text; }
    operator std::u16string_view() const { return m_Text; }  // NOLINT(google-explicit-constructor)

    /// The unit at an index from 0. Throws std::out_of_range outside the text.
    char16_t GetAt(int index) const;
    char16_t operator[](int index) const { return GetAt(index); }

    /// The index of the first occurrence at or behind `start` (below 0 counts as 0), or -1. An empty text is found at
    /// `start`.
    int Find(std::u16string_view text, int start = 0) const;
    int Find(char16_t unit, int start = 0) const;
    /// The index of the last occurrence, or -1.
    int ReverseFind(char16_t unit) const;

    /// Parts of the text. What lies outside of it is cut off, negative numbers count as 0.
    CString Left(int count) const;
    CString Right(int count) const;
    CString Mid(int first) const;
    CString Mid(int first, int count) const;

    /// Removes units, cutting the range as Mid does. Returns the new length.
    int Delete(int index, int count = 1);
    /// Inserts before `index`, which is moved into the text where it lies outside. Returns the new length.
    int Insert(int index, std::u16string_view text);
    /// Replaces each occurrence, from left to right. Returns how many; an empty `from` occurs nowhere.
    int Replace(std::u16string_view from, std::u16string_view to);

    /// Cuts white space (in Unicode's sense) from an end or from both.
    CString& TrimLeft();
    CString& TrimRight();
    CString& Trim();
    /// Cuts the unit as often as it stands there.
    CString& TrimLeft(char16_t unit);
    CString& TrimRight(char16_t unit);
    CString& Trim(char16_t unit);
    /// Cuts the units that are in the set; a surrogate counts by itself.
    CString& TrimLeft(std::u16string_view set);
    CString& TrimRight(std::u16string_view set);
    CString& Trim(std::u16string_view set);

    /// Changes the case of all alphabets' letters in place, one to one: the length stays, what has no single
    /// counterpart of the same length stays, and the process's locale has no say.
    CString& MakeLower();
    CString& MakeUpper();

    /// Below 0, 0 or above 0, by the order of code units.
    int Compare(std::u16string_view other) const { return View().compare(other); }
    /// The same after simple case folding of both texts, independent of the process's locale.
    int CompareNoCase(std::u16string_view other) const;

    /// Appends. Numbers are appended as text only (FromInt).
    CString& operator+=(std::u16string_view text);
    CString& operator+=(char16_t unit);
    CString& operator+=(int) = delete;

    /// Joined, or compared by the order of code units.
    friend CString operator+(std::u16string_view left, std::u16string_view right) {
        CString joined;
        joined.m_Text.reserve(left.size() + right.size());
        joined.m_Text.append(left).append(right);
        return joined;
    }
    friend bool operator==(std::u16string_view left, std::u16string_view right) { return left.compare(right) == 0; }
    friend bool operator!=(std::u16string_view left, std::u16string_view right) { return left.compare(right) != 0; }
    friend bool operator<(std::u16string_view left, std::u16string_view right) { return left.compare(right) < 0; }

 private:
    std::u16string m_Text;
};

/// True when the text has no lone surrogate.
QZ_API bool QZIsWellFormedUtf16(std::u16string_view text);

//! @cond
template <>
struct std::hash<CString> {
    std::size_t operator()(const CString& text) const noexcept { return std::hash<std::u16string_view>()(text.View()); }
};
//! @endcond
