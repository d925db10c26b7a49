#include "QZParserSQL/catalog/QZFieldValue.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

#include "QZParserSQL/catalog/Encodings.h"
#include "QZParserSQL/catalog/QZSettingsStore.h"
#include "QZParserSQL/platform/CString.h"
#include "QZParserSQL/platform/NumberText.h"

namespace {

constexpr int kFloatType = 3;

bool ComparesAsText(int type) { return type >= 2 && type <= 5; }

std::string_view View(const std::unique_ptr<char[]>& data, std::size_t length) {
    return data == nullptr ? std::string_view() : std::string_view(data.get(), length);
}

std::u16string_view WideView(std::string_view bytes) {
    return {reinterpret_cast<const char16_t*>(bytes.data()), bytes.size() / sizeof(char16_t)};
}

std::string_view Bytes(std::u16string_view text) {
    return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t)};
}

// The first unit of a text, 0 for an empty one.
char16_t FirstUnit(std::string_view text, int encoding) {
    if (text.empty()) return 0;
    return encoding == qz::kUtf16 ? WideView(text).front() : static_cast<unsigned char>(text.front());
}

std::string AsciiStart(std::u16string_view text) {
    const auto end = std::find_if(text.begin(), text.end(), [](char16_t unit) { return unit == 0 || unit > 127; });
    std::string start(static_cast<std::size_t>(end - text.begin()), '\0');
    std::transform(text.begin(), end, start.begin(), [](char16_t unit) { return static_cast<char>(unit); });
    return start;
}

// True when there was one.
template <class Unit>
bool ReplaceCommas(Unit* text, std::size_t length) {
    Unit* const first = std::find(text, text + length, Unit{','});
    std::replace(first, text + length, Unit{','}, Unit{'.'});
    return first != text + length;
}

}  // namespace

QZFieldValue::QZFieldValue(const QZFieldValue& other) {
    Store(other.m_pData.get(), other.m_nLength, other.m_nEncoding, other.m_nType);
}

QZFieldValue& QZFieldValue::operator=(const QZFieldValue& other) {
    if (this != &other) Assign(other);
    return *this;
}

QZFieldValue::QZFieldValue(const unsigned char* pData, std::uint32_t nLength, int nType) {
    SetBytes(pData, nLength, nType);
}

QZFieldValue::QZFieldValue(const char* pText, int nEncoding, int nType) { SetString(pText, nEncoding, nType); }
QZFieldValue::QZFieldValue(const char16_t* pText, int nType) { SetWideString(pText, nType); }
QZFieldValue::QZFieldValue(std::uint8_t nValue, int nType) { SetNumber(nValue, nType); }
QZFieldValue::QZFieldValue(std::int16_t nValue, int nType) { SetNumber(nValue, nType); }
QZFieldValue::QZFieldValue(std::int32_t nValue, int nType) { SetNumber(nValue, nType); }
QZFieldValue::QZFieldValue(std::uint32_t nValue, int nType) { SetNumber(nValue, nType); }
QZFieldValue::QZFieldValue(float fValue, int nType) { SetNumber(fValue, nType); }
QZFieldValue::QZFieldValue(double fValue, int nType) { SetNumber(fValue, nType); }
QZFieldValue::QZFieldValue(const QZDate& date, int nType) { SetDate(date, nType); }

void QZFieldValue::Assign(const QZFieldValue& other) {
    Store(other.m_pData.get(), other.m_nLength, other.m_nEncoding, other.m_nType);
    SetBinary(other.m_pBinary.get(), other.m_nBinaryLength);
}

// What is given may lie in the buffers that go: it is copied first.
void QZFieldValue::Store(const void* pData, std::uint64_t nLength, int nEncoding, int nType) {
    if (nLength > std::numeric_limits<std::uint32_t>::max()) throw std::length_error("QZFieldValue: too long");
    m_pData = pData == nullptr ? nullptr : qz::CopyText(pData, nLength);
    m_pConverted.reset();
    m_nLength = pData == nullptr ? 0 : static_cast<std::uint32_t>(nLength);
    m_nEncoding = nEncoding;
    m_nType = nType;
}

void QZFieldValue::SetBytes(const unsigned char* pData, std::uint32_t nLength, int nType) {
    Store(pData, nLength, qz::kAscii, nType);
}

void QZFieldValue::SetString(const char* pText, int nEncoding, int nType) {
    Store(pText, pText == nullptr ? 0 : std::char_traits<char>::length(pText), nEncoding, nType);
}

void QZFieldValue::SetWideString(const char16_t* pText, int nType) {
    const std::size_t length = pText == nullptr ? 0 : std::char_traits<char16_t>::length(pText);
    Store(pText, length * sizeof(char16_t), qz::kUtf16, nType);
}

void QZFieldValue::SetNumber(std::uint8_t nValue, int nType) { SetNumber(std::int32_t{nValue}, nType); }
void QZFieldValue::SetNumber(std::int16_t nValue, int nType) { SetNumber(std::int32_t{nValue}, nType); }
void QZFieldValue::SetNumber(std::int32_t nValue, int nType) { SetNumber(static_cast<long long>(nValue), nType); }
void QZFieldValue::SetNumber(std::uint32_t nValue, int nType) { SetNumber(static_cast<std::int32_t>(nValue), nType); }
void QZFieldValue::SetNumber(long nValue, int nType) { SetNumber(static_cast<long long>(nValue), nType); }

void QZFieldValue::SetNumber(long long nValue, int nType) {
    SetString(std::to_string(nValue).c_str(), qz::kAscii, nType);
}

void QZFieldValue::SetNumber(float fValue, int nType) { SetNumber(static_cast<double>(fValue), nType); }

