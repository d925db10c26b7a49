#include <gtest/gtest.h>
#include <malloc.h>

#include <string>
#include <string_view>
#include <vector>

#include "QZParserSQL/MSAccess_v3/MSAccessSQL_v3Tokens.h"
#include "QZParserSQL/dialect/QZRecognizers.h"
#include "QZParserSQL/platform/CString.h"
#include "tests/dialect/Views.h"
#include "tests/support/Outline.h"
#include "tests/support/Recognition.h"

namespace {

using namespace std::string_view_literals;

const QZGrammar& Grammar() { return QZGrammarMSAccessSQL_v3(); }

constexpr char kTree[] =
    "(nil (SELECT_QUERY (SELECT_LIST (COLUMN_SPECIFICATION (COLUMN_NAME IDENTIFICATOR:\"a\"))) "
    "(FROM_DEF_ (ALIAS (TABLE_SPECIFICATION (TABLE_NAME IDENTIFICATOR:\"t\"))))) EOF)";

// The exported constructors, and the forms with a shared state, which is null.
struct Constructors {
    void* (*lexer)(QZInputStream* input);
    void* (*parser)(QZTokenStream* tokens);
};

const Constructors kConstructors[] = {
    {[](QZInputStream* input) -> void* { return MSAccessSQL_v3LexerNew(input); },
     [](QZTokenStream* tokens) -> void* { return MSAccessSQL_v3ParserNew(tokens); }},
    {[](QZInputStream* input) -> void* { return MSAccessSQL_v3LexerNewSSD(input, nullptr); },
     [](QZTokenStream* tokens) -> void* { return MSAccessSQL_v3ParserNewSSD(tokens, nullptr); }},
    {[](QZInputStream* input) { return QZNewLexer(Grammar(), input); },
     [](QZTokenStream* tokens) { return QZNewParser(Grammar(), tokens); }},
};

// Recognizers made one by one, as a host without a facade makes them. The text belongs to the caller.
class ByHand {
 public:
    explicit ByHand(std::u16string_view text, const Constructors& constructors = kConstructors[0])
        : input(antlr3NewUCS2StringInPlaceStream(text.data(), static_cast<std::uint32_t>(text.size()), nullptr)),
          lexer(constructors.lexer(input)),
          tokens(QZNewTokenStream(lexer)),
          parser(constructors.parser(tokens)) {}
    ByHand(const ByHand&) = delete;
    ByHand& operator=(const ByHand&) = delete;
    ~ByHand() {
        QZCloseInput(input);
        QZFreeTokenStream(tokens);
        QZFreeLexer(Grammar(), lexer);
        QZFreeParser(Grammar(), parser);
    }

    const QZNode* Run() const { return QZRunEntryRule(Grammar(), parser); }

