// The tables against what the C library's iconv and ICU know of the sets, and against code points noted by hand.
#include <gtest/gtest.h>
#include <iconv.h>
#include <unicode/ucnv.h>

#include <memory>
#include <set>
#include <string>
#include <vector>

#include "QZParserSQL/catalog/EncodingTables.h"

namespace {

using qz::CodePoints;
using qz::ForwardTable;

constexpr int kLastEncoding = 26;

std::string Where(int encoding, unsigned byte) {
    return "encoding " + std::to_string(encoding) + ", byte " + std::to_string(byte);
}

CodePoints IconvTable(const char* name) {
    CodePoints table{};
    iconv_t converter = iconv_open("UTF-32LE", name);
    EXPECT_NE(converter, reinterpret_cast<iconv_t>(-1)) << name;
    for (unsigned byte = 0; byte < table.size(); ++byte) {
        char in = static_cast<char>(byte);
        char* from = &in;
        char* to = reinterpret_cast<char*>(&table[byte]);
        std::size_t inLeft = 1;
        std::size_t outLeft = sizeof table[byte];
        iconv(converter, &from, &inLeft, &to, &outLeft);
        iconv(converter, nullptr, nullptr, nullptr, nullptr);
    }
    iconv_close(converter);
    return table;
}

struct CloseConverter {
    void operator()(UConverter* converter) const { ucnv_close(converter); }
};

CodePoints IcuTable(const char* name) {
    CodePoints table{};
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UConverter, CloseConverter> converter(ucnv_open(name, &status));
    EXPECT_TRUE(U_SUCCESS(status)) << name;
    for (unsigned byte = 0; byte < table.size(); ++byte) {
        const char in = static_cast<char>(byte);
        const char* from = &in;
        status = U_ZERO_ERROR;
        ucnv_reset(converter.get());
        const UChar32 point = ucnv_getNextUChar(converter.get(), &from, from + 1, &status);
        table[byte] = U_FAILURE(status) || point == 0xFFFD ? 0 : static_cast<char32_t>(point);
    }
    return table;
}

TEST(EncodingTables, AreThoseOfIconv) {
    const struct {
        int encoding;
        const char* name;
        std::set<unsigned> editions;  // bytes that another edition of the set has otherwise
    } sets[] = {
        {2, "ISO-8859-1", {}},
        {3, "ISO-8859-2", {}},
        {4, "ISO-8859-9", {}},
        {5, "ISO-8859-13", {}},
        {6, "ARMSCII-8", {}},
        {7, "ASCII", {}},
        {8, "CP1250", {}},
        {9, "CP1251", {}},
        {10, "CP1256", {}},
        {11, "CP1257", {}},
        {12, "CP850", {}},
        {13, "CP852", {}},
        {14, "CP866", {}},
        {15, "DEC-MCS", {}},
        {17, "ISO-8859-7", {}},
        {18, "ISO-8859-8", {}},
        {19, "HP-ROMAN8", {}},
        {21, "KOI8-R", {}},
        {22, "KOI8-R", {}},
        {23, "MAC-CENTRALEUROPE", {}},
        {24, "MACINTOSH", {0xC6, 0xF0}},  // increment and the maker's sign, which stand otherwise in older tables
        {25, "ISO646-SE2", {}},
        {26, "TIS-620", {}},
    };
    for (const auto& set : sets) {
        const CodePoints expected = IconvTable(set.name);
        for (unsigned byte = 0; byte < 256; ++byte) {
            if (set.editions.count(byte) > 0) continue;
            EXPECT_EQ(ForwardTable(set.encoding)[byte], expected[byte]) << Where(set.encoding, byte);
        }
    }
}

// Where ICU maps a byte that is unmapped here, it is to a control character or a private one.
bool IsFiller(char32_t point) { return (point >= 0x80 && point <= 0x9F) || point >= 0xE000; }

TEST(EncodingTables, AreThoseOfIcu) {
    const std::set<unsigned> pcControls{0x1A, 0x1C, 0x7F};  // exchanged by the maker
    const struct {
        int encoding;
        const char* name;
        std::set<unsigned> editions;
    } sets[] = {
        {2, "ISO-8859-1", {}},
        {3, "ISO-8859-2", {}},
        {4, "ISO-8859-9", {}},
        {5, "ISO-8859-13", {}},
        {7, "US-ASCII", {}},
        {8, "windows-1250", {}},
        {9, "windows-1251", {}},
        {10, "windows-1256", {}},
        {11, "windows-1257", {}},
        {12, "ibm-850", pcControls},
        {13, "ibm-852", {0x1A, 0x1C, 0x7F, 0xAA}},
        {14, "ibm-866", pcControls},
        {17, "ISO-8859-7", {}},
        {18, "ISO-8859-8", {}},
        {19, "hp-roman8", {0xA0, 0xA9, 0xAF, 0xB0, 0xB3, 0xF3, 0xF6}},  // signs alike, and the lira for the pound
        {21, "KOI8-R", {}},
        {22, "KOI8-R", {}},
        {23, "x-mac-centraleurroman", {}},
        {24, "macintosh", {}},
        // The Windows edition has a no-break space, the euro sign and punctuation besides.
        {26, "windows-874-2000", {0x80, 0x85, 0x91, 0x92, 0x93, 0x94, 0x95, 0x96, 0x97, 0xA0}},
    };
    for (const auto& set : sets) {
        const CodePoints expected = IcuTable(set.name);
        for (unsigned byte = 0; byte < 256; ++byte) {
            const char32_t point = ForwardTable(set.encoding)[byte];
            if (set.editions.count(byte) > 0 || (point == 0 && IsFiller(expected[byte]))) continue;
            EXPECT_EQ(point, expected[byte]) << Where(set.encoding, byte);
        }
    }
}

TEST(EncodingTables, AreBuiltOnRelatedSets) {
    const CodePoints georgian = IconvTable("GEORGIAN-PS");
    for (unsigned byte = 1; byte < 256; ++byte) {
        const char32_t point = ForwardTable(16)[byte];
        if (point == 0 || byte == 0x80 || byte == 0xFD) continue;
        EXPECT_EQ(point, georgian[byte]) << Where(16, byte);
    }
    const CodePoints pc = IconvTable("IBM437");
    for (unsigned byte = 0; byte < 256; ++byte) {
        if ((byte >= 0x80 && byte < 0xAC) || byte == 0xAD) continue;
        EXPECT_EQ(ForwardTable(20)[byte], pc[byte]) << Where(20, byte);
    }
}

struct Noted {
    unsigned byte;
    char32_t point;
};

TEST(EncodingTables, HoldWhatWasNotedByHand) {
    const struct {
        int encoding;
        std::vector<Noted> points;
    } sets[] = {
        {2, {{0x41, U'A'}, {0x80, 0x80}, {0xE9, U'é'}, {0xFF, U'ÿ'}}},
        {3, {{0xA1, U'Ą'}, {0xB1, U'ą'}, {0xE8, U'č'}, {0xFF, 0x02D9}}},
        {4, {{0xD0, U'Ğ'}, {0xDD, U'İ'}, {0xDE, U'Ş'}, {0xF0, U'ğ'}, {0xFD, U'ı'}, {0xFE, U'ş'}}},
        {5, {{0xA1, U'”'}, {0xAF, U'Æ'}, {0xB4, U'“'}, {0xC0, U'Ą'}, {0xE0, U'ą'}, {0xFF, U'’'}}},
        {6, {{0xA1, 0}, {0xA2, U'և'}, {0xB2, U'Ա'}, {0xB3, U'ա'}, {0xFD, U'ֆ'}, {0xFE, 0x055A}, {0xFF, 0}}},
        {7, {{0x01, 1}, {0x7E, U'~'}, {0x7F, 0x7F}, {0x80, 0}, {0xFF, 0}}},
        {8, {{0x80, U'€'}, {0x81, 0}, {0x8A, U'Š'}, {0xA5, U'Ą'}, {0xFF, 0x02D9}}},
        {9, {{0x88, U'€'}, {0x98, 0}, {0xA8, U'Ё'}, {0xB8, U'ё'}, {0xC0, U'А'}, {0xFF, U'я'}}},
        {10, {{0x80, U'€'}, {0x81, 0x067E}, {0x90, 0x06AF}, {0xC7, 0x0627}, {0xED, 0x064A}, {0xFF, 0x06D2}}},
        {11, {{0x80, U'€'}, {0xA1, 0}, {0xA5, 0}, {0xAA, U'Ŗ'}, {0xC0, U'Ą'}, {0xE0, U'ą'}}},
        {12, {{0x80, U'Ç'}, {0x9B, U'ø'}, {0xB0, U'░'}, {0xD5, U'ı'}, {0xE1, U'ß'}, {0xFF, 0xA0}}},
        {13, {{0x80, U'Ç'}, {0x9F, U'č'}, {0xAC, U'Č'}, {0xD7, U'Î'}, {0xE7, U'š'}}},
        {14, {{0x80, U'А'}, {0xE0, U'р'}, {0xEF, U'я'}, {0xF0, U'Ё'}, {0xF1, U'ё'}}},
        {15, {{0xA0, 0}, {0xA8, U'¤'}, {0xD7, U'Œ'}, {0xDD, U'Ÿ'}, {0xF7, U'œ'}, {0xFD, U'ÿ'}, {0xFE, 0}}},
        {16,
         {{0x80, U'€'},
          {0xC0, U'ა'},
          {0xC7, U'ჱ'},
          {0xC8, U'თ'},
          {0xCE, U'ჲ'},
          {0xD5, U'ჳ'},
          {0xE2, U'ჴ'},
          {0xE3, U'ჯ'},
          {0xE4, U'ჰ'},
          {0xE5, U'ჵ'},
          {0xE6, 0},
          {0xFD, U'№'}}},
        {17, {{0xA4, U'€'}, {0xAA, 0x037A}, {0xC1, U'Α'}, {0xD9, U'Ω'}, {0xE1, U'α'}, {0xFF, 0}}},
        {18, {{0xAA, U'×'}, {0xBA, U'÷'}, {0xC0, 0}, {0xE0, 0x05D0}, {0xFA, 0x05EA}, {0xFD, 0x200E}, {0xFE, 0x200F}}},
        {19, {{0xA1, U'À'}, {0xAF, U'₤'}, {0xB4, U'Ç'}, {0xCF, U'ü'}, {0xD0, U'Å'}, {0xDE, U'ß'}, {0xFF, 0}}},
        {20,
         {{0x80, U'Č'},
          {0x87, U'č'},
          {0x91, U'ž'},
          {0xA8, U'š'},
          {0xA9, U'ř'},
          {0xAB, U'Ŕ'},
          {0xAC, U'¼'},
          {0xAD, U'§'},
          {0xB0, U'░'},
          {0xE1, U'ß'},
          {0xFF, 0xA0}}},
        {21, {{0x80, 0x2500}, {0xA3, U'ё'}, {0xA4, 0x2553}, {0xB3, U'Ё'}, {0xC1, U'а'}, {0xE1, U'А'}}},
        {22, {{0x80, 0x2500}, {0xA3, U'ё'}, {0xA4, 0x2553}, {0xB3, U'Ё'}, {0xC1, U'а'}, {0xE1, U'А'}}},
        {23, {{0x80, U'Ä'}, {0x89, U'Č'}, {0x8B, U'č'}, {0xA5, U'•'}, {0xE4, U'š'}}},
        {24, {{0x80, U'Ä'}, {0xA5, U'•'}, {0xC6, 0x2206}, {0xCA, 0xA0}, {0xDB, U'€'}, {0xF0, 0xF8FF}}},
        {25,
         {{0x24, U'¤'},
          {0x40, U'É'},
          {0x5B, U'Ä'},
          {0x5C, U'Ö'},
          {0x5D, U'Å'},
          {0x5E, U'Ü'},
          {0x60, U'é'},
          {0x7B, U'ä'},
          {0x7C, U'ö'},
          {0x7D, U'å'},
          {0x7E, U'ü'},
          {0x80, 0},
          {0xFF, 0}}},
        {26, {{0xA0, 0}, {0xA1, 0x0E01}, {0xDB, 0}, {0xDF, 0x0E3F}, {0xFA, 0x0E5A}, {0xFB, 0x0E5B}, {0xFC, 0}}},
    };
    for (const auto& set : sets) {
        for (const Noted& noted : set.points) {
            EXPECT_EQ(ForwardTable(set.encoding)[noted.byte], noted.point) << Where(set.encoding, noted.byte);
        }
    }
}

TEST(EncodingTables, HaveAnEmptyUpperHalfForSevenBitSets) {
    for (const int encoding : {7, 25}) {
        for (unsigned byte = 128; byte < 256; ++byte) EXPECT_EQ(ForwardTable(encoding)[byte], 0U);
    }
}

TEST(EncodingTables, GiveTheSameValuesFor21And22) { EXPECT_EQ(ForwardTable(21), ForwardTable(22)); }

TEST(EncodingTables, TakeIso8859_1ForOtherNumbers) {
    CodePoints identity;
    for (unsigned byte = 0; byte < 256; ++byte) identity[byte] = byte;
    for (const int number : {2, 0, -1, 1, 27, 999, 1000, 1001, 2147483647, -2147483647 - 1}) {
        EXPECT_EQ(ForwardTable(number), identity) << number;
    }
}

TEST(EncodingTables, StayBelow65536) {
    for (int encoding = 2; encoding <= kLastEncoding; ++encoding) {
        for (const char32_t point : ForwardTable(encoding)) EXPECT_LT(point, 65536U) << encoding;
    }
}

}  // namespace
