#include <gtest/gtest.h>

#include <iterator>
#include <sstream>
#include <string>
#include <string_view>
#include <type_traits>

#include "QZParserSQL/front/CQZSQLParser.h"

namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

// A parser that shows its stream.
class ShownParser final : public CQZSQLParser {
 public:
    void ParseSQL() override {}

    std::string Rest() { return {std::istreambuf_iterator<char>(m_Stream), {}}; }
    std::string FirstWord() {
        std::string word;
        m_Stream >> word;
        return word;
    }
    std::string Loaded(std::u16string_view sql) {
        CString text(sql);
        LoadSqlText(text);
        EXPECT_EQ(text, sql) << "the text itself stays";
        return Rest();
    }
};

TEST(SqlParser, BeginsWithAnEmptyStream) { EXPECT_EQ(ShownParser().Rest(), ""); }

TEST(SqlParser, HasANarrowInputStreamAndNoBase) {
    EXPECT_TRUE(std::is_abstract_v<CQZSQLParser>);
    EXPECT_TRUE(std::has_virtual_destructor_v<CQZSQLParser>);
    EXPECT_FALSE(std::is_copy_constructible_v<ShownParser>);
}

TEST(SqlParser, LoadsATextAsUtf8) {
    const struct {
        std::u16string_view text;
        std::string utf8;
    } rows[] = {
        {u"", ""},
        {u"SELECT a FROM t", "SELECT a FROM t"},
        {u"\r\n\t ", "\r\n\t "},
        {u"Größe",
         "Gr\xC3\xB6\xC3\x9F"
         "e"},
        {u"Заказы", "\xD0\x97\xD0\xB0\xD0\xBA\xD0\xB0\xD0\xB7\xD1\x8B"},
        {u"名", "\xE5\x90\x8D"},
        {u"名前名前名前名前", "名前名前名前名前"},
        {u"\u07FF\u0800\uFFFD", "\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBD"},
        {u"\U0001F600", "\xF0\x9F\x98\x80"},
        {u"a\U0010FFFFb",
         "a\xF4\x8F\xBF\xBF"
         "b"},
        {u"\xD83D", "\xEF\xBF\xBD"},
        {u"\xDE00", "\xEF\xBF\xBD"},
        {u"\xDE00\xD83D", "\xEF\xBF\xBD\xEF\xBF\xBD"},
        {u"a\0b"sv, "a\0b"s},
    };
    for (const auto& row : rows) EXPECT_EQ(ShownParser().Loaded(row.text), row.utf8);
}

TEST(SqlParser, LoadsALongTextOfThreeBytesAUnit) {
    const std::u16string text(100000, u'名');
    const std::string utf8 = ShownParser().Loaded(text);
    ASSERT_EQ(utf8.size(), 3 * text.size());
    EXPECT_EQ(utf8.substr(utf8.size() - 6), "名名");
}

TEST(SqlParser, LoadsAnotherTextInPlaceOfTheFirst) {
    ShownParser parser;
    EXPECT_EQ(parser.Loaded(u"SELECT a"), "SELECT a");
    EXPECT_EQ(parser.Loaded(u"b"), "b");
    EXPECT_EQ(parser.Loaded(u""), "");
    CString text(u"two words");
    parser.LoadSqlText(text);
    EXPECT_EQ(parser.FirstWord(), "two");
    parser.LoadSqlText(text);
    EXPECT_EQ(parser.FirstWord(), "two");
}

}  // namespace