    QZInputStream* const input;
    void* const lexer;
    QZTokenStream* const tokens;
    void* const parser;
};

void Keep(void* reports, const QZReport& report) { static_cast<std::vector<QZReport>*>(reports)->push_back(report); }

TEST(Recognizers, RunWithoutAFacade) {
    for (const Constructors& constructors : kConstructors) {
        const ByHand hand(u"SELECT a FROM t", constructors);
        ASSERT_NE(hand.lexer, nullptr);
        ASSERT_NE(hand.parser, nullptr);
        EXPECT_EQ(Sexpr(Grammar(), hand.Run()), kTree);
        EXPECT_EQ(QZLexerErrorCount(hand.lexer), 0U);
        EXPECT_EQ(QZParserErrorCount(hand.parser), 0U);
    }
}

TEST(Recognizers, AreFreedWithoutHavingRun) {
    for (const Constructors& constructors : kConstructors) {
        const ByHand hand(u"SELECT a FROM t", constructors);
        EXPECT_NE(hand.parser, nullptr);
    }
    QZCloseInput(nullptr);
    QZFreeTokenStream(nullptr);
    QZFreeLexer(Grammar(), nullptr);
    QZFreeParser(Grammar(), nullptr);
}

TEST(Recognizers, GiveTokensWithoutAParser) {
    const CString text(u"SELECT a;");
    auto* input = antlr3NewUCS2StringInPlaceStream(text.GetString(), 9, nullptr);
    auto* lexer = MSAccessSQL_v3LexerNew(input);
    auto* tokens = QZNewTokenStream(lexer);
    std::vector<QZReport> reports;
    const QZReporter reporter{Keep, &reports};
    QZSetLexerReporter(lexer, &reporter);
    EXPECT_EQ(QZTokenCount(tokens), 3U);
    EXPECT_EQ(QZTokenAt(tokens, 0).type, MSAccessSQL_v3::SELECT_KEYWORD);
    EXPECT_TRUE(QZTokenAt(tokens, 1).hidden);
    EXPECT_EQ(QZTokenAt(tokens, 2).text, u"a");
    EXPECT_EQ(QZTokenAt(tokens, 4).type, 0U);
    EXPECT_EQ(reports.size(), 1U);
    QZCloseInput(input);
    QZFreeTokenStream(tokens);
    QZFreeLexer(Grammar(), lexer);
}

TEST(Recognizers, ReadTheTextInPlace) {
    const CString text(u"SELECT [a b], 'c' FROM t");
    const ByHand hand(text.View());
    hand.Run();
    const std::size_t count = QZTokenCount(hand.tokens);
    ASSERT_EQ(count, 10U);
    for (std::size_t i = 0; i < count; ++i) {
        const QZToken token = QZTokenAt(hand.tokens, i);
        EXPECT_EQ(token.text.data(), text.GetString() + token.position.offset);
    }
}

TEST(Recognizers, RefuseATextThatIsTooLong) {
    EXPECT_EQ(antlr3NewUCS2StringInPlaceStream(u"", 0x80000000U, nullptr), nullptr);
    EXPECT_EQ(antlr3NewUCS2StringInPlaceStream(u"", 0xFFFFFFFFU, nullptr), nullptr);
}

TEST(Recognizers, KnowTheNamesOfTheirTokens) {
    using namespace MSAccessSQL_v3;
    EXPECT_EQ(QZGrammarName(Grammar()), "MSAccessSQL_v3"sv);
    EXPECT_EQ(QZTokenName(Grammar(), SELECT_LIST), "SELECT_LIST"sv);
    EXPECT_EQ(QZTokenName(Grammar(), SELECT_KEYWORD), "SELECT_KEYWORD"sv);
    EXPECT_EQ(QZTokenName(Grammar(), WORD_count), "'count'"sv);
    EXPECT_EQ(QZTokenName(Grammar(), COUNT), "COUNT"sv);
    EXPECT_EQ(QZTokenName(Grammar(), WORD_EXPAND_VIEWS), "'EXPAND VIEWS'"sv);
    EXPECT_EQ(QZTokenName(Grammar(), SIGN_HASH), "'#'"sv);
    EXPECT_EQ(QZTokenName(Grammar(), 0xFFFFFFFFU), "EOF"sv);
    for (const std::uint32_t none : {0U, 1U, 2U, 3U, 100000U, 0xFFFFFFFEU}) {
        EXPECT_EQ(QZTokenName(Grammar(), none), nullptr);
    }
}

// ----------------------------------------------------------------------------------------------------------- reports

TEST(Reports, GoToTheReporterOfTheRecognizer) {
    const std::u16string_view text = u"SELECT\n  ?FROM t";
    const ByHand hand(text);
    std::vector<QZReport> lexerReports;
    std::vector<QZReport> parserReports;
    const QZReporter lexerReporter{Keep, &lexerReports};
    const QZReporter parserReporter{Keep, &parserReports};
    const Messages messages;
    QZSetLexerReporter(hand.lexer, &lexerReporter);
    QZSetParserReporter(hand.parser, &parserReporter);
    hand.Run();
    EXPECT_TRUE(messages.Lines().empty());

    ASSERT_EQ(lexerReports.size(), 1U);
    const QZReport& dropped = lexerReports[0];
    EXPECT_EQ(dropped.phase, QZPhase::Lexer);
    EXPECT_EQ(dropped.kind, QZReportKind::DroppedCharacter);
    EXPECT_EQ(dropped.position.line, 2U);
    EXPECT_EQ(dropped.position.column, 3U);
    EXPECT_EQ(dropped.position.offset, 9U);
    EXPECT_NE(dropped.message.find('?'), std::string::npos) << dropped.message;
    EXPECT_EQ(QZLexerErrorCount(hand.lexer), 1U);

    ASSERT_EQ(parserReports.size(), 1U);
    const QZReport& error = parserReports[0];
    EXPECT_EQ(error.phase, QZPhase::Parser);
    EXPECT_EQ(error.kind, QZReportKind::SyntaxError);
    EXPECT_EQ(error.position.line, 2U);
    EXPECT_EQ(error.position.column, 4U);
    EXPECT_EQ(error.position.offset, 10U);
    EXPECT_NE(error.message.find("FROM"), std::string::npos) << error.message;
    EXPECT_EQ(QZParserErrorCount(hand.parser), 1U);
}

TEST(Reports, GoToTheErrorSinkByDefaultAndAgainForANullReporter) {
    std::vector<QZReport> reports;
    const QZReporter reporter{Keep, &reports};
    for (const bool backAndForth : {false, true}) {
        const ByHand hand(u"foo ;");
        if (backAndForth) {
            QZSetLexerReporter(hand.lexer, &reporter);
            QZSetLexerReporter(hand.lexer, nullptr);
            QZSetParserReporter(hand.parser, &reporter);
            QZSetParserReporter(hand.parser, nullptr);
        }
        testing::internal::CaptureStdout();
        const Messages messages;
        hand.Run();
        EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
        ASSERT_EQ(messages.Lines().size(), 2U);
        EXPECT_NE((messages.Lines()[0] + messages.Lines()[1]).find("1:5"), std::string::npos);
        EXPECT_NE((messages.Lines()[0] + messages.Lines()[1]).find("1:1"), std::string::npos);
    }
    EXPECT_TRUE(reports.empty());
}

TEST(Reports, AreNotMadeOfDroppedCharactersThatAReporterIgnores) {
    const ByHand hand(u"SELECT a;?;?");
    std::vector<QZReport> reports;
    const QZReporter reporter{Keep, &reports, [](void*, std::u16string_view dropped) { return dropped == u";"; }};
    QZSetLexerReporter(hand.lexer, &reporter);
    hand.Run();
    ASSERT_EQ(reports.size(), 2U);
    EXPECT_EQ(reports[0].position.offset, 9U);
    EXPECT_EQ(reports[1].position.offset, 11U);
    EXPECT_EQ(QZLexerErrorCount(hand.lexer), 4U);
}

TEST(Reports, TellTheEndOfTheTextByItsPlace) {
    const struct {
        std::u16string_view text;
        QZPosition place;
    } rows[] = {{u"", {1, 1, 0}}, {u"SELECT", {1, 7, 6}}, {u"SELECT\n ", {2, 2, 8}}};
    for (const auto& row : rows) {
        const Recognition recognition{std::u16string(row.text)};
        ASSERT_EQ(recognition.Reports().size(), 1U) << ToUtf8(row.text);
        const QZPosition place = recognition.Reports()[0].position;
        EXPECT_EQ(place.line, row.place.line) << ToUtf8(row.text);
        EXPECT_EQ(place.column, row.place.column) << ToUtf8(row.text);
        EXPECT_EQ(place.offset, row.place.offset) << ToUtf8(row.text);
    }
}

TEST(Reports, CountErrorsOfEachRecognizerApart) {
    const struct {
        std::u16string_view text;
        std::uint32_t lexerErrors;
        std::uint32_t parserErrors;
    } rows[] = {
        {u"SELECT a FROM t", 0, 0}, {u"SELECT a; FROM t?", 2, 0}, {u"UPDATE t", 0, 1},
        {u"~UPDATE", 1, 1},         {u"SELECT a b c", 0, 0},      {u"SELECT 'a", 1, 1},
    };
    for (const auto& row : rows) {
        const Recognition recognition{std::u16string(row.text)};
        EXPECT_EQ(recognition.LexerErrors(), row.lexerErrors) << ToUtf8(row.text);
        EXPECT_EQ(recognition.ParserErrors(), row.parserErrors) << ToUtf8(row.text);
        EXPECT_EQ(recognition.Reports().size(), row.lexerErrors + row.parserErrors) << ToUtf8(row.text);
    }
}

// The digits behind a point are matched at once; where they lack, the parser puts them in.
TEST(Reports, ShowATokenThatTheParserPutIn) {
    const Recognition recognition(u"SELECT TOP .a FROM t");
    EXPECT_EQ(recognition.ParserErrors(), 1U);
    ASSERT_EQ(recognition.Reports().size(), 1U);
    const QZReport& report = recognition.Reports()[0];
    EXPECT_EQ(report.position.line, 1U);
    EXPECT_EQ(report.position.column, 13U);
    EXPECT_EQ(report.position.offset, 12U);
    EXPECT_NE(report.message.find("DIGIT"), std::string::npos) << report.message;
    EXPECT_NE(report.message.find("'a'"), std::string::npos) << report.message;

    const QZNode* number = QZChildAt(QZChildAt(QZChildAt(QZChildAt(recognition.Root(), 0), 0), 0), 0);
    EXPECT_EQ(QZTextOf(Grammar(), number), u"NUMBER_LITERAL");
    ASSERT_EQ(QZChildCount(number), 2U);
    const QZNode* missing = QZChildAt(number, 1);
    EXPECT_EQ(QZKindOf(missing), QZNodeKind::Missing);
    EXPECT_EQ(QZTypeOf(missing), MSAccessSQL_v3::DIGIT);
    EXPECT_EQ(QZTextOf(Grammar(), missing), u"<missing DIGIT>");
    EXPECT_EQ(QZTokenOf(missing).text, u"");
    EXPECT_EQ(QZTokenOf(missing).position.line, 0U);

    const Messages messages;
    CString text(recognition.Text());
    CQZMSAccessSQL_v3Parcer parser;
    parser.SetSQL(text);
    parser.ParseSQL();
    const auto view = ViewOf(parser);
    EXPECT_NE(Shape(*view).find("NUMBER_LITERAL(. <missing DIGIT>)"), std::string::npos) << Shape(*view);
}

TEST(Reports, TellOfATokenThatTheParserLeftOut) {
    const Recognition recognition(u"SELECT TOP .x 5 a FROM t");
    EXPECT_EQ(recognition.ParserErrors(), 1U);
    ASSERT_EQ(recognition.Reports().size(), 1U);
    EXPECT_EQ(recognition.Reports()[0].position.offset, 12U);
    const QZNode* predicate = QZChildAt(QZChildAt(recognition.Root(), 0), 0);
    EXPECT_EQ(Sexpr(Grammar(), predicate), "(PREDICATE (TOP_KEYWORD:\"TOP\" (NUMBER_LITERAL DOT:\".\" DIGIT:\"5\")))");
}

TEST(Reports, QuoteNotMoreOfALongTextThanALineHolds) {
    const Recognition recognition(u"SELECT a FROM t WHERE b = '" + std::u16string(100000, u'x'));
    ASSERT_EQ(recognition.LexerErrors(), 1U);
    EXPECT_LT(recognition.Reports()[0].message.size(), 200U);
}

struct StrayCharacters {
    std::size_t count = 0;
    std::size_t bytesAtFirst = 0;
    std::size_t bytesAtLast = 0;
};

void Measure(void* context, const QZReport&) {
    auto& stray = *static_cast<StrayCharacters*>(context);
    ++stray.count;
    if (stray.count == 1) stray.bytesAtFirst = mallinfo2().uordblks;
    if (stray.count == 1000000) stray.bytesAtLast = mallinfo2().uordblks;
}

TEST(Reports, OfAMillionStrayCharactersTakeNoMemory) {
    const std::u16string text = u"SELECT a FROM t" + std::u16string(1000000, u';');
    StrayCharacters stray;
    const QZReporter reporter{Measure, &stray};
    const ByHand hand(text);
    QZSetLexerReporter(hand.lexer, &reporter);
    EXPECT_EQ(Sexpr(Grammar(), hand.Run()), kTree);
    EXPECT_EQ(stray.count, 1000000U);
    EXPECT_EQ(QZLexerErrorCount(hand.lexer), 1000000U);
    EXPECT_LT(stray.bytesAtLast, stray.bytesAtFirst + 100000);
}

// ------------------------------------------------------------------------------------------------------------- nodes

TEST(Nodes, TellWhatTheyAre) {
    const Recognition recognition(u"SELECT a b");
    const QZNode* root = recognition.Root();
    ASSERT_EQ(QZChildCount(root), 3U);
    EXPECT_EQ(QZKindOf(root), QZNodeKind::Nil);
    EXPECT_EQ(QZTypeOf(root), 0U);
    EXPECT_EQ(QZTextOf(Grammar(), root), u"nil");
    const QZNode* query = QZChildAt(root, 0);
    EXPECT_EQ(QZKindOf(query), QZNodeKind::Imaginary);
    EXPECT_EQ(QZTextOf(Grammar(), query), u"SELECT_QUERY");
    EXPECT_EQ(QZTokenOf(query).position.line, 0U);
    const QZNode* trailing = QZChildAt(root, 1);
    EXPECT_EQ(QZKindOf(trailing), QZNodeKind::Token);
    EXPECT_EQ(QZTextOf(Grammar(), trailing), u"b");
    EXPECT_EQ(QZTokenOf(trailing).position.offset, 9U);
    EXPECT_EQ(QZTokenOf(trailing).position.column, 10U);
    const QZNode* end = QZChildAt(root, 2);
    EXPECT_EQ(QZKindOf(end), QZNodeKind::EndOfText);
    EXPECT_EQ(QZTextOf(Grammar(), end), u"<EOF>");
    EXPECT_EQ(QZTokenOf(end).position.offset, 10U);
    EXPECT_EQ(QZChildAt(root, 3), nullptr);
    EXPECT_EQ(QZChildAt(end, 0), nullptr);

    const Recognition bad(u"foo");
    const QZNode* error = QZChildAt(QZChildAt(bad.Root(), 0), 0);
    EXPECT_EQ(QZKindOf(error), QZNodeKind::Error);
    EXPECT_EQ(QZTextOf(Grammar(), error), u"Tree Error Node");
    EXPECT_EQ(QZTypeOf(error), 0U);
    EXPECT_EQ(QZChildCount(error), 0U);
}

}  // namespace
