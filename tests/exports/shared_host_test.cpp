// A host as any other: it knows the installed headers and the shared library.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "QZParserSQL/MSAccess_v3/CQZMSAccessSQL_v3Parcer.h"
#include "QZParserSQL/MSAccess_v3/MSAccessSQL_v3Tokens.h"
#include "QZParserSQL/dialect/QZRecognizers.h"
#include "QZParserSQL/front/CQZException.h"
#include "QZParserSQL/front/CQZSQLTree.h"

namespace {

// One column name, read through the views.
CString ColumnOf(CQZSQLTree& root) {
    CQZSQLTree* node = &root;
    while (node->GetChildCount() > 0) node = node->GetChild(0);
    return node->GetText();
}

TEST(SharedHost, ParsesThroughTheFacade) {
    CString text(u"SELECT Größe FROM t");
    CQZMSAccessSQL_v3Parcer parser;
    parser.SetSQL(text);
    parser.ParseSQL();
    CQZSQLTree* tree = nullptr;
    parser.GetSQLTree(&tree);
    const std::unique_ptr<CQZSQLTree> owner(tree);
    EXPECT_EQ(tree->GetText(), u"nil");
    EXPECT_EQ(tree->GetChild(0)->GetType(), MSAccessSQL_v3::SELECT_QUERY);
    EXPECT_EQ(ColumnOf(*tree), u"Größe");
}

void Keep(void* reports, const QZReport& report) { static_cast<std::vector<QZReport>*>(reports)->push_back(report); }

TEST(SharedHost, ParsesThroughTheRecognizersWithReportsOfItsOwn) {
    const CString text(u"UPDATE t;");
    std::vector<QZReport> reports;
    const QZReporter reporter{Keep, &reports};
    const QZGrammar& grammar = QZGrammarMSAccessSQL_v3();
    auto* input = antlr3NewUCS2StringInPlaceStream(text.GetString(), 9, nullptr);
    auto* lexer = MSAccessSQL_v3LexerNew(input);
    QZSetLexerReporter(lexer, &reporter);
    auto* tokens = QZNewTokenStream(lexer);
    auto* parser = MSAccessSQL_v3ParserNew(tokens);
    QZSetParserReporter(parser, &reporter);
    const QZNode* root = QZRunEntryRule(grammar, parser);
    ASSERT_EQ(QZChildCount(root), 4U);
    EXPECT_EQ(QZTextOf(grammar, QZChildAt(root, 1)), u"UPDATE");
    EXPECT_EQ(QZTokenOf(QZChildAt(root, 1)).position.column, 1U);
    EXPECT_EQ(QZTokenCount(tokens), 3U);
    EXPECT_EQ(reports.size(), 2U);
    EXPECT_EQ(QZLexerErrorCount(lexer), 1U);
    EXPECT_EQ(QZParserErrorCount(parser), 1U);
    QZCloseInput(input);
    QZFreeTokenStream(tokens);
    QZFreeLexer(grammar, lexer);
    QZFreeParser(grammar, parser);
}

TEST(SharedHost, ThrowsAndCatchesTheParseException) {
    try {
        throw CQZParseSQLException(CString(u"no such query"), 3);
    } catch (CQZParseSQLException& exception) {
        EXPECT_EQ(exception.GetErrString(), u"no such query");
        EXPECT_EQ(exception.GetErrCode(), 3);
    }
}

// A view of a host's own, of one node without children.
class HostTree : public CQZSQLTree {
 public:
    CQZSQLTree* GetChild(std::uint32_t) override { return this; }
    std::uint32_t GetChildCount() override { return 0; }
    CString GetText() override { return u"host"; }
    std::uint32_t GetType() override { return 1; }
};

TEST(SharedHost, DerivesFromTheExportedClasses) {
    const HostTree first;
    HostTree second(first);
    second = first;
    EXPECT_EQ(ColumnOf(second), u"host");

    struct HostException : CQZParseSQLException {
        HostException() : CQZParseSQLException(7) {}
        CString GetErrMessage() override { return u"seven"; }
    };
    try {
        throw HostException();
    } catch (CQZParseSQLException& exception) {
        EXPECT_EQ(exception.GetErrMessage(), u"seven");
        EXPECT_EQ(exception.GetErrNumber(), 7);
    }
}

}  // namespace
