#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>

#include "host/batch.h"

namespace qzsql {
namespace {

using nlohmann::json;

Answer AnswerTo(const std::string& line, const std::string& emission = "tree", const std::string& dialect = "access") {
    return AnswerLine({"in", dialect, emission, 1, "", false}, {3, line});
}

TEST(Batch, AnswersWithATree) {
    const auto answer = AnswerTo(R"({"id":"q1","sql":"SELECT a"})");
    EXPECT_EQ(answer.text, R"_({"id":"q1","status":"clean","tree":"(nil (SELECT_QUERY (SELECT_LIST )_"
                           R"_((COLUMN_SPECIFICATION (COLUMN_NAME IDENTIFICATOR:\"a\")))) EOF)"})_");
    EXPECT_EQ(answer.code, kDone);
}

TEST(Batch, AnswersWithTokens) {
    EXPECT_EQ(AnswerTo(R"({"id":1,"sql":"SELECT a;"})", "tokens").text,
              R"({"id":1,"status":"clean","tokens":["SELECT_KEYWORD:\"SELECT\"","WS:\" \" @hidden",)"
              R"("IDENTIFICATOR:\"a\""]})");
    EXPECT_EQ(AnswerTo(R"({"id":1,"sql":""})", "tokens").text, R"({"id":1,"status":"error","tokens":[]})");
}

TEST(Batch, AnswersWithACheck) {
    const auto answer = AnswerTo(R"({"id":1,"sql":"SELECT a x y"})", "check");
    EXPECT_EQ(json::parse(answer.text), json::parse(R"({"id":1,"status":"trailing","check":{
        "input":"in:3","status":"trailing","diagnostics":[],
        "trailing":{"line":1,"column":10,"offset":9,"count":2,"text":"x y"}}})"));
}

TEST(Batch, AnswersWithAModel) {
    EXPECT_EQ(AnswerTo(R"({"id":1,"sql":"SELECT 1.5"})", "model").text,
              R"({"id":1,"status":"clean","model":{"SQL":"SELECT 1.5","Select":[{"ItemKind":1,"Text":"1."}]}})");
}

TEST(Batch, TheStatusOfAModelIsThatOfTheTextThatTheBuildReads) {
    EXPECT_EQ(json::parse(AnswerTo(R"({"sql":"SELECT a AS [b.c]"})", "tree").text)["status"], "clean");
    const auto answer = AnswerTo(R"({"sql":"SELECT a AS [b.c]"})", "model");
    EXPECT_EQ(json::parse(answer.text)["status"], "trailing");
    EXPECT_EQ(answer.code, kDone);
}

TEST(Batch, NoModelsAreMadeOfSourceLists) {
    const auto answer = AnswerTo(R"({"id":1,"sql":"t"})", "model", "mssql-from");
    EXPECT_EQ(answer.text, R"({"id":1,"error":"line 3: no models are made of mssql-from queries"})");
    EXPECT_EQ(answer.code, kNotClean);
}

TEST(Batch, CatalogsGoWithModelsAlone) {
    EXPECT_EQ(WrongRequest({"-", "access", "model", 1, "store", true}), "");
    EXPECT_EQ(WrongRequest({"-", "access", "tree", 1, "", false}), "");
    EXPECT_NE(WrongRequest({"-", "access", "tree", 1, "store", false}), "");
    EXPECT_NE(WrongRequest({"-", "access", "check", 1, "", true}), "");
}

TEST(Batch, OnlyACheckFailsForWhatIsNotClean) {
    EXPECT_EQ(AnswerTo(R"({"sql":"SELECT a x"})", "check").code, kNotClean);
    EXPECT_EQ(AnswerTo(R"({"sql":"SELECT a x"})", "tree").code, kDone);
    EXPECT_EQ(AnswerTo(R"({"sql":"SELECT a"})", "check").code, kDone);
}

TEST(Batch, BadLinesAreAnsweredWithTheirNumber) {
    const auto answer = AnswerTo(R"({"id":7,"sql":5})");
    EXPECT_EQ(answer.text, R"({"id":7,"error":"line 3: \"sql\" is missing or no string"})");
    EXPECT_EQ(answer.code, kNotClean);
}

TEST(Batch, TheRecordsDialectGoesFirst) {
    EXPECT_EQ(AnswerTo(R"({"sql":"SELECT a","dialect":"access"})", "tree", "").code, kDone);
    const auto unknown = json::parse(AnswerTo(R"({"sql":"SELECT a","dialect":"klingon"})").text);
    EXPECT_EQ(unknown["error"].get<std::string>().rfind("line 3: unknown dialect 'klingon'; the known ones are: ", 0),
              0U);
    EXPECT_EQ(AnswerTo(R"({"sql":"SELECT a"})", "tree", "").text,
              R"({"id":null,"error":"line 3: no \"dialect\", and no -d"})");
}

TEST(Batch, LoneSurrogatesSurvive) {
    EXPECT_EQ(
        AnswerTo(R"({"id":"\udc00","sql":"a\ud800b"})").text,
        R"_({"id":"\udc00","status":"error","tree":"(nil (SELECT_QUERY ERROR) IDENTIFICATOR:\"a\ud800b\" EOF)"})_");
}

}  // namespace
}  // namespace qzsql
