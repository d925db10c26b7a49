#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <system_error>
#include <vector>

#include "host/file.h"

namespace qzsql {
namespace {

class FileOnDisk : public testing::Test {
 protected:
    ~FileOnDisk() override { std::remove(name_.c_str()); }

    std::vector<std::string> LinesOf(const std::string& bytes) {
        std::FILE* file = std::fopen(name_.c_str(), "wb");
        std::fwrite(bytes.data(), 1, bytes.size(), file);
        std::fclose(file);
        File opened(name_);
        LineReader reader(opened);
        std::vector<std::string> lines;
        for (std::string line; reader.Next(line);) lines.push_back(line);
        return lines;
    }

    const std::string name_ = testing::TempDir() + "qzsql_file_test";
};

using Lines = std::vector<std::string>;

TEST_F(FileOnDisk, LinesEndAtNewlinesOrAtTheEnd) {
    EXPECT_EQ(LinesOf("a\nb\n"), (Lines{"a", "b"}));
    EXPECT_EQ(LinesOf("a\n\nb"), (Lines{"a", "", "b"}));
    EXPECT_EQ(LinesOf("\n"), (Lines{""}));
    EXPECT_EQ(LinesOf(""), Lines{});
    EXPECT_EQ(LinesOf(std::string("a\0\r\nb", 5)), (Lines{std::string("a\0\r", 3), "b"}));
}

TEST_F(FileOnDisk, LinesMayBeLongerThanWhatIsReadAtOnce) {
    const std::string first(200'000, 'x');
    const std::string second(70'000, 'y');
    EXPECT_EQ(LinesOf(first + "\n" + second + "\nz"), (Lines{first, second, "z"}));
}

TEST_F(FileOnDisk, IsReadWhole) {
    LinesOf(std::string(150'000, 'x'));
    EXPECT_EQ(File(name_).ReadAll(), std::string(150'000, 'x'));
}

TEST(File, GivesTheSystemsReason) {
    try {
        File("/nowhere/to/be/found");
        FAIL();
    } catch (const std::system_error& error) {
        EXPECT_EQ(error.code(), std::errc::no_such_file_or_directory);
    }
    EXPECT_THROW(File("/").ReadAll(), std::system_error);
}

}  // namespace
}  // namespace qzsql
