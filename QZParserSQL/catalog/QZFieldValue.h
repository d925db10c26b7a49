// A nullable value of a field.
#pragma once

#include <cstdint>
#include <memory>

#include "QZParserSQL/platform/Date.h"
#include "QZParserSQL/platform/Export.h"

class QZSettingsStore;

/// A value kept as terminated text in one encoding, beside a type number of the host and an optional binary part; or
/// NULL. Encodings are 1 (UTF-8), 1000 (UTF-16) and single-byte character sets from 2 on (2 ISO 8859-1, 7 ASCII, see
/// EncodingTables.cpp); a number without a set counts as ISO 8859-1. Values of the types 2, 4 and 5 compare as text,
/// those of type 3 as floating point, all others as bytes.
///
/// Numbers and dates are written and read apart from the process's locale and time zone. Arguments may point into the
/// value itself; data of 4 GB or more throws std::length_error. One object belongs to one thread at a time, its const
/// operations included: they keep a conversion's result, and a comparison may change commas of the text to points.
class QZ_API QZFieldValue {
 public:
    /// NULL, of type -1.
    QZFieldValue() = default;
    /// Copies everything but the binary part.
    QZFieldValue(const QZFieldValue& other);
    QZFieldValue& operator=(const QZFieldValue& other);

    ~QZFieldValue() = default;

    /// These make what the setter of the same arguments makes.
    QZFieldValue(const unsigned char* pData, std::uint32_t nLength, int nType);
    QZFieldValue(const char* pText, int nEncoding, int nType);
    QZFieldValue(const char16_t* pText, int nType);
    QZFieldValue(std::uint8_t nValue, int nType);
    QZFieldValue(std::int16_t nValue, int nType);
    QZFieldValue(std::int32_t nValue, int nType);
    QZFieldValue(std::uint32_t nValue, int nType);
    QZFieldValue(float fValue, int nType);
    QZFieldValue(double fValue, int nType);
    QZFieldValue(const QZDate& date, int nType);

    /// Copies all of the other value, its binary part too.
    void Assign(const QZFieldValue& other);

    /// Copies bytes, which count as text of encoding 7. With null, here and below, the value becomes NULL.
    void SetBytes(const unsigned char* pData, std::uint32_t nLength, int nType);
    /// Copies terminated text of an encoding of bytes.
    void SetString(const char* pText, int nEncoding, int nType);
    /// Copies terminated text, with encoding 1000.
    void SetWideString(const char16_t* pText, int nType);
    /// Writes a number in encoding 7: in decimal, from 2^31 on the 32-bit number as a negative one; a floating-point
    /// number with six digits behind the point.
    void SetNumber(std::uint8_t nValue, int nType);
    void SetNumber(std::int16_t nValue, int nType);
    void SetNumber(std::int32_t nValue, int nType);
    void SetNumber(std::uint32_t nValue, int nType);
    void SetNumber(long nValue, int nType);
    void SetNumber(long long nValue, int nType);
    void SetNumber(float fValue, int nType);
    void SetNumber(double fValue, int nType);
    /// Writes a date in encoding 7 as "%Y-%m-%d %H:%M:%S": a null date as an empty text, an invalid one as the text
    /// that DateToString has for it.
    void SetDate(const QZDate& date, int nType);
    /// Replaces the binary part; null removes it.
    void SetBinary(const unsigned char* pData, std::uint32_t nLength);
    /// Changes the type number and nothing else.
    void SetType(int nType) { m_nType = nType; }

    /// Whether there is no text; an empty one is one.
    bool IsNull() const { return m_pData == nullptr; }
    /// The host's number.
    int GetType() const { return m_nType; }
    /// The length in bytes, without the terminator.
    std::uint32_t GetLength() const { return m_nLength; }
    /// The text in an encoding, null for NULL. The last conversion is kept. Valid until the value changes, is compared
    /// or gives its text in one more encoding.
    const char* GetText(int nEncoding) const;
    /// The same in encoding 1000.
    const char16_t* GetWideText() const;
    /// The bytes as they are stored, null for NULL; valid until the value changes.
    const unsigned char* GetBytes(std::uint32_t& nLength) const;
    /// The binary part, null when there is none; valid until it is replaced.
    const unsigned char* GetBinary(std::uint32_t& nLength) const;

    /// The number at the start of the text, 0 for NULL and where there is none. What lies outside the integer types
    /// becomes their nearest end.
    int GetInt() const;
    long GetLong() const;
    std::int64_t GetInt64() const;
    float GetFloat() const;
    double GetDouble() const;
    /// The date in the text (see QZDateFromText), a null date for NULL.
    QZDate GetDate() const;

    /// Compares the values by this one's type. Two NULLs are equal. Values of type 3 are equal when their numbers are,
    /// NaN never; commas in them are changed to points, in the stored texts. Of other values the lengths and bytes must
    /// match, and those of the binary parts where both have one.
    bool Equals(const QZFieldValue& other) const;
    /// The same, but the types must match too, and a missing binary part matches only one of length 0.
    bool EqualsStrict(const QZFieldValue& other) const;
    /// The contrary of EqualsStrict.
    bool NotEqual(const QZFieldValue& other) const { return !EqualsStrict(other); }

    /// Keeps whether the value is NULL, its type and its text in the section now open.
    void Save(QZSettingsStore* pStore) const;
    /// Reads what Save kept, with encoding 1000. Type 0 yields NULL of type -1.
    void Load(QZSettingsStore* pStore);

 private:
    void Store(const void* pData, std::uint64_t nLength, int nEncoding, int nType);
    bool Matches(const QZFieldValue& other, bool bIgnoreBinary) const;
    bool SameNumber(const QZFieldValue& other) const;
    bool SameData(const QZFieldValue& other) const;
    bool SameBinary(const QZFieldValue& other) const;
    bool HasNoMantissa() const;
    void ChangeCommasToPoints() const;
    template <class Number>
    Number ReadNumber(Number (*read)(const char*)) const;

    std::unique_ptr<char[]> m_pData;
    std::uint32_t m_nLength = 0;
    std::int32_t m_nEncoding = 2;
    mutable std::unique_ptr<char[]> m_pConverted;
    mutable std::int32_t m_nConvertedEncoding = 2;
    std::int32_t m_nType = -1;
    std::unique_ptr<unsigned char[]> m_pBinary;
    std::uint32_t m_nBinaryLength = 0;
};
