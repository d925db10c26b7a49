#include "QZParserSQL/platform/CString.h"

#include <unicode/uchar.h>
#include <unicode/ustring.h>
#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <charconv>
#include <iterator>
#include <limits>
#include <stdexcept>
#include <utility>

namespace {

constexpr auto npos = std::u16string_view::npos;
constexpr UChar32 kReplacement = 0xFFFD;

constexpr std::u16string_view kWhiteSpace =
    u"\t\n\v\f\r \u0085\u00A0\u1680\u2000\u2001\u2002\u2003\u2004\u2005\u2006\u2007\u2008\u2009\u200A\u2028\u2029\u202F"
    u"\u205F\u3000";

int ToInt(std::size_t length) {
    if (length > std::numeric_limits<int>::max()) throw std::length_error("CString: text too long");
    return static_cast<int>(length);
}

int ToIndex(std::size_t place) { return place == npos ? -1 : ToInt(place); }

std::size_t NotNegative(int number) { return static_cast<std::size_t>(std::max(number, 0)); }

UChar32 NextCodePoint(std::u16string_view text, std::size_t& next) {
    UChar32 codePoint = 0;
    U16_NEXT(text.data(), next, text.size(), codePoint);
    return codePoint;
}

void MapEach(std::u16string& text, UChar32 (*mapping)(UChar32)) {
    for (std::size_t next = 0; next < text.size();) {
        std::size_t place = next;
        const UChar32 mapped = mapping(NextCodePoint(text, next));
        if (next - place != static_cast<std::size_t>(U16_LENGTH(mapped))) continue;
        U16_APPEND_UNSAFE(text, place, mapped);
    }
}

bool IsAscii(char16_t unit) { return unit < 0x80; }

bool IsWhiteSpace(char16_t unit) {
    if (unit > u' ' && IsAscii(unit)) return false;
    return kWhiteSpace.find(unit) != npos;
}

char16_t AsciiLower(char16_t unit) { return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 0x20) : unit; }

// Cuts what is outside of [first, end).
void Keep(std::u16string& text, std::size_t first, std::size_t end) {
    text.resize(end);
    text.erase(0, first);
}

// The units of a text after simple case folding, one by one.
class FoldedUnits {
 public:
    explicit FoldedUnits(std::u16string_view text) : m_Text(text) {}

    // The next unit, or -1 at the end.
    int Next() {
        if (m_Trail != 0) return std::exchange(m_Trail, 0);
        if (m_Next == m_Text.size()) return -1;
        const UChar32 folded = u_foldCase(NextCodePoint(m_Text, m_Next), U_FOLD_CASE_DEFAULT);
        if (U_IS_BMP(folded)) return folded;
        m_Trail = U16_TRAIL(folded);
        return U16_LEAD(folded);
    }

 private:
    std::u16string_view m_Text;
    std::size_t m_Next = 0;
    int m_Trail = 0;
};

}  // namespace

CString::CString(const char16_t* text) : m_Text(text == nullptr ? u"" : text) {}
CString::CString(std::u16string_view text) : m_Text(text) {}
CString::CString(std::u16string text) : m_Text(std::move(text)) {}
CString::CString(char16_t unit, int count) : m_Text(NotNegative(count), unit) {}

// A byte gives at most one unit, so the text is made long enough first and cut afterwards.
CString CString::FromUtf8(std::string_view utf8) {
    const int size = ToInt(utf8.size());
    std::u16string text(utf8.size(), u'\0');
    int32_t length = 0;
    UErrorCode status = U_ZERO_ERROR;
    u_strFromUTF8WithSub(text.data(), size, &length, utf8.data(), size, kReplacement, nullptr, &status);
    text.resize(static_cast<std::size_t>(length));
    return text;
}

CString CString::FromInt(std::int64_t number) {
    char digits[std::numeric_limits<std::int64_t>::digits10 + 2];
    const char* end = std::to_chars(std::begin(digits), std::end(digits), number).ptr;
    return std::u16string(std::cbegin(digits), end);
}

std::string CString::ToUtf8() const {
    std::string utf8;
    utf8.reserve(m_Text.size());
    for (std::size_t next = 0; next < m_Text.size();) {
        UChar32 codePoint = 0;
        U16_NEXT_OR_FFFD(m_Text.data(), next, m_Text.size(), codePoint);
        char bytes[U8_MAX_LENGTH];
        std::size_t count = 0;
        U8_APPEND_UNSAFE(bytes, count, codePoint);
        utf8.append(bytes, count);
    }
    return utf8;
}

