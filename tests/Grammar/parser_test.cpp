// The facade of MySQL, and what it makes of texts that are no query.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <thread>
#include <type_traits>
#include <vector>

#include "QZParserSQL/Grammar/CQZMySQLParcer.h"
#include "QZParserSQL/Grammar/CQZMySQLTree.h"
#include "QZParserSQL/Grammar/MySQLSelectTokens.h"
#include "tests/dialect/Views.h"
#include "tests/front/Slot.h"
#include "tests/support/Recognition.h"

namespace {

using namespace std::string_literals;

constexpr char kTree[] =
    "nil(SELECT_QUERY_MY(PREDICATE SELECT_LIST(COLUMN_SPECIFICATION(COLUMN_NAME(a))) "
    "FROM_DEF_(TABLE_SPECIFICATION(TABLE_NAME(t)))) <EOF>)";

std::unique_ptr<CQZSQLTree> ViewOf(CQZMySQLParcer& parser) {
    CQZSQLTree* view = nullptr;
    parser.GetSQLTree(&view);
    return std::unique_ptr<CQZSQLTree>(view);
}

std::string Parsed(std::u16string_view sql) {
    CString text(sql);
    CQZMySQLParcer parser;
    parser.SetSQL(text);
    parser.ParseSQL();
    return Shape(*ViewOf(parser));
}

// ----------------------------------------------------------------------------------------------------------- facade

TEST(MySQLFacade, KeepsItsVirtualOperationsInOrder) {
    EXPECT_TRUE((std::is_base_of_v<CQZSQLParser, CQZMySQLParcer>));
    EXPECT_EQ(SlotOf(&CQZMySQLParcer::ParseSQL), 2U);
    EXPECT_EQ(SlotOf(&CQZMySQLParcer::SetSQL), 3U);
    EXPECT_EQ(SlotOf(&CQZMySQLParcer::GetSQLTree), 4U);
}

TEST(MySQLFacade, MakesATreeAndTellsEachDroppedBlank) {
    const Messages messages;
    EXPECT_EQ(Parsed(u"SELECT a FROM t"), kTree);
    EXPECT_EQ(messages.Lines().size(), 3U);
    EXPECT_EQ(messages.Lines().front(), "line 1:7: ' ' makes no token and is left out");
}

TEST(MySQLFacade, GivesTwoViewsOfItsClass) {
    const Messages messages;
    CString text(u"SELECT a FROM t");
    CQZMySQLParcer parser;
    parser.ParseSQL();
    EXPECT_EQ(ViewOf(parser)->GetChildCount(), 0U) << "no text, no tree";
    parser.SetSQL(text);
    parser.ParseSQL();
    auto first = ViewOf(parser);
    const auto second = ViewOf(parser);
    EXPECT_NE(dynamic_cast<CQZMySQLTree*>(first.get()), nullptr);
    EXPECT_NE(dynamic_cast<CQZMySQLTree*>(first->GetChild(0)), nullptr);
    EXPECT_EQ(first->GetChild(0)->GetType(), MySQLSelect::SELECT_QUERY_MY);
    EXPECT_NE(first->GetChild(0), second->GetChild(0));
    first.reset();
    EXPECT_EQ(Shape(*second), kTree);
}

TEST(MySQLFacade, RunsInParallelWithOthers) {
    const Messages messages;
    const std::u16string_view texts[] = {u"SELECT`a`FROM`t`", u"(SELECT'a')", u"SELECT(a,b)", u"x"};
    std::vector<std::string> alone;
    for (const auto text : texts) alone.push_back(Parsed(text));
    std::vector<std::string> together(alone.size());
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < alone.size(); ++i) {
        threads.emplace_back([&, i] {
            for (int run = 0; run < 50; ++run) {
                const Recognition recognition(std::u16string(texts[i]), QZGrammarMySQLSelect());
                CQZMySQLTree view;
                view.SetNode(recognition.Root());
                together[i] = Shape(view);
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(together, alone);
}

// --------------------------------------------------------------------------------------------------- texts gone wrong

// What shows that a text is not understood as a whole.
enum Sign : unsigned { Trails = 1, Reported = 2, Dropped = 4 };

struct BadText {
    std::u16string text;
    unsigned signs;
};

unsigned SignsOf(const Recognition& recognition) {
    const auto onlyWhiteSpace = [&] {
        for (const QZReport& report : recognition.Reports()) {
            if (report.phase == QZPhase::Lexer) return false;
        }
        return true;
    };
    return (QZChildCount(recognition.Root()) > 2 ? Trails : 0U) | (recognition.ParserErrors() > 0 ? Reported : 0U) |
           (onlyWhiteSpace() ? 0U : Dropped);
}

void ExpectSigns(const BadText& bad) {
    SCOPED_TRACE(ToUtf8(bad.text));
    const Recognition recognition(bad.text, QZGrammarMySQLSelect());
    const QZNode* root = recognition.Root();
    ASSERT_GE(QZChildCount(root), 2U);
    EXPECT_EQ(QZKindOf(QZChildAt(root, 0)), QZNodeKind::Imaginary);
    EXPECT_EQ(QZKindOf(QZChildAt(root, QZChildCount(root) - 1)), QZNodeKind::EndOfText);
    EXPECT_EQ(SignsOf(recognition), bad.signs);
    const Messages messages;
    EXPECT_FALSE(Parsed(bad.text).empty());
}

TEST(MySQLBadText, IsNoQuery) {
    for (const BadText& bad : {
             BadText{u"", Reported},
             {u" \t\r\n", Reported},
             {u";", Reported | Dropped},
             {u"UPDATE t SET a = 1", Trails | Reported},
             {u"foo SELECT a", Trails | Reported},
             {u"(foo)", Trails | Reported},
             {u"SELECT", Reported},
             {u"SELECT ,", Trails | Reported},
             {u"SELECT a SELECT b", Trails},
         }) {
        ExpectSigns(bad);
    }
}

TEST(MySQLBadText, HasMarksWithoutAPartner) {
    for (const BadText& bad : {
             BadText{u"SELECT `a FROM t", Trails | Reported},
             {u"SELECT a FROM `t", Trails},
             {u"SELECT a FROM t WHERE `a = 1", Trails},
             {u"SELECT 'a FROM t", Trails | Reported},
             {u"SELECT a FROM t WHERE b = 'a", Trails},
             {u"SELECT 'a\"b'' FROM t", Trails},
             {u"SELECT \"a'b\" FROM t", Trails | Reported},
             {u"SELECT '`' FROM t WHERE `'` = 1", 0},
             {u"SELECT '`'` FROM t", Trails},
             {u"SELECT a FROM t WHERE b = 'it''s'", Trails},
             {u"SELECT [a] FROM t", Trails | Reported},
             {u"SELECT a FROM t WHERE (a IN (1, 2)", 0},
             {u"SELECT a FROM t WHERE a = 1)))))", Trails},
             {u"`", Trails | Reported},
             {u"'", Trails | Reported},
         }) {
        ExpectSigns(bad);
    }
}

TEST(MySQLBadText, HoldsCharactersOfAllKinds) {
    for (const BadText& bad : {
             BadText{u"SELECT a\0FROM t"s, Dropped},
             {u"SELECT `a\0b`"s, Dropped},
             {u"SELECT\x01 a\x1F FROM\x7F t", Dropped},
             {u"SELECT \xD83D FROM t", Reported | Dropped},
             {u"SELECT a \xDE00 FROM t", Dropped},
             {u"SELECT 'a\xD83D\xDE00'", Dropped},
             {u"SELECT a FROM t\uFFFF", Dropped},
             {u"\uFEFFSELECT a", Dropped},
             {u"SELECT ä FROM t", Reported | Dropped},
         }) {
        ExpectSigns(bad);
    }
}

TEST(MySQLBadText, HasNotWhereItIsNoOperator) {
    for (const BadText& bad : {
             BadText{u"SELECT a FROM t WHERE NOT", Trails},
             {u"SELECT a FROM t WHERE NOT\t", Trails},
             {u"SELECT a FROM t WHERE NOT ", Dropped},
             {u"SELECT a FROM t WHERE a NOT  IN (1)", Trails | Dropped},
             {u"SELECT a FROM t WHERE a NOT\tIN (1)", Trails},
             {u"SELECT a FROM t WHERE a NOT\tb", 0},
             {u"SELECT a FROM t WHERE a NOT LIKE b", Trails | Dropped},
             {u"SELECT NOT a", Dropped},
             {u"SELECT NOT\ta", Trails | Reported},
         }) {
        ExpectSigns(bad);
    }
}

TEST(MySQLBadText, GoesOnBehindNotAndAnything) {
    for (char16_t unit = 0; unit < 0x80; ++unit) {
        for (const std::u16string& text : {u"SELECT a FROM t WHERE NOT"s, u"SELECT a FROM t WHERE NOT "s}) {
            const Recognition recognition(text + unit, QZGrammarMySQLSelect());
            const QZNode* root = recognition.Root();
            EXPECT_EQ(QZTextOf(QZGrammarMySQLSelect(), QZChildAt(root, 0)), u"SELECT_QUERY_MY") << +unit;
            EXPECT_EQ(QZKindOf(QZChildAt(root, QZChildCount(root) - 1)), QZNodeKind::EndOfText) << +unit;
            EXPECT_EQ(recognition.ParserErrors(), 0U) << +unit;
        }
    }
}

}  // namespace
