// What every generated recognizer gets beside the runtime: rule results that remember failures too, a guard against the
// end of the stack, reports that read 16-bit text safely, and the recovery of single characters and tokens.
#include "QZParserSQL/dialect/recognizer.h"

#include <fmt/format.h>

#include <cstdlib>
#include <memory>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "QZParserSQL/dialect/GrammarTable.h"
#include "QZParserSQL/dialect/QZRecognizers.h"
#include "QZParserSQL/dialect/Reports.h"
#include "QZParserSQL/dialect/Token.h"
#include "QZParserSQL/platform/CString.h"
#include "QZParserSQL/platform/Headroom.h"
#include "QZParserSQL/platform/Stack.h"

namespace {

using Recognizer = pANTLR3_BASE_RECOGNIZER;

// ------------------------------------------------------------------------------------------------------ rule results

// One parser's rule results by token and rule, rows made when a token is first reached. It stands where the runtime has
// its trie, so that the runtime frees it with the parser.
class RuleMemo {
 public:
    RuleMemo(pANTLR3_PARSER parser, ANTLR3_UINT32 rules, ANTLR3_UINT32 repeatedRule, ANTLR3_UINT32 exactToken,
             ANTLR3_UINT32 openingToken)
        : rules_(rules),
          repeatedRule_(repeatedRule),
          exactToken_(exactToken),
          openingToken_(openingToken),
          repairToken_(parser->rec->recoverFromMismatchedToken) {
        trie_.free = [](pANTLR3_INT_TRIE trie) { delete Of(trie); };
    }

    static RuleMemo* Of(pANTLR3_INT_TRIE trie) { return reinterpret_cast<RuleMemo*>(trie); }
    static RuleMemo& Of(Recognizer recognizer) { return *Of(recognizer->state->ruleMemo); }
    pANTLR3_INT_TRIE Trie() { return &trie_; }

    // 0 for unknown, kFailed, or the index behind the rule's last token + kSuccess. Where memory fails, nothing is
    // remembered.
    ANTLR3_UINT32& At(ANTLR3_MARKER token, ANTLR3_MARKER rule) try {
        const auto place = static_cast<std::size_t>(token);
        if (place >= rows_.size()) rows_.resize(place + place / 2 + 64);
        auto& row = rows_[place];
        if (row == nullptr) row.reset(new ANTLR3_UINT32[rules_]());
        return row[static_cast<std::size_t>(rule)];
    } catch (const std::bad_alloc&) {
        return forgotten_ = 0;
    }

    // Where the repeated rule fits, it is tried again right behind: every part of such a run is given the end of all of
    // it, so that a list which is read from each of its items costs no more than one that is read once.
    void ExtendToEndOfRun(ANTLR3_MARKER token, ANTLR3_MARKER rule) {
        if (rule != repeatedRule_) return;
        ANTLR3_UINT32 end = At(token, rule);
        for (ANTLR3_UINT32 next = At(end - kSuccess, rule); next >= kSuccess; next = At(end - kSuccess, rule))
            end = next;
        for (ANTLR3_MARKER place = token; At(place, rule) != end;) {
            place = std::exchange(At(place, rule), end) - kSuccess;
        }
    }

    bool IsExact(ANTLR3_UINT32 token) const { return exactToken_ != 0 && token == exactToken_; }
    bool IsOpening(ANTLR3_UINT32 token) const { return token == openingToken_; }
    void* RepairToken(Recognizer recognizer, ANTLR3_UINT32 token, pANTLR3_BITSET_LIST follow) const {
        return repairToken_(recognizer, token, follow);
    }

    void LimitStack(const char* limit) { stackLimit_ = limit; }
    bool StackIsLow(const void* here) const { return here < stackLimit_; }
    bool FirstTimeTooDeep() { return !std::exchange(toldTooDeep_, true); }
    bool WasTooDeep() const { return toldTooDeep_; }

    static constexpr ANTLR3_UINT32 kFailed = 1;
    static constexpr ANTLR3_UINT32 kSuccess = 2;