int CString::GetLength() const { return ToInt(m_Text.size()); }

char16_t CString::GetAt(int index) const {
    if (index < 0) throw std::out_of_range("CString: negative index");
    return m_Text.at(static_cast<std::size_t>(index));
}

int CString::Find(std::u16string_view text, int start) const { return ToIndex(m_Text.find(text, NotNegative(start))); }
int CString::Find(char16_t unit, int start) const { return ToIndex(m_Text.find(unit, NotNegative(start))); }
int CString::ReverseFind(char16_t unit) const { return ToIndex(m_Text.rfind(unit)); }

CString CString::Left(int count) const { return View().substr(0, NotNegative(count)); }

CString CString::Right(int count) const {
    return View().substr(m_Text.size() - std::min(NotNegative(count), m_Text.size()));
}

CString CString::Mid(int first) const { return View().substr(std::min(NotNegative(first), m_Text.size())); }

CString CString::Mid(int first, int count) const {
    return View().substr(std::min(NotNegative(first), m_Text.size()), NotNegative(count));
}

int CString::Delete(int index, int count) {
    m_Text.erase(std::min(NotNegative(index), m_Text.size()), NotNegative(count));
    return GetLength();
}

int CString::Insert(int index, std::u16string_view text) {
    m_Text.insert(std::min(NotNegative(index), m_Text.size()), text);
    return GetLength();
}

int CString::Replace(std::u16string_view from, std::u16string_view to) {
    if (from.empty()) return 0;
    std::u16string replaced;
    std::size_t count = 0;
    std::size_t start = 0;
    for (auto hit = m_Text.find(from); hit != npos; hit = m_Text.find(from, start), ++count) {
        replaced.append(m_Text, start, hit - start).append(to);
        start = hit + from.size();
    }
    if (count != 0) m_Text = replaced.append(m_Text, start);
    return ToInt(count);
}

CString& CString::TrimLeft() {
    std::size_t first = 0;
    while (first < m_Text.size() && IsWhiteSpace(m_Text[first])) ++first;
    Keep(m_Text, first, m_Text.size());
    return *this;
}

CString& CString::TrimRight() {
    std::size_t end = m_Text.size();
    while (end > 0 && IsWhiteSpace(m_Text[end - 1])) --end;
    Keep(m_Text, 0, end);
    return *this;
}

CString& CString::Trim() { return TrimRight().TrimLeft(); }

CString& CString::TrimLeft(char16_t unit) { return TrimLeft({&unit, 1}); }
CString& CString::TrimRight(char16_t unit) { return TrimRight({&unit, 1}); }
CString& CString::Trim(char16_t unit) { return Trim({&unit, 1}); }

CString& CString::TrimLeft(std::u16string_view set) {
    m_Text.erase(0, m_Text.find_first_not_of(set));
    return *this;
}

CString& CString::TrimRight(std::u16string_view set) {
    m_Text.erase(m_Text.find_last_not_of(set) + 1);
    return *this;
}

CString& CString::Trim(std::u16string_view set) { return TrimRight(set).TrimLeft(set); }

CString& CString::MakeLower() {
    if (std::all_of(m_Text.begin(), m_Text.end(), IsAscii)) {
        std::transform(m_Text.begin(), m_Text.end(), m_Text.begin(), AsciiLower);
    } else {
        MapEach(m_Text, u_tolower);
    }
    return *this;
}

CString& CString::MakeUpper() {
    MapEach(m_Text, u_toupper);
    return *this;
}

int CString::CompareNoCase(std::u16string_view other) const {
    std::size_t same = 0;  // leading units that fold alike by themselves
    const std::size_t most = std::min(m_Text.size(), other.size());
    while (same < most && IsAscii(m_Text[same]) && AsciiLower(m_Text[same]) == AsciiLower(other[same])) ++same;
    FoldedUnits ours(View().substr(same));
    FoldedUnits theirs(other.substr(same));
    for (;;) {
        const int unit = ours.Next();
        const int difference = unit - theirs.Next();
        if (difference != 0 || unit == -1) return difference;
    }
}

CString& CString::operator+=(std::u16string_view text) {
    m_Text += text;
    return *this;
}

CString& CString::operator+=(char16_t unit) {
    m_Text += unit;
    return *this;
}

bool QZIsWellFormedUtf16(std::u16string_view text) {
    for (std::size_t next = 0; next < text.size();) {
        if (U_IS_SURROGATE(NextCodePoint(text, next))) return false;
    }
    return true;
}
