#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "host/input.h"

namespace qzsql {
namespace {

using namespace std::string_literals;

TEST(DecodeText, ReadsUtf8WithAndWithoutMark) {
    EXPECT_EQ(DecodeText("a\xC3\xA4"), u"a\u00e4");
    EXPECT_EQ(DecodeText("\xEF\xBB\xBF"
                         "a"),
              u"a");
    EXPECT_EQ(DecodeText(""), u"");
    EXPECT_EQ(DecodeText("a\0b"s), u"a\0b"s);
}

TEST(DecodeText, ReadsUtf16WithMark) {
    EXPECT_EQ(DecodeText("\xFF\xFE"
                         "a\0\xAC\x20"s),
              u"a\u20ac");
    EXPECT_EQ(DecodeText("\xFE\xFF\0a\x20\xAC"s), u"a\u20ac");
    EXPECT_EQ(DecodeText("\xFF\xFE"), u"");
}

TEST(DecodeText, KeepsLoneSurrogatesOfUtf16) {
    const std::u16string expected{u'a', 0xD800, u'b'};
    EXPECT_EQ(DecodeText("\xFF\xFE"
                         "a\0\0\xD8"
                         "b\0"s),
              expected);
}

std::string WhyNot(std::string_view bytes) {
    try {
        DecodeText(bytes);
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "it is text";
}

TEST(DecodeText, NamesTheByteThatIsNoText) {
    EXPECT_EQ(WhyNot("abc\xE4"), "byte 3 is not UTF-8; convert the text to UTF-8, or to UTF-16 with a byte-order mark");
    EXPECT_EQ(WhyNot("\xEF\xBB\xBF"
                     "a\xE4")
                  .substr(0, 21),
              "byte 4 is not UTF-8; ");
    EXPECT_EQ(WhyNot("\xFF\xFE"
                     "a\0b"s)
                  .substr(0, 29),
              "byte 4 is half a UTF-16 unit,");
}

TEST(ForEachInput, GoesThroughTextsThenFilesAndKeepsTheWorstCode) {
    std::vector<std::string> seen;
    const auto code = ForEachInput({{"a", "b"}, {"/nowhere/to/be/found", "/dev/null"}}, [&seen](const Input& input) {
        seen.push_back(input.name);
        return input.text == u"a" ? kNotClean : kDone;
    });
    EXPECT_EQ(seen, (std::vector<std::string>{"-e 1", "-e 2", "/dev/null"}));
    EXPECT_EQ(code, kUnreadable);
}

TEST(ForEachInput, GoesOnBehindAnInputThatFails) {
    int count = 0;
    const auto code = ForEachInput({{"a", "b"}, {}}, [&count](const Input&) -> ExitCode {
        if (++count == 1) throw std::length_error("too long");
        return kDone;
    });
    EXPECT_EQ(count, 2);
    EXPECT_EQ(code, kUnreadable);
}

}  // namespace
}  // namespace qzsql