 private:
    ANTLR3_INT_TRIE trie_{};
    ANTLR3_UINT32 rules_;
    ANTLR3_UINT32 repeatedRule_;
    ANTLR3_UINT32 exactToken_;
    ANTLR3_UINT32 openingToken_;
    decltype(ANTLR3_BASE_RECOGNIZER::recoverFromMismatchedToken) repairToken_;
    std::vector<std::unique_ptr<ANTLR3_UINT32[]>> rows_;
    ANTLR3_UINT32 forgotten_ = 0;
    const void* stackLimit_ = nullptr;
    bool toldTooDeep_ = false;
};

pANTLR3_PARSER ParserOf(Recognizer recognizer) { return static_cast<pANTLR3_PARSER>(recognizer->super); }
pANTLR3_INT_STREAM TokensOf(Recognizer recognizer) { return ParserOf(recognizer)->tstream->istream; }

// A rule that is entered counts as failed until it succeeds: so failures are remembered without a word in the rule. No
// rule calls itself where it has read nothing, so the mark is never seen before its time.
ANTLR3_BOOLEAN HaveParsedRule(Recognizer recognizer, ANTLR3_MARKER rule) {
    const auto tokens = TokensOf(recognizer);
    const auto place = tokens->index(tokens);
    auto& memo = RuleMemo::Of(recognizer);
    auto& result = memo.At(place, rule);
    if (result == 0) {
        result = RuleMemo::kFailed;
        return ANTLR3_FALSE;
    }
    if (result == RuleMemo::kFailed) {
        recognizer->state->failed = ANTLR3_TRUE;
    } else {
        memo.ExtendToEndOfRun(place, rule);
        tokens->seek(tokens, result - RuleMemo::kSuccess);
    }
    return ANTLR3_TRUE;
}

void Memoize(Recognizer recognizer, ANTLR3_MARKER rule, ANTLR3_MARKER start) {
    if (recognizer->state->failed == ANTLR3_TRUE) return;
    const auto tokens = TokensOf(recognizer);
    RuleMemo::Of(recognizer).At(start, rule) = static_cast<ANTLR3_UINT32>(tokens->index(tokens)) + RuleMemo::kSuccess;
}

// ----------------------------------------------------------------------------------------------------------- reports

const QZReporter* ReporterOf(Recognizer recognizer) { return static_cast<const QZReporter*>(recognizer->state->userp); }

void Send(Recognizer recognizer, const QZReport& report) { qz::Send(ReporterOf(recognizer), report); }

// Control characters are written out, so that a report stays one line and moves no terminal's cursor.
std::u16string Visible(std::u16string_view text) {
    std::u16string visible;
    for (const char16_t unit : text) {
        if (unit >= 0x20 && (unit < 0x7F || unit > 0x9F)) {
            visible += unit;
        } else {
            visible += CString::FromUtf8(fmt::format("\\u{:04X}", static_cast<unsigned>(unit)));
        }
    }
    return visible;
}

std::string Quoted(std::u16string_view text) {
    constexpr std::size_t kLongest = 40;
    const bool cut = text.size() > kLongest;
    return "'" + CString(Visible(cut ? text.substr(0, kLongest) : text)).ToUtf8() + (cut ? "...'" : "'");
}

const char* NameOf(Recognizer recognizer, ANTLR3_UINT32 type) {
    if (type == ANTLR3_TOKEN_EOF) return "the end of the text";
    return reinterpret_cast<const char*>(recognizer->state->tokenNames[type]);
}

std::string Found(const QZToken& token) {
    return token.type == ANTLR3_TOKEN_EOF ? std::string("the end of the text") : Quoted(token.text);
}

std::string ParserMessage(Recognizer recognizer, const ANTLR3_EXCEPTION& exception, const QZToken& token) {
    switch (exception.type) {
        case ANTLR3_MISMATCHED_TOKEN_EXCEPTION:
        case ANTLR3_MISSING_TOKEN_EXCEPTION:
        case ANTLR3_UNWANTED_TOKEN_EXCEPTION:
            return fmt::format("{} where {} was expected", Found(token), NameOf(recognizer, exception.expecting));
        default:
            return fmt::format("{} cannot stand here", Found(token));
    }
}

// A missing token's report carries the token put in; what was found instead is the next one.
void ReportParserError(Recognizer recognizer, pANTLR3_UINT8*) try {
    const auto& exception = *recognizer->state->exception;
    const auto tokens = ParserOf(recognizer)->tstream;
    auto* found = static_cast<pANTLR3_COMMON_TOKEN>(exception.token);
    if (exception.type == ANTLR3_MISSING_TOKEN_EXCEPTION) found = tokens->_LT(tokens, 1);
    const QZToken token = qz::Describe(*found);
    Send(recognizer,
         {QZPhase::Parser, QZReportKind::SyntaxError, token.position, ParserMessage(recognizer, exception, token)});
} catch (const std::bad_alloc&) {  // the report is lost, the parse goes on
    qz::SendOutOfMemory(ReporterOf(recognizer), QZPhase::Parser, {});
}

constexpr ANTLR3_UINT32 kReported = 1;

const char16_t* UnitAt(ANTLR3_MARKER place) { return reinterpret_cast<const char16_t*>(place); }
const char16_t* BeginOfText(pANTLR3_INPUT_STREAM input) { return static_cast<const char16_t*>(input->data); }
const char16_t* NextUnit(pANTLR3_INPUT_STREAM input) { return static_cast<const char16_t*>(input->nextChar); }
const char16_t* EndOfText(pANTLR3_INPUT_STREAM input) { return BeginOfText(input) + input->sizeBuf / sizeof(char16_t); }

// The exception object serves all errors of a lexer, so that a text of stray characters costs no memory.
void RaiseInLexer(Recognizer recognizer) {
    auto& state = *recognizer->state;
    if (state.exception == nullptr) {
        state.exception = antlr3ExceptionNew(ANTLR3_RECOGNITION_EXCEPTION, nullptr, nullptr, ANTLR3_FALSE);
        if (state.exception == nullptr) throw std::bad_alloc();
    }
    const auto input = static_cast<pANTLR3_LEXER>(recognizer->super)->input;
    state.exception->type = ANTLR3_RECOGNITION_EXCEPTION;
    state.exception->c = input->istream->_LA(input->istream, 1);
    state.exception->line = input->line;
    state.exception->charPositionInLine = input->charPositionInLine;
    state.exception->index = input->istream->index(input->istream);
    state.error = ANTLR3_TRUE;
}

// Two at signs begin one of the system's names or nothing: what a name's rule has read behind the first is given back.
void GiveBackNoName(pANTLR3_LEXER lexer) {
    const auto& state = *lexer->rec->state;
    const auto input = lexer->input;
    const std::u16string_view read(UnitAt(state.tokenStartCharIndex),
                                   static_cast<std::size_t>(NextUnit(input) - UnitAt(state.tokenStartCharIndex)));
    if (read.substr(0, 2) != u"@@") return;
    input->istream->seek(input->istream, state.tokenStartCharIndex);
    input->charPositionInLine = state.tokenStartCharPositionInLine;
}

// What the rule has read and the one character that recovery drops.
std::u16string_view Dropped(pANTLR3_LEXER lexer) {
    const auto* begin = UnitAt(lexer->rec->state->tokenStartCharIndex);
    const auto* next = NextUnit(lexer->input);
    const auto* end = next < EndOfText(lexer->input) ? next + 1 : next;
    return {begin, static_cast<std::size_t>(end - begin)};
}

bool IsIgnored(Recognizer recognizer, std::u16string_view dropped) {
    const auto* reporter = ReporterOf(recognizer);
    return reporter != nullptr && reporter->ignores != nullptr && reporter->ignores(reporter->context, dropped);
}

void ReportLexerError(Recognizer recognizer, pANTLR3_UINT8*) try {
    auto& state = *recognizer->state;
    state.user3 = kReported;
    const auto lexer = static_cast<pANTLR3_LEXER>(recognizer->super);
    GiveBackNoName(lexer);
    const auto dropped = Dropped(lexer);
    if (IsIgnored(recognizer, dropped)) return;
    const QZPosition position{static_cast<std::uint32_t>(state.tokenStartLine),
                              static_cast<std::uint32_t>(state.tokenStartCharPositionInLine) + 1,
                              static_cast<std::size_t>(dropped.data() - BeginOfText(lexer->input))};
    const bool isOpen = dropped.size() > 1 && NextUnit(lexer->input) == EndOfText(lexer->input);
    Send(recognizer,
         {QZPhase::Lexer, QZReportKind::DroppedCharacter, position,
          fmt::format("{} {} and is left out", Quoted(dropped), isOpen ? "is not closed" : "makes no token")});
} catch (const std::bad_alloc&) {  // the report is lost, the parse goes on
    qz::SendOutOfMemory(ReporterOf(recognizer), QZPhase::Lexer, {});
}

// ---------------------------------------------------------------------------------------------------------- recovery

// The runtime asks for the line where it makes the end-of-text token, and forgets the column.
ANTLR3_UINT32 PlaceEndOfText(pANTLR3_LEXER lexer) {
    lexer->rec->state->tokSource->eofToken.charPosition = lexer->input->charPositionInLine;
    return lexer->input->line;
}

// The runtime calls this at the mismatch and again after the report; only the second time drops a character. user3
// tells the two apart: a report sets it and the runtime clears it where it begins the next token.
void DropOneCharacter(pANTLR3_LEXER lexer) {
    if (lexer->rec->state->user3 != kReported) return;
    lexer->input->istream->consume(lexer->input->istream);
}

// The parenthesis before this one is read; the repair leaves this one out where `type` follows it.
bool IsSecondOpening(Recognizer recognizer, ANTLR3_UINT32 type) {
    const auto& memo = RuleMemo::Of(recognizer);
    const auto tokens = ParserOf(recognizer)->tstream;
    const auto* before = tokens->_LT(tokens, -1);
    return before != nullptr && memo.IsOpening(before->type) && memo.IsOpening(tokens->_LT(tokens, 1)->type) &&
           tokens->_LT(tokens, 2)->type == type;
}

// The runtime asks for all that may follow the rules around to see whether a token was left out, which it takes for
// true as soon as the end of a rule is among it: so far the stack of rules is read, and no further.
pANTLR3_BITSET FollowOfRulesAround(Recognizer recognizer) {
    const auto following = recognizer->state->following;
    const auto all = qz::NewBitset(0);
    for (auto i = following->size(following); i > 0 && !all->isMember(all, ANTLR3_EOR_TOKEN_TYPE); --i) {
        const auto one = antlr3BitsetLoad(static_cast<pANTLR3_BITSET_LIST>(following->get(following, i - 1)));
        if (one == nullptr) continue;
        all->borInPlace(all, one);
        one->free(one);
    }
    return all;
}

void* RepairToken(Recognizer recognizer, ANTLR3_UINT32 type, pANTLR3_BITSET_LIST follow) {
    const auto& memo = RuleMemo::Of(recognizer);
    if (!memo.IsExact(type) || IsSecondOpening(recognizer, type)) return memo.RepairToken(recognizer, type, follow);
    antlr3MTExceptionNew(recognizer);
    recognizer->state->exception->expecting = type;
    recognizer->state->error = ANTLR3_TRUE;
    return nullptr;
}

// A token that the text lacks has a type and a place but no input.
void* PutInToken(Recognizer recognizer, pANTLR3_INT_STREAM tokens, pANTLR3_EXCEPTION, ANTLR3_UINT32 type,
                 pANTLR3_BITSET_LIST) {
    auto& factory = recognizer->state->tokFactory;
    if (factory == nullptr) {
        constexpr std::size_t kPool = ANTLR3_FACTORY_POOL_SIZE * sizeof(ANTLR3_COMMON_TOKEN);
        if (!qz::HasHeadroom(kPool + qz::kRuntimeNeeds)) throw std::bad_alloc();
        factory = antlr3TokenFactoryNew(nullptr);
    }
    const auto stream = static_cast<pANTLR3_TOKEN_STREAM>(tokens->super);
    const auto next = stream->_LT(stream, 1);
    const auto token = factory->newToken(factory);
    token->type = type;
    token->line = next->line;
    token->charPosition = next->charPosition;
    token->user1 = qz::kPutIn;
    return token;
}

void RaiseTooDeep(Recognizer recognizer) {
    recognizer->exConstruct(recognizer);
    recognizer->state->exception->type = ANTLR3_RECOGNITION_EXCEPTION;
}

void TellTooDeep(Recognizer recognizer) try {
    if (!RuleMemo::Of(recognizer).FirstTimeTooDeep()) return;
    const auto tokens = ParserOf(recognizer)->tstream;
    const QZToken token = qz::Describe(*tokens->_LT(tokens, 1));
    Send(recognizer, {QZPhase::Parser, QZReportKind::NestedTooDeep, token.position,
                      "nested too deep for the stack; what is nested deeper is not understood"});
} catch (const std::bad_alloc&) {  // the report is lost, the parse goes on
    qz::SendOutOfMemory(ReporterOf(recognizer), QZPhase::Parser, {});
}

}  // namespace