void QZFieldValue::SetNumber(double fValue, int nType) {
    SetString(qz::WriteDouble(fValue).c_str(), qz::kAscii, nType);
}

void QZFieldValue::SetDate(const QZDate& date, int nType) {
    SetWideString(DateToString(date, u"%Y-%m-%d %H:%M:%S").GetString(), nType);
    SetString(GetText(qz::kAscii), qz::kAscii, nType);
}

void QZFieldValue::SetBinary(const unsigned char* pData, std::uint32_t nLength) {
    std::unique_ptr<unsigned char[]> copy;
    if (pData != nullptr) {
        copy.reset(new unsigned char[nLength]);
        std::copy_n(pData, nLength, copy.get());
    }
    m_pBinary = std::move(copy);
    m_nBinaryLength = pData == nullptr ? 0 : nLength;
}

const char* QZFieldValue::GetText(int nEncoding) const {
    if (IsNull() || nEncoding == m_nEncoding) return m_pData.get();
    if (m_pConverted == nullptr || nEncoding != m_nConvertedEncoding) {
        m_pConverted.reset();
        m_pConverted = qz::ConvertText(View(m_pData, m_nLength), m_nEncoding, nEncoding);
        m_nConvertedEncoding = nEncoding;
    }
    return m_pConverted.get();
}

const char16_t* QZFieldValue::GetWideText() const { return reinterpret_cast<const char16_t*>(GetText(qz::kUtf16)); }

const unsigned char* QZFieldValue::GetBytes(std::uint32_t& nLength) const {
    nLength = m_nLength;
    return reinterpret_cast<const unsigned char*>(m_pData.get());
}

const unsigned char* QZFieldValue::GetBinary(std::uint32_t& nLength) const {
    nLength = m_nBinaryLength;
    return m_pBinary.get();
}

template <class Number>
Number QZFieldValue::ReadNumber(Number (*read)(const char*)) const {
    if (IsNull()) return 0;
    if (m_nEncoding != qz::kUtf16) return read(m_pData.get());
    return read(AsciiStart(WideView(View(m_pData, m_nLength))).c_str());
}

int QZFieldValue::GetInt() const { return ReadNumber(qz::ReadInt); }
long QZFieldValue::GetLong() const { return ReadNumber(qz::ReadLong); }
std::int64_t QZFieldValue::GetInt64() const { return ReadNumber(qz::ReadInt64); }
float QZFieldValue::GetFloat() const { return static_cast<float>(GetDouble()); }
double QZFieldValue::GetDouble() const { return ReadNumber(qz::ReadDouble); }

QZDate QZFieldValue::GetDate() const {
    if (IsNull()) return {0, kDateNull};
    return QZDateFromText(GetWideText());
}

bool QZFieldValue::Equals(const QZFieldValue& other) const {
    return Matches(other, m_pBinary == nullptr || other.m_pBinary == nullptr);
}

bool QZFieldValue::EqualsStrict(const QZFieldValue& other) const {
    return m_nType == other.m_nType && Matches(other, false);
}

bool QZFieldValue::Matches(const QZFieldValue& other, bool bIgnoreBinary) const {
    if (IsNull() || other.IsNull()) return IsNull() && other.IsNull();
    if (m_nType == kFloatType && !(HasNoMantissa() && other.HasNoMantissa())) return SameNumber(other);
    return SameData(other) && (bIgnoreBinary || SameBinary(other));
}

// Empty, or nothing in front of an exponent.
bool QZFieldValue::HasNoMantissa() const {
    const char16_t first = FirstUnit(qz::TextOf(View(m_pData, m_nLength), m_nEncoding), m_nEncoding);
    return first == 0 || first == u'E' || first == u'e';
}

bool QZFieldValue::SameNumber(const QZFieldValue& other) const {
    ChangeCommasToPoints();
    other.ChangeCommasToPoints();
    return GetDouble() == other.GetDouble();
}

void QZFieldValue::ChangeCommasToPoints() const {
    const std::size_t length = qz::TextOf(View(m_pData, m_nLength), m_nEncoding).size();
    const bool changed = m_nEncoding == qz::kUtf16
                             ? ReplaceCommas(reinterpret_cast<char16_t*>(m_pData.get()), length / sizeof(char16_t))
                             : ReplaceCommas(m_pData.get(), length);
    if (changed) m_pConverted.reset();
}

bool QZFieldValue::SameData(const QZFieldValue& other) const {
    std::string_view theirs = View(other.m_pData, other.m_nLength);
    if (ComparesAsText(m_nType) && other.m_nEncoding != m_nEncoding) {
        theirs = m_nEncoding == qz::kUtf16 ? Bytes(other.GetWideText()) : other.GetText(m_nEncoding);
    }
    return View(m_pData, m_nLength) == theirs;
}

bool QZFieldValue::SameBinary(const QZFieldValue& other) const {
    return std::equal(m_pBinary.get(), m_pBinary.get() + m_nBinaryLength, other.m_pBinary.get(),
                      other.m_pBinary.get() + other.m_nBinaryLength);
}

void QZFieldValue::Save(QZSettingsStore* pStore) const {
    pStore->WriteInt(u"IsNULL", IsNull() ? 1 : 0);
    pStore->WriteInt(u"Type", m_nType);
    if (!IsNull()) pStore->WriteString(u"Value", GetWideText(), 0);
}

void QZFieldValue::Load(QZSettingsStore* pStore) {
    const bool isNull = pStore->ReadInt(u"IsNULL", 0) != 0;
    const int type = pStore->ReadInt(u"Type", -1);
    if (isNull || type == 0) {
        SetWideString(nullptr, type == 0 ? -1 : type);
    } else {
        SetWideString(pStore->ReadString(u"Value", CString(), 0).GetString(), type);
    }
}
