#include <gtest/gtest.h>

#include "host/json_record.h"

namespace qzsql {
namespace {

TEST(JsonRecord, HoldsWhatTheLineSays) {
    const auto record = ReadRecord(R"( {"dialect":"access", "more":[{}], "sql":"SELECT a", "id":7} )");
    EXPECT_EQ(record.error, "");
    EXPECT_EQ(record.id, "7");
    EXPECT_EQ(record.sql, u"SELECT a");
    EXPECT_EQ(record.dialect, "access");
}

TEST(JsonRecord, NeedsNeitherIdNorDialect) {
    const auto record = ReadRecord(R"({"sql":""})");
    EXPECT_EQ(record.error, "");
    EXPECT_EQ(record.id, "null");
    EXPECT_EQ(record.sql, u"");
    EXPECT_FALSE(record.dialect);
}

TEST(JsonRecord, KeepsAnIdAsItIsWritten) {
    for (const std::string id : {"1.0", "1e400", "12345678901234567890123", "-0", R"("\ud800\u0041ä")", "null", "true",
                                 R"([1, {"a" : "b"}])", R"({"id":2,"sql":3})", "\"\""}) {
        const auto record = ReadRecord("{\"id\": " + id + " ,\"sql\":\"\"}");
        EXPECT_EQ(record.error, "");
        EXPECT_EQ(record.id, id);
    }
}

TEST(JsonRecord, KnowsKeysInAnySpelling) {
    const auto record = ReadRecord(R"({"\u0069d":1,"s\u0071l":"a"})");
    EXPECT_EQ(record.id, "1");
    EXPECT_EQ(record.sql, u"a");
}

TEST(JsonRecord, TakesTheLastOfKeysThatRepeat) {
    const auto record = ReadRecord(R"({"id":1,"sql":5,"sql":"a","id":2})");
    EXPECT_EQ(record.id, "2");
    EXPECT_EQ(record.sql, u"a");
    EXPECT_EQ(record.error, "");
    EXPECT_EQ(ReadRecord(R"({"sql":"a","sql":5})").error, "\"sql\" is missing or no string");
}

TEST(JsonRecord, SaysWhatIsWrong) {
    const struct {
        const char* line;
        const char* id;
        const char* error;
    } cases[] = {
        {R"({"id":7})", "7", "\"sql\" is missing or no string"},
        {R"({"sql":null,"id":7})", "7", "\"sql\" is missing or no string"},
        {"{}", "null", "\"sql\" is missing or no string"},
        {"[]", "null", "byte 1: '{' expected"},
        {"SELECT a", "null", "byte 1: '{' expected"},
        {R"({"id":7,"sql":"a)", "7", "byte 17: a string is not closed"},
        {R"({"id":7)", "null", "byte 8: ',' or '}' expected"},  // the number could have been longer
        {R"({"id":7,"sql":"a"} {)", "7", "byte 20: text behind the record"},
        {R"({"id":7,})", "7", "byte 9: '\"' expected"},
    };
    for (const auto& bad : cases) {
        const auto record = ReadRecord(bad.line);
        EXPECT_EQ(record.id, bad.id) << bad.line;
        EXPECT_EQ(record.error, bad.error) << bad.line;
    }
}

TEST(JsonRecord, ShowsADialectThatIsNoStringAsItIsWritten) {
    EXPECT_EQ(ReadRecord(R"({"sql":"","dialect":[1]})").dialect, "[1]");
}

}  // namespace
}  // namespace qzsql