// --------------------------------------------------------------------------------------- called by generated
// recognizers

pANTLR3_BITSET qz::NewBitset(ANTLR3_UINT32 bits) {
    const auto set = antlr3BitsetNew(bits);
    if (set != nullptr && set->blist.bits != nullptr) return set;
    std::free(set);
    throw std::bad_alloc();
}

pANTLR3_LEXER qzLexerNew(ANTLR3_UINT32 sizeHint, pANTLR3_INPUT_STREAM input, pANTLR3_RECOGNIZER_SHARED_STATE state) {
#ifdef QZ_PLAIN_RECOGNIZERS
    const auto lexer = antlr3LexerNewStream(sizeHint, input, state);
#else
    const auto lexer = qzFastLexerNew(sizeHint, input, state);
#endif
    if (lexer == nullptr) return nullptr;
    lexer->recover = DropOneCharacter;
    lexer->getLine = PlaceEndOfText;
    lexer->rec->exConstruct = RaiseInLexer;
    lexer->rec->displayRecognitionError = ReportLexerError;
    lexer->rec->state->userp = nullptr;
    lexer->rec->state->tokSource->eofToken.input = input;
    return lexer;
}

pANTLR3_INT_TRIE qzRuleMemoNew(pANTLR3_PARSER parser, ANTLR3_UINT32 rules, ANTLR3_UINT32 repeatedRule,
                               ANTLR3_UINT32 exactToken, ANTLR3_UINT32 openingToken) {
    auto* memo = new (std::nothrow) RuleMemo(parser, rules, repeatedRule, exactToken, openingToken);
    if (memo == nullptr) return nullptr;
    parser->rec->alreadyParsedRule = HaveParsedRule;
    parser->rec->memoize = Memoize;
    parser->rec->displayRecognitionError = ReportParserError;
    parser->rec->recoverFromMismatchedToken = RepairToken;
    parser->rec->computeCSRuleFollow = FollowOfRulesAround;
    parser->rec->getMissingSymbol = PutInToken;
    parser->rec->state->userp = nullptr;
    return memo->Trie();
}

