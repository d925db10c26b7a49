#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>
#include <vector>

#include "host/file.h"

namespace qzsql {
namespace {

/// A file that goes with the object.
class FileOnDisk {
 public:
    explicit FileOnDisk(const std::string& bytes) { std::ofstream(name_, std::ios::binary) << bytes; }
    ~FileOnDisk() { std::filesystem::remove(name_); }
    FileOnDisk(const FileOnDisk&) = delete;
    FileOnDisk& operator=(const FileOnDisk&) = delete;

    const std::string& name() const { return name_; }

 private:
    const std::string name_ = testing::TempDir() + "qzsql_file_test_" + std::to_string(getpid());
};

std::vector<std::string> LinesOf(const std::string& bytes) {
    const FileOnDisk onDisk(bytes);
    File file(onDisk.name());
    LineReader reader(file);
    std::vector<std::string> lines;
    for (std::string line; reader.Next(line);) lines.push_back(line);
    return lines;
}

using Lines = std::vector<std::string>;

TEST(LineReader, LinesEndAtNewlinesOrAtTheEnd) {
    EXPECT_EQ(LinesOf("a\nb\n"), (Lines{"a", "b"}));
    EXPECT_EQ(LinesOf("a\n\nb"), (Lines{"a", "", "b"}));
    EXPECT_EQ(LinesOf("\n"), (Lines{""}));
    EXPECT_EQ(LinesOf(""), Lines{});
    EXPECT_EQ(LinesOf(std::string("a\0\r\nb", 5)), (Lines{std::string("a\0\r", 3), "b"}));
}

TEST(LineReader, LinesMayBeLongerThanWhatIsReadAtOnce) {
    const std::string first(200'000, 'x');
    const std::string second(70'000, 'y');
    EXPECT_EQ(LinesOf(first + "\n" + second + "\nz"), (Lines{first, second, "z"}));
}

TEST(File, IsReadWhole) {
    const FileOnDisk onDisk(std::string(150'000, 'x'));
    EXPECT_EQ(File(onDisk.name()).ReadAll(), std::string(150'000, 'x'));
}

TEST(File, GivesTheSystemsReason) {
    try {
        const File file("/nowhere/to/be/found");
        FAIL();
    } catch (const std::system_error& error) {
        EXPECT_EQ(error.code(), std::errc::no_such_file_or_directory);
    }
    EXPECT_THROW(File("/").ReadAll(), std::system_error);
}

}  // namespace
}  // namespace qzsql