ANTLR3_BOOLEAN qzNestedTooDeep(pANTLR3_BASE_RECOGNIZER recognizer) {
    if (!RuleMemo::Of(recognizer).StackIsLow(__builtin_frame_address(0))) return ANTLR3_FALSE;
    qzFailTooDeep(recognizer);
    return ANTLR3_TRUE;
}

void qzFailTooDeep(pANTLR3_BASE_RECOGNIZER recognizer) {
    TellTooDeep(recognizer);
    if (recognizer->state->backtracking > 0) {
        recognizer->state->failed = ANTLR3_TRUE;
    } else {
        RaiseTooDeep(recognizer);
    }
}

ANTLR3_BOOLEAN qzWasNestedTooDeep(pANTLR3_BASE_RECOGNIZER recognizer) { return RuleMemo::Of(recognizer).WasTooDeep(); }

// ------------------------------------------------------------------------------------------------- called by the host

const QZNode* QZRunEntryRule(const QZGrammar& grammar, void* parser) {
    const Recognizer recognizer = (*static_cast<pANTLR3_PARSER*>(parser))->rec;
    RuleMemo::Of(recognizer).LimitStack(qz::StackLimit());
    try {
        return grammar.runEntryRule(parser);
    } catch (const std::bad_alloc&) {
        qz::SendOutOfMemory(ReporterOf(recognizer), QZPhase::Parser, {});
        return nullptr;
    }
}
